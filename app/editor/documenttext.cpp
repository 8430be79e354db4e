#include "app/editor/documenttext.h"

#include "app/editor/TextEdit.h"

#include <Qtilities/commonends.h>

#include <QScrollBar>
#include <QTextBlock>

namespace documenttext {

QString lines(const QTextDocument &document)
{
    QString text;
    text.reserve(document.characterCount());
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next())
        text += block.text() + u'\n';
    text.chop(1);
    return text;
}

void replace(TextEdit *edit, const QString &text)
{
    const QString old = lines(*edit->document());
    const auto common = Qtilities::Core::commonEnds(old, text);
    const auto end = old.size() - common.tail;
    const QTextCursor was = edit->textCursor();
    const bool within = was.position() > common.head && was.position() < end;
    const int line = was.blockNumber();
    const int column = was.positionInBlock();
    const int scrolled = edit->verticalScrollBar()->value();

    QTextCursor cursor(edit->document());
    cursor.setPosition(int(common.head));
    cursor.setPosition(int(end), QTextCursor::KeepAnchor);
    cursor.insertText(text.sliced(common.head, text.size() - common.head - common.tail));
    if (within) {
        const QTextBlock block =
            edit->document()->findBlockByNumber(qMin(line, edit->blockCount() - 1));
        cursor.setPosition(block.position() + qMin(column, block.length() - 1));
        edit->setTextCursor(cursor);
    }
    edit->verticalScrollBar()->setValue(scrolled);
}

} // namespace documenttext
