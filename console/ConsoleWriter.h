#pragma once

#include "console/FontChange.h"
#include "console/OutputBurst.h"

#include <QTextCharFormat>

#include <functional>

class EditionZone;
class LazyTextLayout;

QT_BEGIN_NAMESPACE
class QTextEdit;
QT_END_NAMESPACE

// Writes what the user has not typed into a console's text: output, results, prompts and commands
// that come from elsewhere, each in its place and colour.
//
// Everything is shown as it is, never as markup. What is written touches neither the user's
// selection nor, unless the view stands at its end, the place that is scrolled to.
class ConsoleWriter
{
public:
    // Gives the text a layout that is fit for very many lines.
    ConsoleWriter(QTextEdit *widget, EditionZone *editionZone);

    // The font of all that is written from now on; what is there keeps its own.
    void startWith(const QFont &font);

    // The font of all text, now and later.
    void setFont(const QFont &font);

    // A text in the console's font.
    QTextCharFormat format() const { return plain; }
    QTextCharFormat format(const QColor &color) const;

    // A paragraph at the end. Opens the burst, and leaves it to the caller to close it.
    void appendParagraph(const QString &text, const QTextCharFormat &characters);

    // What a running command writes: at the end, or in front of the prompt's paragraph while a
    // prompt waits for a command.
    void writeOutput(const QString &text, const QColor &color);

    // Behind what writeOutput has just written; stays there whatever else is written.
    QTextCursor outputTail();

    // More of the paragraph that such a cursor stands in; it moves on behind the text.
    void continueOutput(QTextCursor &tail, const QString &text, const QColor &color);

    // A command's result, and the paragraph of the next command in that one's colour.
    void showResult(const QString &text, const QColor &color, const QColor &commandColor);

    // A prompt at the end. Undo never goes back behind it.
    void showPrompt(const QString &prompt, const QColor &color);

    // A command at the end as if it had been typed. Its line is free for it unless something
    // stands there already: then beginLine is called to begin a fresh one.
    void echo(const QString &command, const QColor &color, const std::function<void()> &beginLine);

    // An empty paragraph at the end for more of a command.
    void continueCommand(const QColor &color);

    // Removes everything but the prompt that waits and what is typed behind it.
    void clearBeforePrompt(const QColor &color);

    // No prompt waits: a command runs, or the text is empty.
    void promptIsGone() { promptWaits = false; }

    void moveToEnd();

    // To be called before anything reads the layout or moves the widget's cursor.
    void closeBurst() { burst.close(); }
    void restartClock() { burst.restartClock(); }

private:
    void insertBeforePrompt(const QString &text, const QTextCharFormat &characters);

    QTextEdit *const view;
    EditionZone *const zone;
    LazyTextLayout *const layout;
    OutputBurst burst;
    FontChange fontChange;
    QTextCharFormat plain;
    bool promptWaits = false; // for a command
};
