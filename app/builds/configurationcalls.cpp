#include "app/builds/configurationcalls.h"

#include "app/calls/HostCall.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/IDesign.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildDescription;
using Qtilities::Core::Status;

namespace configurationcalls {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(configurationcalls)
};

// Empty when the user gave up.
QString askForName(QWidget *window, const QString &title, const QString &present = {})
{
    bool given = false;
    const QString name =
        QInputDialog::getText(window, title, Texts::tr("Name of the build configuration:"),
                              QLineEdit::Normal, present, &given);
    return given ? name : QString();
}

QString nameOfCopy(const IDesign &design, const QString &name)
{
    const QStringList taken = design.buildConfigurationNames();
    QString copy = Texts::tr("%1 copy").arg(name);
    for (int number = 2; taken.contains(copy); ++number)
        copy = Texts::tr("%1 copy %2").arg(name).arg(number);
    return copy;
}

} // namespace

QString add(IDesign *design, QWidget *window)
{
    const QPointer<QObject> object = design->objectBase();
    const QString name = askForName(window, Texts::tr("New Build Configuration"));
    if (name.isEmpty() || !object)
        return {};
    HostCall attempt(window, Texts::tr("Not Added"));
    if (!attempt.take(design->tryAddBuildConfiguration(name).status()))
        return {};
    journaling::configurationAdded(*design, name);
    return name;
}

QString duplicate(IDesign *design, const BuildConfiguration &configuration, QWidget *window)
{
    const QPointer<QObject> object = design->objectBase();
    BuildDescription copy = configuration.description();
    copy.name = askForName(window, Texts::tr("Duplicate Build Configuration"),
                           nameOfCopy(*design, copy.name));
    // Two builds in one folder would take each other's files for their own.
    copy.targetPath.clear();
    if (copy.name.isEmpty() || !object)
        return {};
    HostCall attempt(window, Texts::tr("Not Added"));
    const auto added = design->tryAddBuildConfiguration(copy.name);
    if (!attempt.take(added.status()))
        return {};
    journaling::configurationAdded(*design, copy.name);
    if (attempt.take(added.value()->trySetDescription(copy)))
        journaling::configurationDescribed(*design, copy.name, copy);
    return copy.name;
}

void rename(IDesign *design, BuildConfiguration *configuration, QWidget *window)
{
    const QPointer<QObject> object = design->objectBase();
    const QPointer<BuildConfiguration> renamed = configuration;
    const QString oldName = configuration->configurationName();
    const QString name = askForName(window, Texts::tr("Rename Build Configuration"), oldName);
    if (name.isEmpty() || name == oldName || !object || !renamed)
        return;
    BuildDescription description = renamed->description();
    description.name = name;
    HostCall attempt(window, Texts::tr("Not Renamed"));
    if (attempt.take(renamed->trySetDescription(description)))
        journaling::configurationRenamed(*design, oldName, name);
}

void remove(IDesign *design, const BuildConfiguration &configuration, QWidget *window)
{
    const QPointer<QObject> object = design->objectBase();
    const QString name = configuration.configurationName();
    QMessageBox box(QMessageBox::Warning, Texts::tr("Remove Build Configuration"),
                    Texts::tr("Remove the build configuration \"%1\" from the design \"%2\"?")
                        .arg(name, design->name()),
                    QMessageBox::Cancel, window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(Texts::tr("What builds have made stays on disk."));
    const QPushButton *agreed = box.addButton(Texts::tr("&Remove"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != agreed || !object)
        return;
    HostCall attempt(window, Texts::tr("Not Removed"));
    if (attempt.take(design->tryRemoveBuildConfiguration(name)))
        journaling::configurationRemoved(*design, name);
}

QString folderOf(const IDesign &design, const BuildConfiguration &configuration)
{
    if (design.workingFolderPath().isEmpty())
        return {};
    const QString path =
        QDir(design.workingFolderPath()).absoluteFilePath(configuration.getTargetPath());
    return QFileInfo(path).isDir() ? QDir::cleanPath(path) : QString();
}

} // namespace configurationcalls
