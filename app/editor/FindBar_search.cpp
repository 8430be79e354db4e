// What a find bar does with its text.

#include "app/editor/FindBar.h"
#include "app/editor/shades.h"
#include "app/editor/TextEdit.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype countedMatches = 10'000;
// More than fit into a view, but for lines that are much longer than it is wide.
constexpr qsizetype markedMatches = 500;

} // namespace

// What is searched for is another text: the search begins again where the user began it.
void FindBar::search()
{
    current = TextSearch(
        pattern->text(),
        {matchCase->isChecked(), wholeWords->isChecked(), regularExpression->isChecked()});
    bool wrapped = false;
    const auto match = current.next(*edit->document(), origin, &wrapped);
    select(match.value_or(TextSearch::Match {origin, 0}));
    lastNote = wrapped && match ? tr("continued at the top") : QString();
    count();
}

void FindBar::find(bool forward)
{
    if (!isVisible() && current.isEmpty()) {
        open(false);
        return;
    }
    const TextSearch::Match last = selected();
    const QTextDocument &document = *edit->document();
    bool wrapped = false;
    auto match = forward ? current.next(document, last.position + last.length, &wrapped)
                         : current.previous(document, last.position, &wrapped);
    // An empty match does not move the cursor, and would be found for ever.
    if (forward && match && last.length == 0 && *match == last)
        match = current.next(document, last.position + 1, &wrapped);
    if (match)
        select(*match);
    origin = edit->textCursor().selectionStart();
    lastNote = wrapped && match
        ? (forward ? tr("continued at the top") : tr("continued at the end"))
        : QString();
    say();
}

void FindBar::select(TextSearch::Match match)
{
    QTextCursor cursor(edit->document());
    cursor.setPosition(match.position);
    cursor.setPosition(match.position + match.length, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
    const QRect seen = edit->viewport()->rect();
    if (!seen.contains(edit->cursorRect(cursor)))
        edit->centerCursor();
}

void FindBar::replace()
{
    if (edit->isReadOnly() || current.isEmpty())
        return;
    const TextSearch::Match match = selected();
    if (current.inBlock(edit->document()->findBlock(match.position)).contains(match)) {
        QTextCursor cursor = edit->textCursor();
        cursor.insertText(current.replacement(*edit->document(), match, words->text()));
        edit->setTextCursor(cursor);
    }
    find(true);
}

void FindBar::replaceAll()
{
    if (edit->isReadOnly() || current.isEmpty())
        return;
    const int replaced = current.replaceAll(edit->document(), words->text());
    lastNote = tr("%Ln replaced", nullptr, replaced);
    count();
}

void FindBar::countSoon()
{
    if (isVisible())
        countTimer->start();
}

void FindBar::count()
{
    matches = current.all(*edit->document(), countedMatches + 1);
    markVisible();
    say();
}

void FindBar::markVisible()
{
    if (!isVisible())
        return;
    QList<QTextEdit::ExtraSelection> marks;
    const QRect seen = edit->viewport()->rect();
    const int last = edit->cursorForPosition(seen.bottomRight()).blockNumber();
    QTextBlock block = edit->cursorForPosition(seen.topLeft()).block();
    for (; block.isValid() && block.blockNumber() <= last; block = block.next()) {
        QList<TextSearch::Match> found = current.inBlock(block);
        found.resize(qMin(found.size(), markedMatches - marks.size()));
        for (const TextSearch::Match &match : std::as_const(found)) {
            QTextEdit::ExtraSelection mark;
            mark.format.setBackground(shades::found(edit->palette()));
            mark.cursor = QTextCursor(edit->document());
            mark.cursor.setPosition(match.position);
            mark.cursor.setPosition(match.position + match.length, QTextCursor::KeepAnchor);
            marks.append(mark);
        }
    }
    edit->setMarks(marks);
}

void FindBar::say()
{
    const auto number = matches.size();
    const auto index = matches.indexOf(selected());
    QString text;
    if (!current.error().isEmpty())
        text = current.error();
    else if (number > countedMatches)
        text = tr("more than %L1").arg(countedMatches);
    else if (number > 0)
        text =
            index < 0 ? tr("%L1 found").arg(number) : tr("%L1 of %L2").arg(index + 1).arg(number);
    else if (!current.isEmpty())
        text = tr("not found");
    if (!lastNote.isEmpty())
        text = text.isEmpty() ? lastNote : text + u", "_s + lastNote;
    status->setText(text);
}

TextSearch::Match FindBar::selected() const
{
    const QTextCursor cursor = edit->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}
