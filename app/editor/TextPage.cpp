#include "app/editor/TextPage.h"

#include "app/editor/EditorSettings.h"
#include "app/editor/FileSync.h"
#include "app/editor/FindBar.h"
#include "app/editor/Highlighter.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/PositionBar.h"
#include "app/editor/Syntax.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextView.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

void zoomBy(int points)
{
    EditorSettings *settings = EditorSettings::instance();
    settings->setZoom(settings->zoom() + points);
}

// Its commands must begin with a tab.
bool isMakefile(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    return name.compare(u"makefile"_s, Qt::CaseInsensitive) == 0 || name == u"GNUmakefile"_s
        || name.endsWith(u".mk"_s);
}

} // namespace

struct TextPage::CommandRow
{
    Command command;
    bool (*can)(const TextPage &);
    void (*run)(TextPage &);

    static bool always(const TextPage &) { return true; }
    static bool changeable(const TextPage &page) { return !page.edit->isReadOnly(); }
    static bool hasSelection(const TextPage &page)
    {
        return page.front()->textCursor().hasSelection();
    }

    static const CommandRow all[];
};

const TextPage::CommandRow TextPage::CommandRow::all[] = {
    {SaveCopy, always, [](TextPage &page) { page.sync->askForCopy(); }},
    {Undo,
     [](const TextPage &page) {
         return changeable(page) && page.edit->document()->isUndoAvailable();
     },
     [](TextPage &page) { page.front()->undo(); }},
    {Redo,
     [](const TextPage &page) {
         return changeable(page) && page.edit->document()->isRedoAvailable();
     },
     [](TextPage &page) { page.front()->redo(); }},
    {Cut, [](const TextPage &page) { return changeable(page) && hasSelection(page); },
     [](TextPage &page) { page.front()->cut(); }},
    {Copy, hasSelection, [](TextPage &page) { page.front()->copy(); }},
    {Paste, [](const TextPage &page) { return page.front()->canPaste(); },
     [](TextPage &page) { page.front()->paste(); }},
    {SelectAll, always, [](TextPage &page) { page.front()->selectAll(); }},
    {Find, always, [](TextPage &page) { page.frontView()->openFind(false); }},
    {FindNext, always, [](TextPage &page) { page.frontView()->search()->findNext(); }},
    {FindPrevious, always, [](TextPage &page) { page.frontView()->search()->findPrevious(); }},
    {Replace, changeable, [](TextPage &page) { page.frontView()->openFind(true); }},
    {GoToLine, always, [](TextPage &page) { page.frontView()->openGoToLine(); }},
    {ToggleComment, [](const TextPage &page) { return page.edit->canToggleComment(); },
     [](TextPage &page) { page.front()->toggleComment(); }},
    {ZoomIn, always, [](TextPage &) { zoomBy(1); }},
    {ZoomOut, always, [](TextPage &) { zoomBy(-1); }},
    {ZoomReset, always, [](TextPage &) { EditorSettings::instance()->setZoom(0); }},
    {SplitView, always, [](TextPage &page) { page.splitOrJoin(); }},
    {ChooseCoding, changeable, [](TextPage &page) { page.chooseCoding(); }},
};

