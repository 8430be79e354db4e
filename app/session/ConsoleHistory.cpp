#include "app/session/ConsoleHistory.h"

#include "app/session/preferences.h"
#include "console/QConsole.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/FolderMutex.h>
#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/statuslog.h>
#include <Qtilities/utf8text.h>

#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Core::writeFileAtomically;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace {

constexpr int writeDelay = 1'000; // milliseconds

Result<QByteArray> read()
{
    Result<QByteArray> content = Qtilities::Core::readRegularFile(ConsoleHistory::fileName());
    if (content.isOk())
        return content;
    if (content.status().kind() == Status::Kind::NotFound)
        return QByteArray();
    return content.status().withText(ConsoleHistory::tr("Cannot read \"%1\": %2")
                                         .arg(ConsoleHistory::fileName(), content.status().text()));
}

QStringList linesOf(const QByteArray &content)
{
    return Qtilities::Core::textOfUtf8(content).split(u'\n', Qt::SkipEmptyParts);
}

// Nobody else may read the commands.
Status makeFile()
{
    const QString name = ConsoleHistory::fileName();
    const Status made = Qtilities::Core::makePrivateFile(name);
    return made.isOk()
        ? made
        : made.withText(ConsoleHistory::tr("Cannot write \"%1\": %2").arg(name, made.text()));
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
    for (const QString &command : linesOf(read().valueOr({}))) {
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
    const Status written = append();
    if (written.isOk())
        return added.clear();
    // Those that could not be written come with the next ones.
    added = added.last(qMin<qsizetype>(added.size(), most));
    logStatus(written, Logger::Warning);
}

Status ConsoleHistory::append()
{
    const Qtilities::Core::FolderMutex lock(QFileInfo(fileName()).path());
    if (!lock.isTaken())
        return Status::busy(tr("Cannot lock \"%1\"").arg(fileName()));
    const Result<QByteArray> before = read();
    const Status made = before.isOk() ? makeFile() : before.status();
    if (!made.isOk())
        return made;
    // A write can fail after the file has taken its place.
    const bool isThere = !unconfirmed.isEmpty() && before.value() == unconfirmed;
    const QStringList missing = isThere ? added.sliced(unconfirmedCount) : added;
    if (missing.isEmpty())
        return {};
    const QStringList all = linesOf(before.value()) + missing;
    const QByteArray bytes =
        all.last(qMin<qsizetype>(all.size(), most)).join(u'\n').toUtf8() + '\n';
    const Status written = writeFileAtomically(fileName(), bytes);
    unconfirmed = written.isOk() ? QByteArray() : bytes;
    unconfirmedCount = qMin<qsizetype>(added.size(), most);
    return written;
}
