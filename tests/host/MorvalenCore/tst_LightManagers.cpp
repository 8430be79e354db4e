#include "tests/TestClass.h"

#include <MorvalenCore/EditorManager.h>
#include <MorvalenCore/MorvalenManager.h>

#include <Qtilities/QtilitiesApplication.h>

#include <QApplication>
#include <QMainWindow>
#include <QNetworkDatagram>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QUdpSocket>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::EditorManager;
using MorvalenCore::ExtensionWidgetParameters;
using MorvalenCore::MorvalenManager;
using Qtilities::CoreGui::QtilitiesApplication;

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
    const auto *const socket = manager->findChild<QUdpSocket *>();
    QVERIFY(socket);
    QCOMPARE(socket->localAddress(), QHostAddress(QHostAddress::LocalHost));
    QSignalSpy arrived(socket, &QUdpSocket::readyRead);
    QUdpSocket sender;

    for (int count = 1; count <= 3; ++count) {
        QCOMPARE(sender.writeDatagram("hello", QHostAddress::LocalHost, quint16(port)), 5);
        QTRY_COMPARE(arrived.size(), count);
        QVERIFY(!socket->hasPendingDatagrams());
    }
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
