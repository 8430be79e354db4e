#include "app/ending/Leaving.h"

#include "app/calls/running.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/editor/unsavedchanges.h"
#include "app/file/closing.h"
#include "app/file/designsaving.h"
#include "app/messages/messages.h"
#include "app/process/programend.h"
#include "interp/commandsManager.h"
#include "interp/ScriptRuns.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>

#include <QApplication>
#include <QMessageBox>
#include <QSessionManager>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;

Leaving::Leaving(EditorArea *area, QWidget *theWindow)
    : QObject(theWindow),
      editors(area),
      window(theWindow)
{
    connect(qApp, &QGuiApplication::commitDataRequest, this, &Leaving::endOfSession);
    qApp->installEventFilter(this);
}

// A script that quits ends the process itself. Before that it makes Qt want to close the window,
// which would ask as if there were a way back.
bool Leaving::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    const auto *registry = commandsManager::getInstance(nullptr);
    return registry->interp && Tcl_InterpActive(registry->interp);
}

bool Leaving::mayLeave()
{
    // While the user is asked, the desktop may want the window to close too.
    if (isAsking)
        return false;
    isAsking = true;
    Q_EMIT asking();
    const bool agreed = askAll();
    isAsking = false;
    Q_EMIT answered(agreed);
    return agreed;
}

// Pages come last, since they are closed one by one as the user agrees.
bool Leaving::askAll()
{
    closing::GivenUp givenUp;
    return areBuildsDone() && mayInterrupt()
        && closing::settleDesigns(window, designsaving::modifiedDesigns(), &givenUp)
        && closing::settleProject(window, &givenUp) && editors->closeAll()
        && closing::carryOut(window, givenUp);
}

// A build ends in the event loop; what it has started must not outlive the program.
bool Leaving::areBuildsDone()
{
    const BuildMonitor *monitor = BuildMonitor::instance();
    if (monitor->running().isEmpty())
        return true;
    if (!messages::confirm(window, tr("A Build Is Running"), tr("A build is running."),
                           tr("Quitting cancels it."), tr("&Quit Anyway")))
        return false;
    const QList<BuildConfiguration *> running = monitor->running();
    if (running.isEmpty())
        return true;
    connect(
        monitor, &BuildMonitor::ended, window,
        [this] {
            if (BuildMonitor::instance()->running().isEmpty())
                window->close();
        },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    for (BuildConfiguration *configuration : running)
        configuration->cancel();
    return false;
}

bool Leaving::mayInterrupt() const
{
    return !running::isConsoleBusy()
        || messages::confirm(window, tr("A Command Is Running"),
                             tr("The console is running a command."),
                             tr("Quitting ends it where it is."), tr("&Quit Anyway"));
}

bool Leaving::settleForGood()
{
    const QList<EditorPage *> modified = editors->modifiedPages();
    if (modified.isEmpty())
        return true;
    QStringList titles;
    for (const EditorPage *page : modified)
        titles.append(page->title());
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Changes"),
                    tr("The program ends, and there are changes that are not saved."),
                    QMessageBox::Save | QMessageBox::Discard, window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(unsavedchanges::named(titles));
    box.setDefaultButton(QMessageBox::Save);
    // Closing the box must not lose anything.
    box.setEscapeButton(QMessageBox::Save);
    return box.exec() != QMessageBox::Save || editors->saveAll();
}

bool Leaving::mayEndWithSession()
{
    ScriptRuns *runs = ScriptRuns::instance();
    if (!runs || !runs->isInPass())
        return mayLeave();
    if (isAsking)
        return false;
    isAsking = true;
    const bool agreed = mayInterrupt();
    isAsking = false;
    if (!agreed)
        return false;
    connect(runs, &ScriptRuns::ended, window, &QWidget::close,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    runs->stop();
    return true;
}

void Leaving::endOfSession(QSessionManager &session)
{
    if (session.allowsInteraction()) {
        const bool agreed = mayEndWithSession();
        session.release();
        if (!agreed)
            return session.cancel();
    }
    programend::save();
}