const TextPage::CommandRow *TextPage::row(Command command)
{
    for (const CommandRow &candidate : CommandRow::all) {
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
      splitter(new QSplitter(Qt::Vertical, this)),
      first(new TextView(this)),
      edit(first->textEdit()),
      sync(new FileSync(std::move(file), edit, this))
{
    layOut();
    followText();
    followFile();
}

// The document is the first sight's.
TextPage::~TextPage() { delete second; }

QString TextPage::title() const { return QFileInfo(filePath()).fileName(); }

QString TextPage::toolTipText() const { return QDir::toNativeSeparators(filePath()); }

QString TextPage::filePath() const { return sync->textFile().path(); }

bool TextPage::isModified() const { return sync->isModified(); }

Status TextPage::save()
{
    if (!isModified())
        return {};
    const QString reason = readOnlyReason();
    if (reason.isEmpty()) {
        const Status saved = sync->save();
        uncodable = saved.kind() == Status::Kind::Unsupported ? saved.text() : QString();
        updateNotice();
        return saved;
    }
    return Status::readOnly(tr("Cannot write \"%1\": %2").arg(filePath(), reason));
}

Status TextPage::saveCopy(const QString &path) const { return sync->saveCopy(path); }

TextPage::Place TextPage::place() const
{
    return {edit->textCursor().position(), edit->verticalScrollBar()->value()};
}

void TextPage::goTo(const Place &place)
{
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(qBound(0, place.cursor, edit->document()->characterCount() - 1));
    edit->setTextCursor(cursor);
    edit->verticalScrollBar()->setValue(place.top);
}

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
    for (const TextView *view : views())
        view->textEdit()->setReadOnly(!readOnlyReason().isEmpty());
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

void TextPage::setCoding(TextCoding coding)
{
    uncodable.clear();
    sync->setCoding(coding);
    updateNotice();
}

void TextPage::saveInUtf8()
{
    setCoding(TextCoding::Utf8);
    const Status saved = save();
    if (!saved.isOk() && !saved.text().isEmpty())
        QMessageBox::warning(this, tr("Not Saved"), saved.text());
}

void TextPage::chooseCoding()
{
    QStringList names;
    for (const TextCoding &coding : TextCoding::all())
        names.append(coding.name());
    const auto current = TextCoding::all().indexOf(sync->textFile().coding());
    bool isChosen = false;
    const QPointer<TextPage> self(this);
    const QString name =
        QInputDialog::getItem(this, tr("Coding"), tr("Save \"%1\" from now on as:").arg(title()),
                              names, int(current), false, &isChosen);
    if (self && isChosen)
        setCoding(TextCoding::all().at(names.indexOf(name)));
}

TextView *TextPage::frontView() const { return second && isSecondInFront ? second : first; }

TextEdit *TextPage::front() const { return frontView()->textEdit(); }

QList<TextView *> TextPage::views() const
{
    return second ? QList<TextView *> {first, second} : QList<TextView *> {first};
}

// Joining leaves the sight that has the keyboard at its place.
void TextPage::splitOrJoin()
{
    if (second) {
        if (isSecondInFront) {
            edit->setTextCursor(front()->textCursor());
            edit->centerCursor();
        }
        setFocusProxy(first);
        edit->setFocus();
        delete std::exchange(second, nullptr);
        isSecondInFront = false;
    } else {
        second = new TextView(*first, this);
        splitter->addWidget(second);
        followSight(second);
        second->textEdit()->setFocus();
    }
    Q_EMIT commandsChanged();
}

void TextPage::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(first);
    layout->addWidget(notice);
    layout->addWidget(splitter, 1);
    setFocusProxy(first);
}

void TextPage::followSight(TextView *view)
{
    connect(view->textEdit(), &QPlainTextEdit::copyAvailable, this, &EditorPage::commandsChanged);
    connect(qApp, &QApplication::focusChanged, view, [this, view](QWidget *, QWidget *focused) {
        if (!focused || !view->isAncestorOf(focused) || frontView() == view)
            return;
        isSecondInFront = view == second;
        setFocusProxy(view);
        Q_EMIT commandsChanged();
    });
}

void TextPage::followText()
{
    const QTextDocument *document = edit->document();
    connect(document, &QTextDocument::modificationChanged, this, &EditorPage::stateChanged);
    connect(document, &QTextDocument::undoAvailable, this, &EditorPage::commandsChanged);
    connect(document, &QTextDocument::redoAvailable, this, &EditorPage::commandsChanged);
    followSight(first);
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
    for (const TextView *view : views())
        view->positionBar()->setForm(file.form());
    setReadOnly(ReadOnlyReasons::Permission,
                file.isWritable() ? QString() : tr("you may not write to the file"));
}

// The name of the file says what it is.
void TextPage::colour()
{
    const Syntax *syntax = Syntax::of(filePath());
    edit->setCommentSign(syntax ? syntax->commentSign() : u"#"_s);
    edit->setNeedsTabs(isMakefile(filePath()));
    if (!syntax)
        return;
    if (edit->document()->characterCount() > colouredCharacters) {
        setKind(tr("%1, too large to be coloured").arg(syntax->name));
        return;
    }
    setKind(syntax->name);
    new Highlighter(*syntax, edit->document(), edit);
}

void TextPage::setKind(const QString &kind)
{
    for (const TextView *view : views())
        view->positionBar()->setKind(kind);
}

void TextPage::updateNotice()
{
    const NoticeBar::Choice reloadIt {tr("Re&load"), [this] { sync->reload(); }};
    const NoticeBar::Choice keepIt {tr("&Keep Mine"), [this] { sync->keepMine(); }};
    const NoticeBar::Choice saveIt {tr("Save An&yway"), [this] { sync->overwrite(); }};
    const NoticeBar::Choice showIt {tr("Show &Difference"), [this] { sync->showDifference(); }};
    const NoticeBar::Choice makeIt {tr("Write A&gain"), [this] { sync->overwrite(); }};
    const NoticeBar::Choice saveUtf8 {tr("Save as &UTF-8"), [this] { saveInUtf8(); }};
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
    } else if (!uncodable.isEmpty()) {
        notice->show(uncodable + u'.', {saveUtf8});
    } else {
        notice->show(isReadOnly ? tr("Read-only: %1.").arg(reason) : QString());
    }
}
