#include "app/editor/TextPage.h"

#include "app/editor/FileSync.h"
#include "app/editor/FindBar.h"
#include "app/editor/GoToLineBar.h"
#include "app/editor/Highlighter.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/PositionBar.h"
#include "app/editor/Syntax.h"
#include "app/editor/TextEdit.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

struct TextPage::CommandRow
{
    Command command;
    bool (*can)(const TextPage &);
    void (*run)(TextPage &);
};

const TextPage::CommandRow *TextPage::row(Command command)
{
    static constexpr auto always = [](const TextPage &) { return true; };
    static constexpr auto changeable = [](const TextPage &page) {
        return !page.edit->isReadOnly();
    };
    static constexpr auto hasSelection = [](const TextPage &page) {
        return page.edit->textCursor().hasSelection();
    };
    static const CommandRow rows[] = {
        {SaveCopy, always, [](TextPage &page) { page.sync->askForCopy(); }},
        {Undo,
         [](const TextPage &page) {
             return changeable(page) && page.edit->document()->isUndoAvailable();
         },
         [](TextPage &page) { page.edit->undo(); }},
        {Redo,
         [](const TextPage &page) {
             return changeable(page) && page.edit->document()->isRedoAvailable();
         },
         [](TextPage &page) { page.edit->redo(); }},
        {Cut, [](const TextPage &page) { return changeable(page) && hasSelection(page); },
         [](TextPage &page) { page.edit->cut(); }},
        {Copy, hasSelection, [](TextPage &page) { page.edit->copy(); }},
        {Paste, [](const TextPage &page) { return page.edit->canPaste(); },
         [](TextPage &page) { page.edit->paste(); }},
        {SelectAll, always, [](TextPage &page) { page.edit->selectAll(); }},
        {Find, always, [](TextPage &page) { page.openFind(false); }},
        {FindNext, always, [](TextPage &page) { page.findBar->findNext(); }},
        {FindPrevious, always, [](TextPage &page) { page.findBar->findPrevious(); }},
        {Replace, changeable, [](TextPage &page) { page.openFind(true); }},
        {GoToLine, always, [](TextPage &page) { page.openGoToLine(); }},
    };
    for (const CommandRow &candidate : rows) {
        if (candidate.command == command)
            return &candidate;
    }
    return nullptr;
}

Result<TextPage *> TextPage::open(const QString &path, QWidget *parent)
{
    auto file = std::make_unique<TextFile>(path);
    const Result<lineends::Lines> lines = file->read();
    if (!lines.isOk())
        return lines.status();
    auto *page = new TextPage(std::move(file), parent);
    page->sync->fill(lines.value());
    page->colour();
    return page;
}

TextPage *TextPage::withoutFile(const QString &path, QWidget *parent)
{
    auto *page = new TextPage(std::make_unique<TextFile>(path), parent);
    page->colour();
    return page;
}

TextPage::TextPage(std::unique_ptr<TextFile> file, QWidget *parent)
    : EditorPage(parent),
      notice(new NoticeBar(this)),
      edit(new TextEdit(this)),
      sync(new FileSync(std::move(file), edit, this)),
      findBar(new FindBar(edit, this)),
      goToLineBar(new GoToLineBar(edit, this)),
      position(new PositionBar(edit, this))
{
    layOut();
    followText();
    followFile();
}

QString TextPage::title() const { return QFileInfo(filePath()).fileName(); }

QString TextPage::toolTipText() const { return QDir::toNativeSeparators(filePath()); }

QString TextPage::filePath() const { return sync->textFile().path(); }

bool TextPage::isModified() const { return sync->isModified(); }

Status TextPage::save()
{
    if (!isModified())
        return {};
    const QString reason = readOnlyReason();
    if (reason.isEmpty())
        return sync->save();
    return Status::readOnly(tr("Cannot write \"%1\": %2").arg(filePath(), reason));
}

Status TextPage::saveCopy(const QString &path) const { return sync->saveCopy(path); }

TextPage::Unsaved TextPage::unsaved() const
{
    return {sync->unsavedText(), sync->textFile().known()};
}

void TextPage::takeUnsaved(const Unsaved &unsaved, int place)
{
    sync->takeUnsaved(unsaved.text, unsaved.base);
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(qBound(0, place, edit->document()->characterCount() - 1));
    edit->setTextCursor(cursor);
    edit->centerCursor();
}

