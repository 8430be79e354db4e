#include "app/calls/runagain.h"

#include "app/calls/running.h"
#include "app/journal/CommandJournal.h"
#include "app/messages/messages.h"
#include "console/QtclConsole.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/statuslog.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Core::writeFileAtomically;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::logStatus;

// From a file, since the console reads what is typed in its own way.
void runAgain(const QStringList &entries, QtclConsole *console)
{
    const Status free = running::check();
    if (!free.isOk() || !console)
        return messages::tell(free.text());
    const QString file = QtilitiesApplication::applicationSessionPath() + u"/Logs/again.tcl"_s;
    if (!logStatus(writeFileAtomically(file, entries.join(u'\n').toUtf8() + '\n')))
        return;
    const QString command = u"source "_s + journal::quoted(file);
    auto *done = CommandJournal::instance();
    done->standIn(command, entries);
    if (console->execCommand(command, true, true, nullptr))
        return;
    done->standIn({}, {});
    done->remark(QCoreApplication::translate(
        "runAgain",
        "Entries were run again, of which one has failed; what those before it did is not here"));
}
