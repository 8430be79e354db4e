#include "app/builds/BuildProgress.h"
#include "app/Translation.h"
#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Counts how often it is painted.
class Painted : public QWidget
{
public:
    int count = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++count; }
};

} // namespace

// The progress of builds in a status bar, with real builds.
class tst_BuildProgress : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isHiddenWithoutABuild();
    void showsStepsDoneOfStepsToDo();
    void saysHowItEnded_data();
    void saysHowItEnded();
    void cancels();
    void letsTheWindowRepaint();
    void endsWithItsDesign();

private:
    BuildConfiguration *add(const QString &name, const QList<BuildStep> &steps)
    {
        BuildConfiguration *added = design->addBuildConfiguration(name, &error);
        return added && added->setDescription({name, {}, {}, steps}, &error) ? added : nullptr;
    }
    template <typename T>
    T *child(const char *name = "") const
    {
        return progress->findChild<T *>(QLatin1StringView(name));
    }
    QString text(const char *name) const { return child<QLabel>(name)->text(); }

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
    std::unique_ptr<QMainWindow> window;
    Painted *painted = nullptr;
    BuildProgress *progress = nullptr;
    QString error;
};

void tst_BuildProgress::init()
{
    session = std::make_unique<SessionFixture>();
    design = session->create(u"d"_s);
    window = std::make_unique<QMainWindow>();
    painted = new Painted;
    window->setCentralWidget(painted);
    progress = new BuildProgress;
    window->statusBar()->addPermanentWidget(progress);
    progress->hide();
    window->resize(900, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get(), patient()));
}

void tst_BuildProgress::cleanup()
{
    session.reset();
    window.reset();
}

void tst_BuildProgress::isHiddenWithoutABuild() { QVERIFY(!progress->isVisible()); }

void tst_BuildProgress::showsStepsDoneOfStepsToDo()
{
    const QString wait = u"while [ ! -e go ]; do sleep 0.01; done; touch $(OUTPUTS)"_s;
    BuildConfiguration *main = add(u"Main"_s,
                                   {{u"first"_s, u"touch $(OUTPUTS)"_s, {}, {u"a"_s}},
                                    {u"second one"_s, wait, {u"a"_s}, {u"b"_s}}});
    QVERIFY(main);
    QString seen;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        // The one that runs, and for how long; not the one that has ended.
        static const QRegularExpression running(u"^second one \\([0-9]+ s\\)$"_s);
        if (!running.match(text("buildStep")).hasMatch())
            return;
        const auto *bar = child<QProgressBar>();
        seen = u"%1 %2/%3 %4"_s.arg(text("buildTitle"))
                   .arg(bar->value())
                   .arg(bar->maximum())
                   .arg(progress->isVisible() && child<QToolButton>()->isVisible());
        poll.stop();
        SessionFixture::write(session->designs(u"d/go"_s), "");
    });
    poll.start(5);
    QVERIFY(main->run(true, false));
    QCOMPARE(seen, u"d: Main 1/2 1"_s);
}

void tst_BuildProgress::saysHowItEnded_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("language");
    QTest::newRow("end-1") << u"true"_s << u"Completed"_s << u"C"_s;
    QTest::newRow("end-2") << u"false"_s << u"Failed"_s << u"C"_s;
    QTest::newRow("end-3 in German") << u"true"_s << u"Fertig"_s << u"de"_s;
    QTest::newRow("end-4 in German") << u"false"_s << u"Fehlgeschlagen"_s << u"de"_s;
}

void tst_BuildProgress::saysHowItEnded()
{
    QFETCH(const QString, command);
    QFETCH(const QString, state);
    QFETCH(const QString, language);
    const Translation translation({language});
    NEEDS(language != u"de"_s || translation.language() == language,
          "lrelease, when the program was built,", "qt6-l10n-tools");
    progress->setEndTime(50);
    BuildConfiguration *main = add(u"Main"_s, {{u"only"_s, command, {}, {}}});
    QVERIFY(main);
    main->run(true, false);
    QVERIFY(progress->isVisible());
    QCOMPARE(text("buildTitle"), u"d: Main"_s);
    QCOMPARE(text("buildStep"), state);
    QVERIFY(!child<QProgressBar>()->isVisible());
    QVERIFY(!child<QToolButton>()->isVisible());
    QTRY_VERIFY(!progress->isVisible());
}

void tst_BuildProgress::cancels()
{
    BuildConfiguration *main = add(u"Main"_s, {{u"long"_s, u"sleep 1000"_s, {}, {}}});
    QVERIFY(main);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (text("buildStep").startsWith(u"long ("_s)
            && main->runState() == BuildConfiguration::Running)
            QTest::mouseClick(child<QToolButton>(), Qt::LeftButton);
    });
    poll.start(5);
    QVERIFY(!main->run(true, false));
    QCOMPARE(main->runState(), BuildConfiguration::Cancelled);
    QCOMPARE(text("buildStep"), u"Cancelled"_s);
}

void tst_BuildProgress::letsTheWindowRepaint()
{
    BuildConfiguration *main =
        add(u"Main"_s, {{u"slow"_s, u"while [ ! -e go ]; do sleep 0.01; done"_s, {}, {}}});
    QVERIFY(main);
    painted->count = 0;
    QTimer updating;
    connect(&updating, &QTimer::timeout, painted, [&] {
        painted->update();
        if (painted->count >= 10)
            SessionFixture::write(session->designs(u"d/go"_s), "");
    });
    updating.start(5);
    QVERIFY(main->run(true, false));
    QVERIFY(painted->count >= 10);
}

void tst_BuildProgress::endsWithItsDesign()
{
    BuildConfiguration *main = add(u"Main"_s, {{u"long"_s, u"sleep 1000"_s, {}, {}}});
    QVERIFY(main);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&] {
        if (!text("buildStep").startsWith(u"long ("_s))
            return;
        poll.stop();
        SessionFixture::manager()->closeDesign(design->id(u"."_s), false);
    });
    poll.start(5);
    QVERIFY(!main->run(true, false));
    QVERIFY(!child<QToolButton>()->isVisible());
}

TEST_CLASS(tst_BuildProgress)
#include "tst_BuildProgress.moc"
