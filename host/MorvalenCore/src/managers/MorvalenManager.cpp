#include <MorvalenCore/MorvalenManager.h>

#include "managers/SessionPort.h"

#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/Replaceable.h>

#include <QMetaMethod>

namespace MorvalenCore {

namespace {

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

Qtilities::Core::Replaceable<MorvalenManager> &slot()
{
    static auto *const theSlot = new Qtilities::Core::Replaceable<MorvalenManager>;
    return *theSlot;
}

} // namespace

MorvalenManager::MorvalenManager(QObject *parent) : QObject(parent) { }

MorvalenManager::~MorvalenManager() = default;

MorvalenManager *MorvalenManager::instance() { return slot().get(); }

void MorvalenManager::setInstance(MorvalenManager *manager) { slot().set(manager); }

void MorvalenManager::addExtensionWidget(const ExtensionWidgetParameters &parameters)
{
    if (!parameters.widget)
        return;
    const bool taken =
        isSignalConnected(QMetaMethod::fromSignal(&MorvalenManager::extensionWidgetAdded));
    Q_EMIT extensionWidgetAdded(parameters);
    if (taken && QtilitiesApplication::mainWindow())
        return;
    // By name: programs without windows have this code, too, and Qt's library for them not.
    if (!parameters.title.isEmpty())
        parameters.widget->setProperty("windowTitle", parameters.title);
    QMetaObject::invokeMethod(parameters.widget, "show");
}

int MorvalenManager::getUdpSocketForSession()
{
    if (!sessionPort)
        sessionPort = new SessionPort(this);
    const auto port = sessionPort->number();
    if (port.isOk())
        return port.value();
    Logger::instance()->logMessage(QString(), Logger::Warning,
                                   u"No UDP port for the session: %1"_s.arg(port.status().text()));
    return 0;
}

} // namespace MorvalenCore
