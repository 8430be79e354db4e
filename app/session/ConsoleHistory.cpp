#include "app/session/ConsoleHistory.h"

#include "app/session/preferences.h"
#include "console/QConsole.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/statuslog.h>
#include <Qtilities/utf8text.h>

#include <QFile>
#include <QLockFile>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Core::writeFileAtomically;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace {

constexpr int writeDelay = 1'000; // milliseconds
constexpr int lockPatience = 2'000; // milliseconds
constexpr auto forOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

QStringList readLines()
{
    const auto content = Qtilities::Core::readRegularFile(ConsoleHistory::fileName());
    if (!content.isOk())
        return {};
    return Qtilities::Core::textOfUtf8(content.value()).split(u'\n', Qt::SkipEmptyParts);
}

// Commands that nobody else may read are in it from the first byte on.
bool makeFile()
{
    QFile file(ConsoleHistory::fileName());
    return file.exists() || file.open(QIODevice::NewOnly | QIODevice::WriteOnly, forOwnerOnly)
        || file.exists();
}

} // namespace

ConsoleHistory::ConsoleHistory(QConsole *console, QObject *parent) : QObject(parent)
{
    writeTimer.setSingleShot(true);
    writeTimer.callOnTimeout(this, &ConsoleHistory::write);
    isKept = preferences::remembers(preferences::ConsoleHistory);
    if (isKept)
        give(console);
    connect(console, &QConsole::commandExecuted, this, &ConsoleHistory::add);
}

ConsoleHistory::~ConsoleHistory() { write(); }

QString ConsoleHistory::fileName()
{
    return QtilitiesApplication::applicationSessionPath() + u"/console_history"_s;
}

// A failed command of the base class is one that is taken into the history and nowhere else.
void ConsoleHistory::give(QConsole *console)
{
    for (const QString &command : readLines()) {
        int failed = 1;
        console->QConsole::interpretCommand(command, &failed);
    }
}

void ConsoleHistory::add(const QString &command)
{
    if (!isKept || command.isEmpty())
        return;
    added.append(command);
    if (!writeTimer.isActive())
        writeTimer.start(writeDelay);
}

void ConsoleHistory::followPreferences()
{
    isKept = preferences::remembers(preferences::ConsoleHistory);
    if (isKept || !QFile::exists(fileName()))
        return;
    added.clear();
    logStatus(writeFileAtomically(fileName(), QByteArray()));
}

void ConsoleHistory::write()
{
    if (added.isEmpty())
        return;
    QLockFile lock(fileName() + u".lock"_s);
    Status status = Status::busy(tr("Cannot lock \"%1\"").arg(fileName()));
    if (lock.tryLock(lockPatience) && makeFile()) {
        QStringList all = readLines() + added;
        all = all.last(qMin<qsizetype>(all.size(), most));
        const QByteArray bytes = all.join(u'\n').toUtf8() + '\n';
        status = writeFileAtomically(fileName(), bytes);
    }
    logStatus(status, Logger::Warning);
    added.clear();
}
