#include "app/builds/BuildMenu.h"
#include "console/QtclConsole.h"
#include "interp/QtNotifier.h"
#include "scripting/TclScriptManager.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QInputDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Logging::Logger;

// The menu of builds in a window, on real designs. The console is one per process.
class tst_BuildMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everythingIsDisabledWithoutADesign();
    void onlyAddingIsPossibleWithoutAConfiguration();
    void f7RunsWhatIsOutdated();
    void runsAllSteps();
    void refreshes();
    void activatesAConfiguration();
    void cancelsARunningBuild();
    void isRefusedWhileACommandRuns();
    void cleansWhatBuildsMade_data();
    void cleansWhatBuildsMade();
    void edits();
    void addsAConfiguration();
    void removesAConfiguration_data();
    void removesAConfiguration();
    void isDisabledForAReadOnlyDesign();

private:
    BuildConfiguration *add(const QString &name, const QList<BuildStep> &steps)
    {
        BuildConfiguration *added = design->addBuildConfiguration(name, &error);
        return added && added->setDescription({name, {}, {}, steps}, &error) ? added : nullptr;
    }
    BuildConfiguration *addCounting()
    {
        return add(u"Main"_s, {{u"count"_s, u"echo x >> journal; touch o"_s, {}, {u"o"_s}}});
    }
    QAction *action(const char *name) const
    {
        return window->findChild<QAction *>(QLatin1StringView(name));
    }
    QStringList enabled() const
    {
        QStringList names;
        for (const char *name : {"buildOutdated", "buildAll", "buildRefresh", "buildCancel",
                                 "buildClean", "buildEdit", "buildAdd", "buildRemove"}) {
            if (action(name)->isEnabled())
                names.append(QLatin1StringView(name));
        }
        return names;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(window.get(), key, modifiers);
    }
    // Clicks an entry of the open menu.
    void choose(const char *name) const
    {
        menu->popup(window->mapToGlobal(QPoint(0, 40)));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action(name)).center());
    }
    QByteArray journal() const { return SessionFixture::read(session->designs(u"d/journal"_s)); }
    // Answers the next box with the button of that text.
    void answerBox(const QString &button, QString *text = nullptr)
    {
        QTimer::singleShot(50, this, [this, button, text] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box) {
                answerBox(button, text);
                return;
            }
            if (text)
                *text = box->text() + u'|' + box->informativeText();
            for (QPushButton *candidate : box->findChildren<QPushButton *>()) {
                if (candidate->text() == button)
                    QTest::mouseClick(candidate, Qt::LeftButton);
            }
        });
    }

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
    std::unique_ptr<QMainWindow> window;
    BuildMenu *menu = nullptr;
    QString error;
};

void tst_BuildMenu::initTestCase()
{
    Qtk_InitNotifier(qApp);
    Qtk_LetNotifierRest();
    const SessionFixture start;
    window = std::make_unique<QMainWindow>();
    Qtilities::CoreGui::QtilitiesApplication::setMainWindow(window.get());
    new TclScripting::TclScriptManager(nullptr, window.get());
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
}

void tst_BuildMenu::init()
{
    session = std::make_unique<SessionFixture>();
    design = session->create(u"d"_s);
    menu = new BuildMenu(window.get());
    window->menuBar()->addMenu(menu);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
    // Qt 6.8 takes a click in a menu for the end of what opened it where the mouse has been
    // nowhere.
    QTest::mouseMove(window.get(), QPoint(1, 1));
    session->takeLog();
}

void tst_BuildMenu::cleanup()
{
    delete menu;
    session.reset();
}

void tst_BuildMenu::everythingIsDisabledWithoutADesign()
{
    SessionFixture::manager()->closeDesign(design->id(u"."_s), false);
    QCOMPARE(enabled(), QStringList());
    QVERIFY(!window->findChild<QMenu *>(u"buildConfigurations"_s)->isEnabled());
    press(Qt::Key_F7);
    QCoreApplication::processEvents();
    QCOMPARE(session->takeLog().filter(u"Error"_s), QStringList());
}

