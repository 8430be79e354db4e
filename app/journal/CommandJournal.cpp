#include "app/journal/CommandJournal.h"

#include "console/QConsole.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/statuslog.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace {

QString activeId()
{
    const IDesign *active = DesignManager::instance()->activeDesigns().value(0);
    return active ? active->id(u"."_s) : QString();
}

} // namespace

CommandJournal *CommandJournal::instance()
{
    static auto *const journal = new CommandJournal;
    return journal;
}

void CommandJournal::add(const journal::Words &words)
{
    append(journal::command(words));
    active = expected = activeId();
}

void CommandJournal::forgetActive() { active.clear(); }

void CommandJournal::addOn(const QString &designId, const journal::Words &words,
                           const QString &newId)
{
    activate(designId);
    append(journal::command(words));
    if (!newId.isEmpty())
        active = newId;
    expected = activeId();
}

void CommandJournal::activate(const QString &designId)
{
    if (active == designId || designId.isEmpty())
        return;
    append(journal::command({u"designs"_s, u"set_active"_s, designId}));
    active = designId;
}

void CommandJournal::remark(const QString &text)
{
    const QString line = text.split(u'\n').join(u"\n# "_s);
    // A backslash at the end would make the next line a part of the comment.
    append(u"# "_s + line + (line.endsWith(u'\\') ? u"."_s : QString()));
}

void CommandJournal::standIn(const QString &command, const QStringList &entries)
{
    standingFor = command;
    standIns = entries;
}

// A command that has failed may have done something, but not again.
void CommandJournal::follow(const QConsole *console)
{
    connect(console, &QConsole::commandSucceeded, this, [this](const QString &command) {
        if (scripts > 0) {
            hasScriptSucceeded = true;
        } else if (!standIns.isEmpty() && command == standingFor) {
            take(standIns.takeFirst());
            for (const QString &entry : std::exchange(standIns, {}))
                append(entry);
            active = expected = activeId();
        } else if (!command.trimmed().isEmpty()) {
            take(command);
        }
    });
}

void CommandJournal::beginScript()
{
    if (scripts++ == 0)
        hasScriptSucceeded = false;
}

void CommandJournal::endScript(const QString &script)
{
    if (--scripts > 0)
        return;
    if (hasScriptSucceeded)
        take(journal::command({u"source"_s, script}));
    else
        remark(tr("The script \"%1\" has failed; what it did before is not here").arg(script));
}

void CommandJournal::dropScript() { --scripts; }

// It was meant for the design that was active in the window.
void CommandJournal::take(const QString &command)
{
    if (!active.isEmpty())
        activate(expected);
    append(command);
    active = expected = activeId();
}

QString CommandJournal::text() const { return all.isEmpty() ? QString() : all.join(u'\n') + u'\n'; }

void CommandJournal::open()
{
    path = QtilitiesApplication::applicationSessionPath() + u"/Logs/journal-"_s
        + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s) + u'-'
        + QString::number(QCoreApplication::applicationPid()) + u".tcl"_s;
    file.close();
    written = all.size();
    end = 0;
}

void CommandJournal::clear()
{
    all.clear();
    active.clear();
    file.close();
    path.clear();
    Q_EMIT cleared();
}

// It is told once, until one can be written again.
void CommandJournal::append(const QString &entry)
{
    all.append(entry);
    const Status status = path.isEmpty() ? Status() : writeMissing();
    if (!status.isOk() && !isFailureTold)
        logStatus(status, Logger::Warning);
    isFailureTold = !status.isOk();
    Q_EMIT added(entry);
}

// What could not be written comes with the next entry, in place of a part of it that is there.
Status CommandJournal::writeMissing()
{
    if (!file)
        file = Descriptor::open(QFile::encodeName(path),
                                O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_NOFOLLOW, 0666);
    const QByteArray missing = all.sliced(written).join(u'\n').toUtf8() + '\n';
    if (!file || ::ftruncate(file.get(), end) != 0 || !file.write(missing))
        return Status::io(
            tr("The journal \"%1\" cannot be written: %2").arg(path, qt_error_string(errno)));
    written = all.size();
    end += missing.size();
    return {};
}
