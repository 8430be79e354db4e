#pragma once

#include <QList>
#include <QString>

class QTextDocument;

// How the lines of a file end. A document knows only lines; how each of them ends is kept in the
// format of its block, where it survives undo and is handed on to the lines that a user adds
// behind it. A text that comes out of a document is the text that went in, but for what was edited.
namespace lineends {

struct Lines
{
    // Every line but the last ends with a line feed here.
    QString text;
    // The end that most lines have, and, when not all lines have it, the end of each one.
    int usual = 0;
    QList<quint8> each;
};

Lines split(const QString &text);

// Makes the blocks of the document, whose text is that of the lines, remember their ends.
// With the last edit it is undone together with that.
void mark(QTextDocument *document, const Lines &lines, bool withLastEdit = false);

// The text of the document; blocks that remember nothing end as usual.
QString join(const QTextDocument &document, int usual);

// "LF", "CRLF" ..., and "mixed" when not all lines have the usual end.
QString name(const Lines &lines);

} // namespace lineends
