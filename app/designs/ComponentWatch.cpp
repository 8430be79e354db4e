#include "app/designs/ComponentWatch.h"

#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/editor/DifferenceDialog.h"
#include "app/editor/FileWatch.h"
#include "app/editor/NoticeBar.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/regularfile.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

// A program that replaces a file does it in several steps; they are looked at together.
constexpr int settleMilliseconds = 100;
// Until a command that runs has ended.
constexpr int retryMilliseconds = 500;

IDesign *designOf(const QString &id) { return DesignManager::instance()->design(id); }

QWidget *windowOf(const QObject *object)
{
    const auto *widget = qobject_cast<const QWidget *>(object->parent());
    return widget ? widget->window() : nullptr;
}

} // namespace

ComponentWatch::ComponentWatch(NoticeBar *bar, QObject *parent)
    : QObject(parent),
      notice(bar),
      watch(FileWatch::shared())
{
    timer.setSingleShot(true);
    timer.callOnTimeout(this, &ComponentWatch::look);
    connect(watch.get(), &FileWatch::fileTouched, this, [this](const QString &path) {
        if (std::find(files.cbegin(), files.cend(), path) != files.cend())
            lookSoon();
    });
    connect(watch.get(), &FileWatch::folderTouched, this, &ComponentWatch::lookSoon);
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designAttached, this, &ComponentWatch::watchAll);
    connect(manager, &DesignManager::designClosed, this, &ComponentWatch::watchAll);
    connect(manager, &DesignManager::designIdChanged, this, &ComponentWatch::watchAll);
    // A save settles what the user was asked.
    connect(manager, &DesignManager::designChanged, this, [this](const QString &id) {
        const IDesign *design = designOf(id);
        if (!notice->isHidden() || (design && files.value(id) != design->componentFileName()))
            lookSoon();
    });
}

ComponentWatch::~ComponentWatch()
{
    for (const QString &file : std::as_const(files))
        watch->remove(file);
}

void ComponentWatch::watchAll()
{
    QHash<QString, QString> wanted;
    for (const QString &id : DesignManager::instance()->openDesignIds()) {
        const IDesign *design = designOf(id);
        if (design && !design->componentFileName().isEmpty())
            wanted.insert(id, design->componentFileName());
    }
    for (const QString &file : std::as_const(wanted))
        watch->add(file);
    for (const QString &file : std::as_const(files))
        watch->remove(file);
    files = wanted;
    if (!notice->isHidden())
        lookSoon();
}

void ComponentWatch::lookSoon() { timer.start(settleMilliseconds); }

void ComponentWatch::look()
{
    if (!running::check().isOk()) {
        timer.start(retryMilliseconds);
        return;
    }
    watchAll();
    timer.stop();
    const QStringList ids = DesignManager::instance()->openDesignIds();
    for (const QString &id : ids) {
        IDesign *design = designOf(id);
        if (design && !follow(*design))
            return;
    }
    notice->show(QString());
}

bool ComponentWatch::follow(IDesign &design)
{
    const auto state = design.componentFileState();
    if (state == IDesign::FileState::Same)
        return true;
    watch->renew(design.componentFileName());
    // It may come again, as the files of a branch do.
    if (state == IDesign::FileState::Missing)
        return true;
    if (design.isModified()) {
        ask(design, QString());
        return false;
    }
    const QString id = design.id(u"."_s);
    const Status read = design.reloadComponentFile();
    if (!read.isOk()) {
        ask(design, read.text());
        return false;
    }
    const QString text = tr("The design \"%1\" was changed on disk and is read again").arg(id);
    Logger::instance()->logMessage(QString(), Logger::Info, text);
    journaling::remark(text);
    return true;
}

void ComponentWatch::ask(const IDesign &design, const QString &problem)
{
    const QString id = design.id(u"."_s);
    const NoticeBar::Choice reloadIt {tr("Re&load"), [this, id] { reload(id); }};
    const NoticeBar::Choice showIt {tr("Show &Difference"), [this, id] { showDifference(id); }};
    const NoticeBar::Choice overwriteIt {tr("Over&write"), [this, id] { overwrite(id); }};
    const NoticeBar::Choice copyIt {tr("Save a Cop&y..."), [this, id] { saveCopy(id); }};
    const QString text = problem.isEmpty()
        ? tr("The design \"%1\" was changed on disk by another program, and has changes here that "
             "are not saved.")
              .arg(design.name())
        : tr("The design \"%1\" was changed on disk by another program, and cannot be read "
             "again: %2")
              .arg(design.name(), problem);
    notice->show(text, {reloadIt, showIt, overwriteIt, copyIt});
}

void ComponentWatch::reload(const QString &designId)
{
    IDesign *design = designOf(designId);
    if (!design)
        return look();
    {
        HostCall attempt(windowOf(this), tr("Not Read Again"));
        if (attempt.takeAndLog(design->reloadComponentFile()))
            journaling::givenUp(designId);
    }
    look();
}

void ComponentWatch::showDifference(const QString &designId)
{
    IDesign *design = designOf(designId);
    const QTemporaryDir folder;
    if (!design || !folder.isValid())
        return;
    const QString mine = folder.filePath(u"component.xml"_s);
    const Status written = DesignManager::instance()->tryParseDesignToFile(design, mine, true);
    const auto here = Qtilities::Core::readRegularFile(mine);
    const auto onDisk = Qtilities::Core::readRegularFile(design->componentFileName());
    if (!written.isOk() || !here.isOk() || !onDisk.isOk()) {
        messages::warn(windowOf(this), tr("No Difference Shown"),
                       {!written.isOk() ? written.text() : onDisk.status().text()});
        return;
    }
    auto *dialog = new DifferenceDialog(QFileInfo(design->componentFileName()).fileName(),
                                        QString::fromUtf8(onDisk.value()),
                                        QString::fromUtf8(here.value()), windowOf(this));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
}

void ComponentWatch::overwrite(const QString &designId)
{
    IDesign *design = designOf(designId);
    if (design) {
        HostCall attempt(windowOf(this), tr("Not Saved"));
        if (attempt.takeAndLog(design->overwriteComponentFile()))
            journaling::saved(*design);
    }
    look();
}

void ComponentWatch::saveCopy(const QString &designId)
{
    const IDesign *asked = designOf(designId);
    const QString file = QFileDialog::getSaveFileName(
        windowOf(this), tr("Save a Copy"), asked ? asked->workingFolderPath() : QString(),
        tr("Components (*.xml)"));
    IDesign *design = designOf(designId);
    if (file.isEmpty() || !design)
        return;
    HostCall attempt(windowOf(this), tr("Not Saved"));
    if (attempt.takeAndLog(DesignManager::instance()->tryParseDesignToFile(design, file, true)))
        journaling::copied(*design, file);
}