void tst_BuildMenu::onlyAddingIsPossibleWithoutAConfiguration()
{
    QCOMPARE(enabled(), QStringList({u"buildClean"_s, u"buildAdd"_s}));
    QVERIFY(addCounting());
    QCOMPARE(enabled(),
             QStringList({u"buildOutdated"_s, u"buildAll"_s, u"buildRefresh"_s, u"buildClean"_s,
                          u"buildEdit"_s, u"buildAdd"_s, u"buildRemove"_s}));
    QCOMPARE(action("buildOutdated")->text(), u"&Build \"Main\" of \"d\""_s);
}

void tst_BuildMenu::f7RunsWhatIsOutdated()
{
    const BuildConfiguration *main = addCounting();
    QVERIFY(main);
    press(Qt::Key_F7);
    QTRY_COMPARE(main->runState(), BuildConfiguration::Completed);
    QCOMPARE(journal(), QByteArray("x\n"));
    session->takeLog();
    press(Qt::Key_F7);
    QStringList log;
    QTRY_VERIFY(!(log += session->takeLog()).filter(u"up to date"_s).isEmpty());
    QCOMPARE(log, QStringList(u"Info: The build \"Main\" of design \"d\" is up to date"_s));
    QCOMPARE(journal(), QByteArray("x\n"));
}

void tst_BuildMenu::runsAllSteps()
{
    const BuildConfiguration *main = addCounting();
    QVERIFY(main);
    press(Qt::Key_F7, Qt::ShiftModifier);
    QTRY_COMPARE(journal(), QByteArray("x\n"));
    QTRY_COMPARE(main->runState(), BuildConfiguration::Completed);
    choose("buildAll");
    QTRY_COMPARE(journal(), QByteArray("x\nx\n"));
    QTRY_COMPARE(main->runState(), BuildConfiguration::Completed);
}

void tst_BuildMenu::refreshes()
{
    const BuildConfiguration *main = addCounting();
    QVERIFY(main);
    choose("buildRefresh");
    QTRY_COMPARE(main->outdatedStepNames(), QStringList(u"count"_s));
    QCOMPARE(journal(), QByteArray());
}

void tst_BuildMenu::activatesAConfiguration()
{
    QVERIFY(addCounting());
    BuildConfiguration *other = add(u"This & that"_s, {});
    QVERIFY(other);
    auto *list = window->findChild<QMenu *>(u"buildConfigurations"_s);
    list->popup(window->mapToGlobal(QPoint(0, 40)));
    QCOMPARE(list->actions().size(), 2);
    QVERIFY(list->actions()[0]->isChecked());
    QCOMPARE(list->actions()[1]->text(), u"This && that"_s);
    QTest::mouseClick(list, Qt::LeftButton, {}, list->actionGeometry(list->actions()[1]).center());
    QTRY_COMPARE(design->activeBuildConfiguration(), other);
    QCOMPARE(action("buildOutdated")->text(), u"&Build \"This && that\" of \"d\""_s);
}

void tst_BuildMenu::cancelsARunningBuild()
{
    const BuildConfiguration *main = add(u"Main"_s, {{u"long"_s, u"sleep 1000"_s, {}, {}}});
    QVERIFY(main);
    QStringList meanwhile;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (main->runState() != BuildConfiguration::Running)
            return;
        poll.stop();
        meanwhile = enabled();
        press(Qt::Key_Pause, Qt::ControlModifier);
    });
    poll.start(5);
    press(Qt::Key_F7);
    QTRY_COMPARE(main->runState(), BuildConfiguration::Cancelled);
    QCOMPARE(meanwhile, QStringList({u"buildCancel"_s, u"buildEdit"_s, u"buildAdd"_s}));
    QVERIFY(!action("buildCancel")->isEnabled());
}

