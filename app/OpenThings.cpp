#include "app/OpenThings.h"

#include "app/builds/buildpages.h"
#include "app/calls/HostCall.h"
#include "app/calls/openfile.h"
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"
#include "app/journal/journaling.h"
#include "app/MainWindow.h"
#include "app/messages/messages.h"
#include "app/session/preferences.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/EditorManager.h>
#include <Qtilities/atomicfile.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/statuslog.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::EditorManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

constexpr int formatVersion = 1;
const QString buildMark = u"#build="_s;

QString fileOfDesign(const IDesign *design)
{
    return design ? design->componentFileName() : QString();
}

// The id of the open design of a component file.
QString idOfFile(const QString &file)
{
    const DesignManager *manager = DesignManager::instance();
    for (const QString &id : manager->openDesignIds()) {
        const QString its = fileOfDesign(manager->design(id));
        if (!its.isEmpty() && (its == file || QFileInfo(its) == QFileInfo(file)))
            return id;
    }
    return {};
}

QJsonObject describe(const EditorPage &page)
{
    QJsonObject object {{u"key"_s, page.key()}};
    if (const auto *text = qobject_cast<const TextPage *>(&page)) {
        object.insert(u"cursor"_s, text->place().cursor);
        object.insert(u"top"_s, text->place().top);
    }
    return object;
}

} // namespace

OpenThings::OpenThings(MainWindow *theWindow) : QObject(theWindow), window(theWindow)
{
    timer.setSingleShot(true);
    timer.setInterval(delay);
    timer.callOnTimeout(this, &OpenThings::write);
}

QString OpenThings::fileName()
{
    return QtilitiesApplication::applicationSessionPath() + u"/window.json"_s;
}

void OpenThings::restore()
{
    const auto content = Qtilities::Core::readRegularFile(fileName());
    const QJsonObject things =
        content.isOk() ? QJsonDocument::fromJson(content.value()).object() : QJsonObject();
    if (preferences::remembers(preferences::OpenThings)
        && things.value(u"version"_s).toInt() == formatVersion) {
        QStringList reasons;
        window->designTree()->treeView()->setFolding(
            things.value(u"folded"_s).toVariant().toStringList(),
            things.value(u"unfolded"_s).toVariant().toStringList());
        openDesigns(things, &reasons);
        openPages(things);
        window->activateMode(things.value(u"mode"_s).toInt(-1));
        if (!reasons.isEmpty())
            messages::warn(window, tr("Not Opened Again"), reasons);
    }
    const auto writeSoon = [this] {
        if (!timer.isActive())
            timer.start();
    };
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designAttached, this, writeSoon);
    connect(manager, &DesignManager::designClosed, this, writeSoon);
    connect(manager, &DesignManager::activeDesignChanged, this, writeSoon);
    connect(ProjectManager::instance(), &ProjectManager::currentProjectChanged, this, writeSoon);
    connect(window->designsMode()->editorArea(), &EditorArea::currentPageChanged, this, writeSoon);
}

// A project that cannot be opened leaves its designs to be opened one by one.
void OpenThings::openDesigns(const QJsonObject &things, QStringList *reasons) const
{
    const auto open = [reasons](const QString &file) {
        const Status opened = openFile(file);
        if (!opened.isOk())
            reasons->append(HostCall::linesOf(opened).join(u'\n'));
    };
    const QString project = things.value(u"project"_s).toString();
    if (!project.isEmpty() && !ProjectManager::instance()->currentProject())
        open(project);
    const QStringList files = things.value(u"designs"_s).toVariant().toStringList();
    for (const QString &file : files) {
        if (idOfFile(file).isEmpty())
            open(file);
    }
    const QString active = idOfFile(things.value(u"active"_s).toString());
    if (!active.isEmpty()) {
        DesignManager::instance()->setActiveDesign(active);
        journaling::activated(active);
    }
}

void OpenThings::openPages(const QJsonObject &things) const
{
    EditorArea *editors = window->designsMode()->editorArea();
    for (const QJsonValue value : things.value(u"pages"_s).toArray()) {
        const QJsonObject description = value.toObject();
        const QString key = description.value(u"key"_s).toString();
        const qsizetype mark = key.lastIndexOf(buildMark);
        if (mark >= 0) {
            buildpages::show(editors, idOfFile(key.first(mark)),
                             key.sliced(mark + buildMark.size()));
        } else if (QFileInfo::exists(key)) {
            // Why it cannot be shown goes to the log.
            auto *page = qobject_cast<TextPage *>(
                EditorManager::instance()->createEditorForPath(key, nullptr, {}, false, false));
            if (page)
                page->goTo(
                    {description.value(u"cursor"_s).toInt(), description.value(u"top"_s).toInt()});
        }
    }
    if (EditorPage *front = editors->page(things.value(u"front"_s).toString()))
        editors->setCurrentWidget(front);
}

void OpenThings::write()
{
    timer.stop();
    if (!preferences::remembers(preferences::OpenThings)) {
        QFile::remove(fileName());
        return;
    }
    Qtilities::Logging::logStatus(Qtilities::Core::writeFileAtomically(
        fileName(), QJsonDocument(present()).toJson(QJsonDocument::Indented)));
}

QJsonObject OpenThings::present() const
{
    const DesignManager *manager = DesignManager::instance();
    QStringList files;
    for (const QString &id : manager->openDesignIds()) {
        const QString file = fileOfDesign(manager->design(id));
        if (!file.isEmpty())
            files.append(file);
    }
    const QJsonObject pages = held.isEmpty() ? presentPages() : held;
    const DesignTreeView *tree = window->designTree()->treeView();
    return {{u"version"_s, formatVersion},
            {u"project"_s, ProjectManager::instance()->currentProjectFileName()},
            {u"designs"_s, QJsonArray::fromStringList(files)},
            {u"active"_s, fileOfDesign(manager->activeDesigns().value(0))},
            {u"pages"_s, pages.value(u"pages"_s)},
            {u"front"_s, pages.value(u"front"_s)},
            {u"folded"_s, QJsonArray::fromStringList(tree->foldedBranches())},
            {u"unfolded"_s, QJsonArray::fromStringList(tree->unfoldedBranches())},
            {u"mode"_s, window->activeMode()}};
}

QJsonObject OpenThings::presentPages() const
{
    const EditorArea *editors = window->designsMode()->editorArea();
    const EditorPage *front = editors->currentPage();
    QJsonArray pages;
    for (const EditorPage *page : editors->pages())
        pages.append(describe(*page));
    return {{u"pages"_s, pages}, {u"front"_s, front ? front->key() : QString()}};
}
