#include "app/editor/IncrementalSearch.h"

#include "app/editor/shades.h"
#include "app/editor/TextEdit.h"

#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int countMilliseconds = 100;
constexpr qsizetype countedMatches = 10'000;
// More than fit into a view, but for lines that are much longer than it is wide.
constexpr qsizetype markedMatches = 500;

void setSelection(QTextCursor &cursor, TextSearch::Match match)
{
    cursor.setPosition(match.position);
    cursor.setPosition(match.position + match.length, QTextCursor::KeepAnchor);
}

} // namespace

IncrementalSearch::IncrementalSearch(TextEdit *theEdit, QObject *parent)
    : QObject(parent),
      edit(theEdit)
{
    countTimer.setSingleShot(true);
    countTimer.setInterval(countMilliseconds);
    connect(&countTimer, &QTimer::timeout, this, &IncrementalSearch::count);
    connect(edit, &QPlainTextEdit::textChanged, this, &IncrementalSearch::countSoon);
    connect(edit->verticalScrollBar(), &QScrollBar::valueChanged, this, &IncrementalSearch::mark);
}

void IncrementalSearch::begin() { origin = edit->textCursor().selectionStart(); }

void IncrementalSearch::search(const TextSearch &wanted)
{
    current = wanted;
    bool wrapped = false;
    const auto match = current.next(*edit->document(), origin, &wrapped);
    select(match.value_or(TextSearch::Match {origin, 0}));
    note = wrapped && match ? tr("continued at the top") : QString();
    count();
}

void IncrementalSearch::find(bool forward)
{
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
    begin();
    note = wrapped && match ? (forward ? tr("continued at the top") : tr("continued at the end"))
                            : QString();
    Q_EMIT statusChanged();
}

void IncrementalSearch::replace(const QString &replacement)
{
    if (edit->isReadOnly() || current.isEmpty())
        return;
    const TextSearch::Match match = selected();
    if (current.inBlock(edit->document()->findBlock(match.position)).contains(match)) {
        QTextCursor cursor = edit->textCursor();
        cursor.insertText(current.replacement(*edit->document(), match, replacement));
        edit->setTextCursor(cursor);
    }
    find(true);
}

void IncrementalSearch::replaceAll(const QString &replacement)
{
    if (edit->isReadOnly() || current.isEmpty())
        return;
    const int replaced = current.replaceAll(edit->document(), replacement);
    note = tr("%Ln replaced", nullptr, replaced);
    count();
}

void IncrementalSearch::setInSight(bool flag)
{
    isInSight = flag;
    if (flag) {
        countSoon();
    } else {
        countTimer.stop();
        edit->setMarks({});
    }
}

QString IncrementalSearch::status() const
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
    if (note.isEmpty())
        return text;
    return text.isEmpty() ? note : text + u", "_s + note;
}

void IncrementalSearch::select(TextSearch::Match match)
{
    QTextCursor cursor(edit->document());
    setSelection(cursor, match);
    edit->setTextCursor(cursor);
    const QRect seen = edit->viewport()->rect();
    if (!seen.contains(edit->cursorRect(cursor)))
        edit->centerCursor();
}

TextSearch::Match IncrementalSearch::selected() const
{
    const QTextCursor cursor = edit->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void IncrementalSearch::countSoon()
{
    if (isInSight)
        countTimer.start();
}

void IncrementalSearch::count()
{
    matches = current.all(*edit->document(), countedMatches + 1);
    mark();
    Q_EMIT statusChanged();
}

void IncrementalSearch::mark()
{
    if (!isInSight)
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
            setSelection(mark.cursor, match);
            marks.append(mark);
        }
    }
    edit->setMarks(marks);
}