// Of a command that waits, an F7 builds nothing, and the command goes on undisturbed.
void tst_BuildMenu::isRefusedWhileACommandRuns()
{
    const BuildConfiguration *main = addCounting();
    QVERIFY(main);
    qRegisterMetaType<Logger::MessageType>();
    QSignalSpy told(Logger::instance(), &Logger::priorityMessage);
    QTimer::singleShot(20, this, [this] { press(Qt::Key_F7); });
    QString result;
    QVERIFY(QtclConsole::getInstance(nullptr, {})
                ->execCommand(u"after 300 {set ::done 1}; vwait ::done; set ::done"_s, true, true,
                              &result));
    QCOMPARE(result, u"1"_s);
    QCOMPARE(told.size(), 1);
    QCOMPARE(told[0][1].toString(),
             u"Command cannot be executed! The console is running another one."_s);
    QCoreApplication::processEvents();
    QCOMPARE(main->runState(), BuildConfiguration::Idle);
    QCOMPARE(journal(), QByteArray());
    press(Qt::Key_F7);
    QTRY_COMPARE(main->runState(), BuildConfiguration::Completed);
}

void tst_BuildMenu::cleansWhatBuildsMade_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isThere");
    QTest::newRow("clean-1 agreed") << u"&Delete for Good"_s << false;
    QTest::newRow("clean-2 not agreed") << u"Cancel"_s << true;
}

void tst_BuildMenu::cleansWhatBuildsMade()
{
    QFETCH(const QString, button);
    QFETCH(const bool, isThere);
    BuildConfiguration *main = addCounting();
    QVERIFY(main && main->run(true, false));
    QString asked;
    answerBox(button, &asked);
    choose("buildClean");
    QCOMPARE(asked,
             u"Delete these generated files from disk, for good, and from the design?|"_s
                 + session->designs(u"d/o"_s));
    QCOMPARE(QFile::exists(session->designs(u"d/o"_s)), isThere);
    QVERIFY(QFile::exists(session->designs(u"d/journal"_s)));
}

void tst_BuildMenu::edits()
{
    QVERIFY(addCounting());
    QSignalSpy wanted(menu, &BuildMenu::configurationActivated);
    choose("buildEdit");
    QCOMPARE(wanted, QList<QVariantList>({{design->id(u"."_s), u"Main"_s}}));
}

void tst_BuildMenu::addsAConfiguration()
{
    QSignalSpy wanted(menu, &BuildMenu::configurationActivated);
    QTimer::singleShot(50, this, [] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"New one"_s);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    choose("buildAdd");
    QCOMPARE(design->buildConfigurationNames(), QStringList(u"New one"_s));
    QCOMPARE(wanted, QList<QVariantList>({{design->id(u"."_s), u"New one"_s}}));
}

void tst_BuildMenu::removesAConfiguration_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("remove-1 agreed") << u"&Remove"_s << QStringList();
    QTest::newRow("remove-2 not agreed") << u"Cancel"_s << QStringList(u"Main"_s);
}

void tst_BuildMenu::removesAConfiguration()
{
    QFETCH(const QString, button);
    QFETCH(const QStringList, left);
    QVERIFY(addCounting());
    QString asked;
    answerBox(button, &asked);
    choose("buildRemove");
    QCOMPARE(asked,
             u"Remove the build configuration \"Main\" from the design \"d\"?|What builds "
             u"have made stays on disk."_s);
    QCOMPARE(design->buildConfigurationNames(), left);
}

void tst_BuildMenu::isDisabledForAReadOnlyDesign()
{
    QVERIFY(addCounting());
    design->setReadOnly(true);
    QCOMPARE(enabled(),
             QStringList({u"buildOutdated"_s, u"buildAll"_s, u"buildRefresh"_s, u"buildEdit"_s}));
}

TEST_CLASS(tst_BuildMenu)
#include "tst_BuildMenu.moc"
