// The least host with designs of its own under the fifteen commands: one design with one file and
// one build, which have what they cannot do without. least WORD... leaves more of it out: "design",
// "file", "build", "manager", "factory", "window". Prints what each command answers.

#include "scripting/TclScriptManager.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/IFactoryProvider.h>
#include <Qtilities/ObjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/QtilitiesCoreApplication.h>

#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

QStringList left;

bool has(const QString &thing) { return !left.contains(thing); }

struct File : DesignFile
{
    QString actualPath() const override { return u"/somewhere/a.v"_s; }
};

struct Build : MorvalenCore::BuildConfiguration
{
    QString configurationName() const override { return u"fast"_s; }
};

class Design : public QObject, public IDesign
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign)

public:
    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }
    QString name() const override { return u"uart"_s; }
    QList<DesignFile *> filesUnderNode(const QString &, bool) const override
    {
        return has(u"file"_s) ? QList<DesignFile *> {&file} : QList<DesignFile *>();
    }
    MorvalenCore::BuildConfiguration *activeBuildConfiguration() const override
    {
        return has(u"build"_s) ? &build : nullptr;
    }

private:
    mutable File file;
    mutable Build build;
};

class Manager : public MorvalenCore::DesignManager
{
public:
    QStringList openDesignIds() const override
    {
        return has(u"design"_s) ? QStringList {own.name()} : QStringList();
    }
    IDesign *design(const QString &id) const override
    {
        return openDesignIds().contains(id) ? &own : nullptr;
    }
    QList<IDesign *> activeDesigns() const override
    {
        return has(u"design"_s) ? QList<IDesign *> {&own} : QList<IDesign *>();
    }
    void setActiveDesign(const QString &) override { }
    QStringList designTypes() const override { return {u"Custom Design"_s}; }

private:
    mutable Design own;
};

struct Factory : Qtilities::Core::Interfaces::IFactoryProvider
{
    QString factoryName() const override { return u"Design Factory"_s; }
    QStringList instanceTags() const override { return {u"Custom Design"_s}; }
    QObject *createInstance(const Qtilities::Core::InstanceFactoryInfo &) override
    {
        return new Design;
    }
};

void runCommands(TclScripting::TclScriptManager &manager, const QString &session)
{
    for (const QString &command : {u"log told"_s,
                                   u"logp told info"_s,
                                   u"project close"_s,
                                   u"designs list"_s,
                                   u"designs set_active uart"_s,
                                   u"designs new b {Custom Design} Flat"_s,
                                   u"designs close uart"_s,
                                   u"design get vendor"_s,
                                   u"design set name b"_s,
                                   u"design save"_s,
                                   u"files list"_s,
                                   u"files add b.v"_s,
                                   u"files set_active a.v"_s,
                                   u"sfile get actual_path"_s,
                                   u"folders list"_s,
                                   u"folders add x"_s,
                                   u"sfolder get actual_path"_s,
                                   u"properties list"_s,
                                   u"properties add p string v"_s,
                                   u"sproperty get name"_s,
                                   u"builds list"_s,
                                   u"builds set_active fast"_s,
                                   u"build macros list"_s,
                                   u"build steps list"_s,
                                   u"build run"_s,
                                   u"lindex [split [overview] \n] 0"_s}) {
        int code = 0;
        const QString text = manager.execCommad(command, &code).replace(session, u"SESSION"_s);
        std::printf("%s -> %d %s\n", qPrintable(command), code, qPrintable(text));
    }
}

} // namespace

int main(int argc, char **argv)
{
    QtilitiesApplication application(argc, argv);
    left = application.arguments().sliced(1);
    const QTemporaryDir session;
    application.setApplicationSessionPath(session.path());
    QMainWindow window;
    if (has(u"window"_s))
        application.setMainWindow(&window);
    Manager designs;
    if (has(u"manager"_s))
        MorvalenCore::DesignManager::setInstance(&designs);
    Factory factory;
    if (has(u"factory"_s))
        QtilitiesCoreApplication::objectManager()->registerFactoryProvider(&factory);
    TclScripting::TclScriptManager manager(nullptr);
    runCommands(manager, session.path());
}

#include "main.moc"
