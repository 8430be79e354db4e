#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

// How the characters of a file are written as bytes. What is valid UTF-8 is UTF-8, with or without
// a byte order mark. Everything else is taken for Latin-1, where each byte is one character: it can
// be edited, and every byte that nobody edits stays as it is, whatever its author meant by it.
class TextCoding
{
    Q_DECLARE_TR_FUNCTIONS(TextCoding)

public:
    // The text of the bytes, and how they were read. Encoding it again gives the same bytes.
    static TextCoding of(const QByteArray &bytes, QString *text);

    // Why bytes are not text, in a few words; empty when they are.
    static QString whyNotText(const QByteArray &bytes);

    // Nothing when a character cannot be written in this coding; *place is its index then.
    std::optional<QByteArray> encode(const QString &text, qsizetype *place) const;

    // "UTF-8", "UTF-8 with BOM" or "Latin-1".
    QString name() const;

private:
    bool latin1 = false;
    bool byteOrderMark = false;
};
