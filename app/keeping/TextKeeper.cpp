#include "app/keeping/TextKeeper.h"

#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/keeping/KeptTextsDialog.h"

#include <MorvalenCore/EditorManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/statuslog.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

QList<TextPage *> textPages(const EditorArea &area)
{
    QList<TextPage *> texts;
    for (EditorPage *page : area.pages()) {
        if (auto *text = qobject_cast<TextPage *>(page))
            texts.append(text);
    }
    return texts;
}

} // namespace

TextKeeper::TextKeeper(EditorArea *area, QObject *parent) : QObject(parent), editors(area)
{
    writer.setMaxThreadCount(1);
    timer.setSingleShot(true);
    timer.setInterval(delay);
    timer.callOnTimeout(this, qOverload<>(&TextKeeper::keep));
    connect(editors, &EditorArea::currentPageChanged, this, &TextKeeper::follow);
}

TextKeeper::~TextKeeper() { writer.waitForDone(); }

// Pages come and go, and are saved. What is saved or given up must not come back after a kill.
void TextKeeper::follow()
{
    if (isEnded)
        return;
    QSet<QString> unsaved;
    for (TextPage *page : textPages(*editors)) {
        connect(page->textEdit(), &QPlainTextEdit::textChanged, this, &TextKeeper::keepSoon,
                Qt::UniqueConnection);
        // One that is not in front is saved, too.
        connect(page, &EditorPage::stateChanged, this, &TextKeeper::follow, Qt::UniqueConnection);
        if (page->isModified())
            unsaved.insert(page->filePath());
    }
    const QStringList paths = kept.keys();
    for (const QString &path : paths) {
        if (!unsaved.contains(path))
            drop(path);
    }
}

void TextKeeper::keepSoon()
{
    if (!timer.isActive())
        timer.start();
}

void TextKeeper::keep()
{
    for (const TextPage *page : textPages(*editors)) {
        if (page->isModified())
            keep(*page);
    }
}

void TextKeeper::keep(const TextPage &page)
{
    const QString path = page.filePath();
    const int revision = page.textEdit()->document()->revision();
    if (isEnded || kept.value(path, -1) == revision)
        return;
    kept.insert(path, revision);
    const TextPage::Unsaved unsaved = page.unsaved();
    const KeptText text {path, unsaved.base, unsaved.text, page.textEdit()->textCursor().position(),
                         QDateTime::currentDateTime()};
    writer.start([this, text] {
        const Status written = texts.keep(text);
        if (!written.isOk())
            QMetaObject::invokeMethod(this, [this, reason = written.text()] { tell(reason); });
    });
}

void TextKeeper::drop(const QString &path)
{
    kept.remove(path);
    writer.start([this, path] { texts.drop(path); });
}

// Once is enough, and the next text may fare better.
void TextKeeper::tell(const QString &reason)
{
    if (!isTold)
        Logger::instance()->logMessage(
            QString(), Logger::Warning,
            tr("Texts that are not saved cannot be kept aside: %1").arg(reason));
    isTold = true;
}

void TextKeeper::keepNow()
{
    keep();
    writer.waitForDone();
}

void TextKeeper::end()
{
    isEnded = true;
    timer.stop();
    kept.clear();
    writer.waitForDone();
    texts.dropAll();
}

void TextKeeper::offer(QWidget *window)
{
    writer.waitForDone();
    const auto found = texts.takeLeft();
    Qtilities::Logging::logStatus(found.status());
    if (found.value().isEmpty())
        return;
    dialog = new KeptTextsDialog(found.value(), window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &KeptTextsDialog::restored, this, &TextKeeper::restore);
    connect(dialog, &KeptTextsDialog::discarded, this,
            [this](const KeptText &text) { texts.removeLeft(text); });
    connect(dialog, &QDialog::finished, this, [this] {
        writer.waitForDone();
        texts.leaveAgain();
    });
    dialog->open();
}

// It goes from where it was left once it is kept here.
void TextKeeper::restore(const KeptText &text)
{
    // A file that cannot be shown, such as one that is gone, gets a page without it.
    (void)MorvalenCore::EditorManager::instance()->tryCreateEditorForPath(text.path, {}, true,
                                                                          false);
    auto *page = qobject_cast<TextPage *>(editors->page(text.path));
    if (!page)
        page = qobject_cast<TextPage *>(editors->addPage(TextPage::withoutFile(text.path)));
    page->takeUnsaved({text.text, text.base}, text.cursor);
    editors->bringUpPage(page);
    follow();
    keepNow();
    if (texts.keeps(text.path))
        texts.removeLeft(text);
}
