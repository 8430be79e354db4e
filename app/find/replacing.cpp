#include "app/find/replacing.h"

#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileInfo>
#include <QTextBlock>

#include <memory>

using Qtilities::Core::Status;
using textmatching::Match;

namespace replacing {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(replacing)
};

TextPage *openPage(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    for (QWidget *window : QApplication::topLevelWidgets()) {
        for (const EditorArea *area : window->findChildren<EditorArea *>()) {
            if (auto *page = qobject_cast<TextPage *>(area->page(canonical)))
                return page;
        }
    }
    return nullptr;
}

QTextCursor cursorOf(const QTextDocument &document, const Match &match)
{
    const QTextBlock block = document.findBlockByNumber(match.line - 1);
    QTextCursor cursor(block);
    if (!block.isValid() || match.column - 1 + match.length >= block.length())
        return {};
    cursor.setPosition(block.position() + match.column - 1);
    cursor.setPosition(cursor.position() + match.length, QTextCursor::KeepAnchor);
    return cursor;
}

bool isAsSearched(const QTextDocument &document, const QList<Match> &matches)
{
    for (const Match &match : matches) {
        const QTextCursor cursor = cursorOf(document, match);
        if (cursor.isNull() || !cursor.block().text().startsWith(match.text))
            return false;
    }
    return true;
}

// From the last one on, so that places stay what they are.
Status change(TextPage *page, const QList<Match> &matches, const QString &replacement)
{
    const QString &path = matches.first().path;
    if (!page->readOnlyReason().isEmpty())
        return Status::readOnly(
            Texts::tr("\"%1\" is read-only: %2").arg(path, page->readOnlyReason()));
    QTextDocument *document = page->textEdit()->document();
    if (!isAsSearched(*document, matches))
        return Status::conflict(Texts::tr("\"%1\" has changed since it was searched.").arg(path));
    QTextCursor edit(document);
    edit.beginEditBlock();
    for (auto match = matches.crbegin(); match != matches.crend(); ++match) {
        const QTextCursor place = cursorOf(*document, *match);
        edit.setPosition(place.selectionStart());
        edit.setPosition(place.selectionEnd(), QTextCursor::KeepAnchor);
        edit.insertText(replacement);
    }
    edit.endEditBlock();
    return {};
}

} // namespace

QString preview(const Match &match, const QString &replacement)
{
    QString line = match.text;
    return line.replace(match.column - 1, match.length, replacement);
}

Status replace(const QList<Match> &matches, const QString &replacement)
{
    if (matches.isEmpty())
        return {};
    if (TextPage *page = openPage(matches.first().path))
        return change(page, matches, replacement);
    auto opened = TextPage::open(QFileInfo(matches.first().path).canonicalFilePath());
    if (!opened.isOk())
        return opened.status();
    const std::unique_ptr<TextPage> page(opened.value());
    const Status changed = change(page.get(), matches, replacement);
    return changed.isOk() ? page->save() : changed;
}

} // namespace replacing
