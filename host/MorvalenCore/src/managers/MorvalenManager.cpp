#include <MorvalenCore/MorvalenManager.h>

#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/Replaceable.h>

#include <QMetaMethod>
#include <QNetworkDatagram>
#include <QUdpSocket>

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

void dropDatagrams(QUdpSocket *socket)
{
    while (socket->hasPendingDatagrams())
        socket->receiveDatagram(0);
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
    if (!parameters.title.isEmpty())
        parameters.widget->setWindowTitle(parameters.title);
    parameters.widget->show();
}

int MorvalenManager::getUdpSocketForSession()
{
    if (!sessionSocket) {
        sessionSocket = new QUdpSocket(this);
        connect(sessionSocket, &QUdpSocket::readyRead, this,
                [this] { dropDatagrams(sessionSocket); });
    }
    if (sessionSocket->state() != QAbstractSocket::BoundState
        && !sessionSocket->bind(QHostAddress::LocalHost, 0)) {
        Logger::instance()->logMessage(
            QString(), Logger::Warning,
            u"No UDP port for the session: %1"_s.arg(sessionSocket->errorString()));
        return 0;
    }
    return sessionSocket->localPort();
}

} // namespace MorvalenCore
