#include "examples/popup/CompletingEdit.h"

#include "console/PopupCompleter.h"

#include <QKeyEvent>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

QStringList CompletingEdit::candidates(const QString &prefix) const
{
    static const QRegularExpression wordPattern(u"\\w+"_s,
                                                QRegularExpression::UseUnicodePropertiesOption);
    QStringList words;
    for (const QRegularExpressionMatch &match : wordPattern.globalMatch(toPlainText())) {
        const QString word = match.captured();
        if (word.size() > prefix.size() && word.startsWith(prefix))
            words.append(word);
    }
    words.removeDuplicates();
    words.sort();
    return words;
}

void CompletingEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier)
        complete();
    else
        QTextEdit::keyPressEvent(event);
}

void CompletingEdit::complete()
{
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    while (!cursor.atBlockStart()) {
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        const QChar first = cursor.selectedText().front();
        if (!first.isLetterOrNumber() && first != u'_') {
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            break;
        }
    }
    const QStringList words = candidates(cursor.selectedText());
    if (words.isEmpty())
        return;
    PopupCompleter popup(words, this);
    if (popup.exec(this) == QDialog::Accepted)
        cursor.insertText(popup.selectedCommand());
}