bool TextPage::can(Command command) const
{
    const CommandRow *known = row(command);
    return known && known->can(*this);
}

void TextPage::run(Command command)
{
    if (can(command))
        row(command)->run(*this);
}

void TextPage::setReadOnly(ReadOnlyReasons::Source source, const QString &reason)
{
    if (!readOnlyReasons.set(source, reason))
        return;
    edit->setReadOnly(!readOnlyReason().isEmpty());
    updateNotice();
    Q_EMIT commandsChanged();
}

void TextPage::showEvent(QShowEvent *event)
{
    EditorPage::showEvent(event);
    sync->check(TextFile::Trust::Stamp);
}

// Not every file system tells of changes; who comes back to the window sees them anyway.
void TextPage::changeEvent(QEvent *event)
{
    EditorPage::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        sync->check(TextFile::Trust::Stamp);
}

// One strip at a time.
void TextPage::openFind(bool replacing)
{
    goToLineBar->hide();
    findBar->open(replacing);
}

void TextPage::openGoToLine()
{
    findBar->hide();
    goToLineBar->open();
}

void TextPage::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice);
    layout->addWidget(edit, 1);
    layout->addWidget(findBar);
    layout->addWidget(goToLineBar);
    layout->addWidget(position);
    setFocusProxy(edit);
}

void TextPage::followText()
{
    const QTextDocument *document = edit->document();
    connect(document, &QTextDocument::modificationChanged, this, &EditorPage::stateChanged);
    connect(document, &QTextDocument::undoAvailable, this, &EditorPage::commandsChanged);
    connect(document, &QTextDocument::redoAvailable, this, &EditorPage::commandsChanged);
    connect(edit, &QPlainTextEdit::copyAvailable, this, &EditorPage::commandsChanged);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &EditorPage::commandsChanged);
}

void TextPage::followFile()
{
    connect(sync, &FileSync::contentsRead, this, &TextPage::showForm);
    connect(sync, &FileSync::diskChanged, this, &TextPage::updateNotice);
    connect(sync, &FileSync::modifiedChanged, this, &EditorPage::stateChanged);
}

void TextPage::showForm()
{
    const TextFile &file = sync->textFile();
    position->setForm(file.form());
    setReadOnly(ReadOnlyReasons::Permission,
                file.isWritable() ? QString() : tr("you may not write to the file"));
}

// The name of the file says what it is.
void TextPage::colour()
{
    const Syntax *syntax = Syntax::of(filePath());
    if (!syntax)
        return;
    if (edit->document()->characterCount() > colouredCharacters) {
        position->setKind(tr("%1, too large to be coloured").arg(syntax->name));
        return;
    }
    position->setKind(syntax->name);
    new Highlighter(*syntax, edit->document(), edit);
}

void TextPage::updateNotice()
{
    const NoticeBar::Choice reloadIt {tr("Re&load"), [this] { sync->reload(); }};
    const NoticeBar::Choice keepIt {tr("&Keep Mine"), [this] { sync->keepMine(); }};
    const NoticeBar::Choice saveIt {tr("Save An&yway"), [this] { sync->overwrite(); }};
    const NoticeBar::Choice showIt {tr("Show &Difference"), [this] { sync->showDifference(); }};
    const NoticeBar::Choice makeIt {tr("Write A&gain"), [this] { sync->overwrite(); }};
    const QString reason = readOnlyReason();
    const bool isReadOnly = !reason.isEmpty();
    if (!sync->unreadable().isEmpty()) {
        notice->show(tr("%1. The text that it had is kept here.").arg(sync->unreadable()),
                     isReadOnly ? QList {reloadIt} : QList {reloadIt, saveIt});
    } else if (sync->onDisk() == TextFile::Disk::Missing) {
        notice->show(tr("\"%1\" is no longer on disk. Its text is kept here.").arg(title()),
                     isReadOnly ? QList<NoticeBar::Choice>() : QList {makeIt});
    } else if (sync->onDisk() == TextFile::Disk::Changed) {
        notice->show(tr("\"%1\" was changed on disk by another program, and has changes here that "
                        "are not saved.")
                         .arg(title()),
                     isReadOnly ? QList {showIt, reloadIt, keepIt}
                                : QList {showIt, reloadIt, keepIt, saveIt});
    } else {
        notice->show(isReadOnly ? tr("Read-only: %1.").arg(reason) : QString());
    }
}
