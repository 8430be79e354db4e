#include "app/editor/WindowEditorManager.h"

#include "app/editor/designprotection.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/statuslog.h>

#include <QFileInfo>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

WindowEditorManager::WindowEditorManager(EditorArea *theArea, QObject *parent)
    : EditorManager(parent),
      area(theArea),
      protectionTimer(new QTimer(this))
{
    // However many changes a script makes, the pages are looked at once.
    protectionTimer->setSingleShot(true);
    connect(protectionTimer, &QTimer::timeout, this, &WindowEditorManager::updateProtection);
    const auto updateSoon = [this] { protectionTimer->start(0); };
    const DesignManager *designs = DesignManager::instance();
    connect(designs, &DesignManager::designAttached, this, updateSoon);
    connect(designs, &DesignManager::designClosed, this, updateSoon);
    connect(designs, &DesignManager::designChanged, this, updateSoon);
    connect(designs, &DesignManager::designIdChanged, this, updateSoon);
}

WindowEditorManager::~WindowEditorManager()
{
    if (instance() == this)
        setInstance(nullptr);
}

Result<QWidget *> WindowEditorManager::tryCreateEditorForPath(const QString &path,
                                                              const QString &mode, bool bringUp,
                                                              bool readOnly)
{
    const Result<TextPage *> opened = open(path, mode);
    if (!opened.isOk())
        return opened.status();
    TextPage *page = opened.value();
    // What was typed stays changeable, so that it can be saved.
    if (!page->isModified())
        page->setReadOnly(ReadOnlyReasons::Caller,
                          readOnly ? tr("it was opened for reading") : QString());
    if (bringUp) {
        Q_EMIT bringUpRequested();
        area->bringUpPage(page);
    }
    return page;
}

QWidget *WindowEditorManager::createEditorForPath(const QString &path, QString *error,
                                                  const QString &mode, bool bringUp, bool readOnly)
{
    Result<QWidget *> editor = tryCreateEditorForPath(path, mode, bringUp, readOnly);
    if (!error)
        logStatus(editor.status(), Logger::Warning);
    return std::move(editor).valueOr(nullptr, error);
}

Result<TextPage *> WindowEditorManager::open(const QString &path, const QString &mode)
{
    if (!area)
        return Status::notFound(tr("There is no window to open \"%1\" in").arg(path));
    if (!mode.isEmpty() && mode != u"text"_s)
        return Status::invalidArgument(tr("There is no editor \"%1\"").arg(mode));
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (auto *shown = qobject_cast<TextPage *>(area->page(canonical)))
        return shown;
    // A path without a canonical form names nothing; reading it says why.
    const Result<TextPage *> page = TextPage::open(canonical.isEmpty() ? path : canonical);
    if (!page.isOk())
        return page;
    area->addPage(page.value(), false);
    updateProtection();
    return page;
}

void WindowEditorManager::updateProtection()
{
    if (!area)
        return;
    const QList<EditorPage *> pages = area->pages();
    for (EditorPage *candidate : pages) {
        auto *page = qobject_cast<TextPage *>(candidate);
        if (!page)
            continue;
        page->setReadOnly(ReadOnlyReasons::ComponentFile,
                          designprotection::ofComponentFile(page->filePath()));
        page->setReadOnly(ReadOnlyReasons::Design,
                          designprotection::ofReadOnlyDesign(page->filePath()));
    }
}
