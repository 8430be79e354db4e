#include "tests/TestClass.h"

#include <MorvalenCore/EditorManager.h>
#include <MorvalenCore/MorvalenManager.h>

#include <Qtilities/Logger.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/Status.h>

#include <QApplication>
#include <QMainWindow>
#include <QPointer>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTest>
#include <QUdpSocket>

#include <cerrno>
#include <memory>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::EditorManager;
using MorvalenCore::ExtensionWidgetParameters;
using MorvalenCore::MorvalenManager;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

// The services that belong to no design.
class tst_LightManagers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        manager = std::make_unique<MorvalenManager>();
        widget = std::make_unique<QWidget>();
    }

    void givesTheSessionAPort();
    void readsAndDropsWhatArrives();
    void tellsWhyThereIsNoPort();
    void handsAWidgetToTheMainWindow();
    void showsAWidgetByItselfWithoutAMainWindow();
    void showsAWidgetByItselfWhenNobodyTakesIt();
    void ignoresANullWidget();
    void hasNoEditors();
    void canBeReplaced();

private:
    ExtensionWidgetParameters parameters() const
    {
        ExtensionWidgetParameters all;
        all.context = u"Context.Designs"_s;
        all.title = u"A <b>title</b>"_s;
        all.widget = widget.get();
        all.area = 1;
        all.visibility = 2;
        return all;
    }

    std::unique_ptr<MorvalenManager> manager;
    std::unique_ptr<QWidget> widget;
};

void tst_LightManagers::givesTheSessionAPort()
{
    const int port = manager->getUdpSocketForSession();
    QVERIFY(port > 0 && port < 65536);
    QCOMPARE(manager->getUdpSocketForSession(), port);
    MorvalenManager another;
    QVERIFY(another.getUdpSocketForSession() != port);

    // The port is really taken, and free again when the manager is gone.
    QUdpSocket other;
    QVERIFY(!other.bind(QHostAddress::LocalHost, quint16(port), QUdpSocket::DontShareAddress));
    manager.reset();
    QVERIFY(other.bind(QHostAddress::LocalHost, quint16(port), QUdpSocket::DontShareAddress));
}

void tst_LightManagers::readsAndDropsWhatArrives()
{
    const int port = manager->getUdpSocketForSession();
    const auto *const arrivals = manager->findChild<QSocketNotifier *>();
    QVERIFY(arrivals);
    const int socket = int(arrivals->socket());
    sockaddr_in address {};
    socklen_t size = sizeof address;
    QCOMPARE(getsockname(socket, reinterpret_cast<sockaddr *>(&address), &size), 0);
    QCOMPARE(ntohl(address.sin_addr.s_addr), in_addr_t(INADDR_LOOPBACK));
    QSignalSpy arrived(arrivals, &QSocketNotifier::activated);
    QUdpSocket sender;

    for (int count = 1; count <= 3; ++count) {
        QCOMPARE(sender.writeDatagram("hello", QHostAddress::LocalHost, quint16(port)), 5);
        QTRY_COMPARE(arrived.size(), count);
        char byte = 0;
        QCOMPARE(recv(socket, &byte, sizeof byte, MSG_PEEK | MSG_DONTWAIT), ssize_t(-1));
        QCOMPARE(errno, EAGAIN);
    }
}

// The next call finds one, when one can be had again.
void tst_LightManagers::tellsWhyThereIsNoPort()
{
    Logger logger;
    Logger::setInstance(&logger);
    // A sanitizer takes descriptors to look at the types that it has not seen yet.
    logger.logMessage(QString(), Logger::Warning, Status::io(u"seen"_s).text());
    QSignalSpy told(&logger, &Logger::messageLogged);
    rlimit before {};
    QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none {0, before.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
    const int port = manager->getUdpSocketForSession();
    QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
    Logger::setInstance(nullptr);

    QCOMPARE(port, 0);
    QCOMPARE(told.size(), 1);
    QCOMPARE(told[0][2].toString(), u"No UDP port for the session: Too many open files"_s);
    QVERIFY(manager->getUdpSocketForSession() > 0);
}

void tst_LightManagers::handsAWidgetToTheMainWindow()
{
    QMainWindow window;
    QtilitiesApplication::setMainWindow(&window);
    ExtensionWidgetParameters taken;
    connect(manager.get(), &MorvalenManager::extensionWidgetAdded, this,
            [&](const ExtensionWidgetParameters &given) { taken = given; });

    manager->addExtensionWidget(parameters());

    QCOMPARE(taken.context, u"Context.Designs"_s);
    QCOMPARE(taken.title, u"A <b>title</b>"_s);
    QCOMPARE(taken.widget, widget.get());
    QCOMPARE(taken.controls, nullptr);
    QCOMPARE(taken.area, 1);
    QCOMPARE(taken.visibility, 2);
    QCOMPARE(taken.modes, QList<int>());
    QVERIFY(!widget->isVisible());
}

void tst_LightManagers::showsAWidgetByItselfWithoutAMainWindow()
{
    QSignalSpy spy(manager.get(), &MorvalenManager::extensionWidgetAdded);

    manager->addExtensionWidget(parameters());

    QCOMPARE(spy.size(), 1);
    QVERIFY(widget->isVisible());
    QVERIFY(widget->isWindow());
    QCOMPARE(widget->windowTitle(), u"A <b>title</b>"_s);
}

void tst_LightManagers::showsAWidgetByItselfWhenNobodyTakesIt()
{
    QMainWindow window;
    QtilitiesApplication::setMainWindow(&window);
    widget->setWindowTitle(u"its own"_s);
    ExtensionWidgetParameters untitled = parameters();
    untitled.title.clear();

    manager->addExtensionWidget(untitled);

    QVERIFY(widget->isVisible());
    QCOMPARE(widget->windowTitle(), u"its own"_s);
}

void tst_LightManagers::ignoresANullWidget()
{
    QSignalSpy spy(manager.get(), &MorvalenManager::extensionWidgetAdded);
    ExtensionWidgetParameters empty = parameters();
    empty.widget = nullptr;

    manager->addExtensionWidget(empty);

    QCOMPARE(spy.size(), 0);
}

void tst_LightManagers::hasNoEditors()
{
    EditorManager editors;
    QString error;

    QCOMPARE(editors.createEditorForPath(u"/a/b.v"_s, &error, QString(), true, false), nullptr);
    QCOMPARE(error, u"There is no editor that opens \"/a/b.v\""_s);
    QCOMPARE(editors.createEditorForPath(u"/a/b.v"_s, nullptr, QString(), true, false), nullptr);
}

void tst_LightManagers::canBeReplaced()
{
    MorvalenManager *const standard = MorvalenManager::instance();
    EditorManager *const standardEditors = EditorManager::instance();
    QVERIFY(standard && standardEditors);
    {
        EditorManager editors;
        MorvalenManager::setInstance(manager.get());
        EditorManager::setInstance(&editors);
        QCOMPARE(MorvalenManager::instance(), manager.get());
        QCOMPARE(EditorManager::instance(), &editors);
        manager.reset();
    }

    QCOMPARE(MorvalenManager::instance(), standard);
    QCOMPARE(EditorManager::instance(), standardEditors);
}

TEST_CLASS(tst_LightManagers)
#include "tst_LightManagers.moc"
