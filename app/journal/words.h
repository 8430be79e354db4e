#pragma once

#include <QList>
#include <QString>

namespace MorvalenCore::Interfaces {
class IDesign;
}

// Commands as scripts have them.
namespace journal {

// A word of a command: a text, or a piece of script that makes one.
struct Word
{
    Word(const QString &theText) : text(theText) { }
    static Word script(const QString &piece)
    {
        Word word(piece);
        word.isScript = true;
        return word;
    }

    QString text;
    bool isScript = false;
};
using Words = QList<Word>;

// A text as one word of Tcl's that no reader changes: a file, a console, whatever is in the text.
QString quoted(const QString &text);

// The words as one command.
QString command(const Words &words);

// A list as one text, for options that take lists.
QString list(const QStringList &texts);

// A file as another session finds it too: those below the folders of designs and of projects are of
// that folder.
Word path(const QString &file);

// A path of an item, of the design's folder when it lies there.
QString itemPath(const MorvalenCore::Interfaces::IDesign &design, const QString &actualPath);

} // namespace journal
