// What the window and its console write.

#include "app/MainWindow.h"
#include "app/OpenThings.h"
#include "app/session/preferences.h"
#include "console/QConsole.h"
#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/writerkinds.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

namespace {

// The list of what is open.
class OpenThingsWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        DesignsOnDisk::write(disk->path("a/component.xml"), DesignsOnDisk::component("a"));
        DesignsOnDisk::write(disk->path("b/component.xml"), DesignsOnDisk::component("b"));
        // The window would remember what was opened last, a moment later.
        preferences::setRemembers(preferences::RecentFiles, false);
        window.emplace();
        QObject::connect(Logger::instance(), &Logger::messageLogged, &*window,
                         [this](const QString &, auto type, const QString &text) {
                             if (type == Logger::Error)
                                 said = text;
                         });
        disk->open("a/component.xml");
        OpenThings(&*window).write();
        startAnew();
    }

    Status write() override
    {
        said.clear();
        things->write();
        return said.isEmpty() ? Status() : Status::io(said);
    }

    void startAnew() override
    {
        DesignsOnDisk::forgetAll();
        things.emplace(&*window);
        things->restore();
        if (!MorvalenCore::DesignManager::instance()->design(u"v.l.a.1.0"_s))
            qFatal("the list is lost");
        if (!MorvalenCore::DesignManager::instance()->design(u"v.l.b.1.0"_s))
            disk->open("b/component.xml");
    }

    ~OpenThingsWriter() override { QtilitiesApplication::setApplicationSessionPath(u"/nowhere"_s); }

private:
    std::optional<DesignsOnDisk> disk;
    QString said;
    std::optional<MainWindow> window;
    std::optional<OpenThings> things;
};

// What the command says is only whether it is done, and it writes over the file that is there.
class ScriptWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        path = folder + u"/saved.tcl"_s;
        DesignsOnDisk::write(path, "set old 1\n");
        for (const QString &command : {u"set new 1"_s, u"set more 2"_s}) {
            int succeeded = 0;
            console.interpretCommand(command, &succeeded);
        }
    }

    Status write() override
    {
        return console.saveScript(path) == 0 ? Status() : Status::failed(u"It is not saved"_s);
    }

    void startAnew() override { }
    bool growsInPlace() const override { return true; }
    bool givesReasons() const override { return false; }

private:
    QString path;
    QConsole console {nullptr, QString()};
};

} // namespace

std::vector<WriterKind> windowWriters()
{
    return {{"open things", [] { return std::make_unique<OpenThingsWriter>(); }},
            {"saved script", [] { return std::make_unique<ScriptWriter>(); }}};
}
