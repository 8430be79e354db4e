#include "interp/GuiAlert.h"

#include "interp/NotifierState.h"
#include "interp/TclTimeNotifier.h"

#include <QCoreApplication>

#include <mutex>
#include <thread>

namespace {

// Another thread may alert while the process ends.
std::mutex aliveMutex;
GuiAlert *alive = nullptr;
std::thread::id guiThread;

} // namespace

GuiAlert::GuiAlert()
{
    const std::lock_guard lock(aliveMutex);
    guiThread = std::this_thread::get_id();
    alive = this;
}

GuiAlert::~GuiAlert()
{
    const std::lock_guard lock(aliveMutex);
    alive = nullptr;
}

void GuiAlert::send()
{
    const std::lock_guard lock(aliveMutex);
    if (alive && !alive->underWay.exchange(true))
        QCoreApplication::postEvent(alive, new QEvent(QEvent::User));
}

bool GuiAlert::isGuiThread() { return std::this_thread::get_id() == guiThread; }

void GuiAlert::customEvent(QEvent *)
{
    underWay = false;
    notifier->found = true;
    notifier->timeNotifier->serve();
}
