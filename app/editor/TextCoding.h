#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

// How the characters of a file are written as bytes. What begins with a mark of UTF-16 is that;
// what is valid UTF-8 is UTF-8, with or without a byte order mark. Everything else is taken for
// Latin-1, where each byte is one character: it can be edited, and every byte that nobody edits
// stays as it is, whatever its author meant by it.
class TextCoding
{
    Q_DECLARE_TR_FUNCTIONS(TextCoding)

public:
    enum Kind { Utf8, Utf8Mark, Latin1, Utf16Little, Utf16Big };

    TextCoding(Kind theKind = Utf8) : kind(theKind) { }

    // The text of the bytes, and how they were read. Encoding it again gives the same bytes.
    static TextCoding of(const QByteArray &bytes, QString *text);

    // Whether bytes are text; the reason in a few words that follow a colon.
    static Qtilities::Core::Status check(const QByteArray &bytes);

    // Nothing when a character cannot be written in this coding; *place is its index then.
    std::optional<QByteArray> encode(const QString &text, qsizetype *place) const;

    // "UTF-8", "UTF-8 with BOM", "Latin-1", "UTF-16 LE" or "UTF-16 BE".
    QString name() const;

    // All that a text can be saved in.
    static QList<TextCoding> all();

    bool operator==(const TextCoding &) const = default;

private:
    Kind kind;
};
