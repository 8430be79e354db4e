#include "app/editor/TextPage.h"

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
        {SaveCopy, always, [](TextPage &page) { page.askForCopy(); }},
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

TextPage *TextPage::open(const QString &path, QString *error, QWidget *parent)
{
    auto file = std::make_unique<TextFile>(path);
    const std::optional<lineends::Lines> lines = file->read(error);
    if (!lines)
        return nullptr;
    auto *page = new TextPage(file.release(), parent);
    page->fill(*lines);
    page->colour();
    page->setHold(Permission,
                  page->file->isWritable() ? QString() : tr("you may not write to the file"));
    return page;
}

TextPage::TextPage(TextFile *theFile, QWidget *parent)
    : EditorPage(parent),
      file(theFile),
      notice(new NoticeBar(this)),
      edit(new TextEdit(this)),
      findBar(new FindBar(edit, this)),
      goToLineBar(new GoToLineBar(edit, this)),
      position(new PositionBar(edit, this))
{
    file->setParent(this);
    layOut();
    followText();
    connect(file, &TextFile::touched, this, &TextPage::checkDisk);
}

QString TextPage::title() const { return QFileInfo(file->path()).fileName(); }

QString TextPage::toolTipText() const { return QDir::toNativeSeparators(file->path()); }

bool TextPage::isModified() const
{
    return edit->document()->isModified() || disk == TextFile::Disk::Missing
        || !unreadable.isEmpty();
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

void TextPage::setHold(Hold hold, const QString &reason)
{
    if (holds.value(hold) == reason)
        return;
    holds.insert(hold, reason);
    edit->setReadOnly(!readOnlyReason().isEmpty());
    updateNotice();
    Q_EMIT commandsChanged();
}

QString TextPage::readOnlyReason() const
{
    for (const QString &reason : holds) {
        if (!reason.isEmpty())
            return reason;
    }
    return {};
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

// Making the lines remember their ends is no change of the user's, and cannot be undone.
void TextPage::fill(const lineends::Lines &lines)
{
    QTextDocument *document = edit->document();
    document->setUndoRedoEnabled(false);
    document->setPlainText(lines.text);
    if (!lines.each.isEmpty())
        lineends::mark(document, lines);
    document->setUndoRedoEnabled(true);
    document->setModified(false);
    edit->setTextCursor(QTextCursor(document));
    usualEnd = lines.usual;
    position->setForm(file->form());
}

// The name of the file says what it is.
void TextPage::colour()
{
    const Syntax *syntax = Syntax::of(file->path());
    if (!syntax)
        return;
    if (edit->document()->characterCount() > colouredCharacters) {
        position->setKind(tr("%1, too large to be coloured").arg(syntax->name));
        return;
    }
    position->setKind(syntax->name);
    new Highlighter(*syntax, edit->document(), edit);
}

QString TextPage::text() const { return lineends::join(*edit->document(), usualEnd); }
