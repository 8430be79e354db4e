#include "app/calls/running.h"

#include "console/QtclConsole.h"

#include <MorvalenCore/ChangeBracket.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::ChangeBracket;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;

namespace running {

namespace {

// The console refuses even an empty command, which does nothing else, while it runs another one.
QString consoleRefusal()
{
    const QMainWindow *window = QtilitiesApplication::mainWindow();
    auto *console = window ? window->findChild<QtclConsole *>() : nullptr;
    int code = 0;
    return console ? console->interpretCommand(QString(), &code) : QString();
}

} // namespace

bool isConsoleBusy() { return !consoleRefusal().isEmpty(); }

Status check()
{
    const QString text = consoleRefusal();
    if (!text.isEmpty())
        return Status::busy(
            text + u' '
            + QCoreApplication::translate("running", "The console is running another one."));
    if (ChangeBracket::instance()->depth() > 0)
        return Status::busy(
            QCoreApplication::translate("running", "A script is changing the designs."));
    return {};
}

} // namespace running
