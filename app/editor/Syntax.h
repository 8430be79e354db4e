#pragma once

#include <QList>
#include <QSet>
#include <QString>

// What texts of one kind are made of, for colouring them: a table, which the highlighter walks
// through. It is no parser; a text that is wrong is coloured somehow.
struct Syntax
{
    enum Style { Plain, Keyword, Comment, Text, Number, Directive, Variable, Tag };

    // From an opening to a closing, such as a comment. What has no closing ends with its line.
    struct Span
    {
        QString opening {};
        QString closing {};
        Style style = Plain;
        // The character that takes the meaning off the next one; at the end of a line it takes
        // the line's end off. Null when there is none.
        QChar escape {};
        bool overLines = false;
        // When not empty: only behind one of these characters, where a line feed stands for the
        // start of the line, and blanks do not count unless they are among them.
        QString behind {};
        // Whether prefixes are looked for in it.
        bool hasPrefixes = false;
        // The index of the span in which alone it is looked for; -1 for outside of all.
        int within = -1;
    };

    // What begins with a character and goes on with the letters of words, such as a variable.
    struct Prefix
    {
        QChar character;
        Style style = Plain;
    };

    QString name {};
    QStringList fileNames {}; // patterns such as "*.v"
    QList<Span> spans {};
    QList<Prefix> prefixes {};
    QSet<QString> keywords {};
    bool keywordsHaveCase = true;
    // What words are made of besides letters, digits and "_"; and numbers besides these.
    QString wordCharacters {};
    QString numberCharacters {};

    // What comments that end with their line begin with; empty when there are none.
    QString commentSign() const;

    // The syntax of a file by its name; null when there is none for it.
    static const Syntax *of(const QString &fileName);

    // All that there are.
    static const QList<Syntax> &all();
};
