#include "app/editor/WindowEditorManager.h"

#include "app/editor/designprotection.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>

#include <QFileInfo>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::Logging::Logger;

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

QWidget *WindowEditorManager::createEditorForPath(const QString &path, QString *error,
                                                  const QString &mode, bool bringUp, bool readOnly)
{
    QString reason;
    TextPage *page = open(path, mode, &reason);
    if (!page) {
        if (error)
            *error = reason;
        else
            Logger::instance()->logMessage(QString(), Logger::Warning, reason);
        return nullptr;
    }
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

TextPage *WindowEditorManager::open(const QString &path, const QString &mode, QString *error)
{
    if (!area) {
        *error = tr("There is no window to open \"%1\" in").arg(path);
        return nullptr;
    }
    if (!mode.isEmpty() && mode != u"text"_s) {
        *error = tr("There is no editor \"%1\"").arg(mode);
        return nullptr;
    }
    const QString canonical = QFileInfo(path).canonicalFilePath();
    if (auto *shown = qobject_cast<TextPage *>(area->page(canonical)))
        return shown;
    // A path without a canonical form names nothing; reading it says why.
    TextPage *page = TextPage::open(canonical.isEmpty() ? path : canonical, error);
    if (!page)
        return nullptr;
    area->addPage(page, false);
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
