// What is kept from one run to the next.

#include "app/session/ConsoleHistory.h"
#include "app/session/preferences.h"
#include "app/terminal/TerminalHistory.h"
#include "console/QConsole.h"
#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/writerkinds.h"

#include <MorvalenCore/DesignStructureManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QFile>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

class SettingsWriter : public Writer
{
public:
    explicit SettingsWriter(std::function<Status()> aChange) : change(std::move(aChange)) { }

    void prepare(const QString &folder) override { disk.emplace(folder); }
    Status write() override { return change(); }
    void startAnew() override { }

private:
    std::optional<DesignsOnDisk> disk;
    std::function<Status()> change;
};

// The dialog asks whether they were written, and the log says why not.
Status setPreference()
{
    QString said;
    const auto listening =
        QObject::connect(Logger::instance(), &Logger::messageLogged,
                         [&said](const QString &, auto, const QString &text) { said = text; });
    preferences::setLauncher(u"nice"_s);
    QObject::disconnect(listening);
    return preferences::isWritable() ? Status() : Status::io(said);
}

Status setDefaultStructure()
{
    return MorvalenCore::DesignStructureManager::instance()
        ->trySetDefaultStructureNameForDesignType(u"Custom Design"_s, u"Software"_s);
}

Status setProjectsPath() { return ProjectManager::instance()->trySetCustomProjectsPath(u"/p"_s); }

class HistoryWriter : public Writer
{
public:
    void prepare(const QString &folder) override
    {
        disk.emplace(folder);
        DesignsOnDisk::write(disk->path("session/console_history"), "set old 1\n");
        preferences::setRemembers(preferences::ConsoleHistory, true);
        QObject::connect(Logger::instance(), &Logger::messageLogged, &console,
                         [this](const QString &, auto, const QString &text) { said = text; });
        startAnew();
    }

    Status write() override
    {
        said.clear();
        history->write();
        return said.isEmpty() ? Status() : Status::io(said);
    }

    // The commands of a killed process that were not written yet are gone.
    void startAnew() override
    {
        QtilitiesApplication::setApplicationSessionPath(u"/nowhere"_s);
        history.reset();
        QtilitiesApplication::setApplicationSessionPath(disk->path("session"));
        history.emplace(&console);
        if (!read().contains("new"))
            Q_EMIT console.commandExecuted(u"set new 1"_s);
    }

    ~HistoryWriter() override
    {
        QtilitiesApplication::setApplicationSessionPath(u"/nowhere"_s);
        history.reset();
    }

private:
    QByteArray read() const
    {
        QFile file(ConsoleHistory::fileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::optional<DesignsOnDisk> disk;
    QConsole console {nullptr, QString()};
    std::optional<ConsoleHistory> history;
    QString said;
};

class TerminalHistoryWriter : public Writer
{
public:
    explicit TerminalHistoryWriter(bool isFirst) : hasOldOne(!isFirst) { }

    void prepare(const QString &folder) override
    {
        path = folder + u"/terminal-history"_s;
        startAnew();
        if (hasOldOne && !history->remember(u"set old 1"_s).isOk())
            qFatal("cannot keep the first line");
    }

    // The same line is not remembered twice in a row.
    Status write() override { return history->remember(u"set new 1"_s); }

    void startAnew() override
    {
        history.emplace(path);
        if (!history->loaded().isOk())
            qFatal("the history is lost");
    }

private:
    bool hasOldOne;
    QString path;
    std::optional<TerminalHistory> history;
};

} // namespace

std::vector<WriterKind> settingsWriters()
{
    return {
        {"preferences", [] { return std::make_unique<SettingsWriter>(setPreference); }},
        {"default structure", [] { return std::make_unique<SettingsWriter>(setDefaultStructure); }},
        {"projects path", [] { return std::make_unique<SettingsWriter>(setProjectsPath); }},
        {"history", [] { return std::make_unique<HistoryWriter>(); }},
        {"terminal history", [] { return std::make_unique<TerminalHistoryWriter>(false); }},
        {"first terminal history", [] { return std::make_unique<TerminalHistoryWriter>(true); }}};
}
