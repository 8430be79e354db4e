// What arrives while something runs comes when docs/running-scripts.md says: its table is the data.

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "tests/reentrancy/buildingcomponent.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/ChangeBracket.h>
#include <MorvalenCore/ScriptManager.h>

#include <QEventLoop>
#include <QMessageBox>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::ChangeBracket;

namespace {

// Once something has arrived, what runs goes on for so many turns of Qt's timers.
constexpr int turnsMeanwhile = 5;

const QString document = QStringLiteral(SOURCE_DIR "/docs/running-scripts.md");
const QString tableHead = u"| while this runs |"_s;

// The rows of the table, head first, as the texts of their cells.
QList<QStringList> table()
{
    QList<QStringList> rows;
    bool inside = false;
    for (const QString &line : QString::fromUtf8(Story::read(document)).split(u'\n')) {
        inside = line.startsWith(tableHead) || (inside && line.startsWith(u'|'));
        if (!inside || line.startsWith(u"|--"_s))
            continue;
        QStringList cells = line.split(u'|').sliced(1);
        cells.removeLast();
        for (QString &cell : cells)
            cell = cell.trimmed();
        rows.append(cells);
    }
    return rows;
}

} // namespace

class tst_Arrivals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void comesWhenTheDocumentSays_data();
    void comesWhenTheDocumentSays();

private:
    // The ways to arrive, and the things that run, by the names that the table has.
    QMap<QString, std::function<void()>> arrivals;
    QMap<QString, std::function<void()>> runs;

    void addArrivals();
    void addRuns();
    void evaluate(const char *script) const;
    void runScript(const QString &script) { console().execCommand(script, true, true, nullptr); }
    void runInEvent(const QByteArray &script) const;
    void executeAction(const QString &file);
    void showDialog();
    void holdBracket();
    void launch();
    void turn();
    QtclConsole &console() const { return story->console(); }

    static int launchCommand(void *self, Tcl_Interp *, int, const char **);
    static int mayEndCommand(void *self, Tcl_Interp *interp, int, const char **);
    static int noteCommand(void *self, Tcl_Interp *, int argc, const char **argv);

    std::unique_ptr<Story> story;
    Tcl_Interp *interp = nullptr;
    QString component;
    std::function<void()> arrive;
    QTimer turns;
    int turnsLeft = 0;
    bool mayEnd = false;
    QStringList order;
};

void tst_Arrivals::initTestCase()
{
    story = std::make_unique<Story>();
    commandsManager *registry = commandsManager::getInstance(nullptr);
    interp = registry->interp;
    registry->registerFunction("launch", launchCommand, "lets something arrive", this);
    registry->registerFunction("may_end", mayEndCommand, "whether that was long ago", this);
    registry->registerFunction("note", noteCommand, "notes what happens", this);
    QVERIFY(QDir().mkpath(story->path(u"d"_s)));
    component = story->path(u"d/component.xml"_s);
    Story::write(component, buildingComponent("waits", "while [ ! -e go ]; do sleep 0.01; done"));
    Story::write(story->path(u"arrives.tcl"_s), "note served");
    Story::write(story->path(u"runs.tcl"_s), "launch; vwait released; note ended");
    turns.setInterval(10);
    connect(&turns, &QTimer::timeout, this, &tst_Arrivals::turn);
    addArrivals();
    addRuns();
}

void tst_Arrivals::cleanupTestCase()
{
    turns.disconnect();
    story.reset();
}

void tst_Arrivals::init()
{
    order.clear();
    mayEnd = false;
    QFile::remove(story->path(u"d/go"_s));
    evaluate(("designs add {" + component.toUtf8() + "}").constData());
}

// Whatever has come, all is as it was.
void tst_Arrivals::cleanup()
{
    turns.stop();
    evaluate("foreach id [after info] {after cancel $id}");
    evaluate("foreach id [designs list] {designs close $id}");
    QCoreApplication::processEvents();
    QCOMPARE(ChangeBracket::instance()->depth(), 0);
    QCOMPARE(Tcl_GetServiceMode(), TCL_SERVICE_ALL);
    QString text;
    QVERIFY(console().execCommand(u"set still alive"_s, false, true, &text));
    QCOMPARE(text, u"alive"_s);
}

void tst_Arrivals::evaluate(const char *script) const
{
    if (Tcl_EvalEx(interp, script, -1, TCL_EVAL_GLOBAL) != TCL_OK)
        qFatal("%s: %s", script, Tcl_GetStringResult(interp));
}

void tst_Arrivals::addArrivals()
{
    arrivals[u"`after`"_s] = [this] { evaluate("after 0 {note served}"); };
    arrivals[u"`fileevent`"_s] = [this] {
        evaluate("lassign [chan pipe] ::r ::w; fconfigure $::w -blocking 0 -buffering none\n"
                 "fileevent $::r readable {close $::r; close $::w; note served}\n"
                 "puts $::w x");
    };
    arrivals[u"a scripted action"_s] = [this] {
        QTimer::singleShot(0, this, [this] { executeAction(u"arrives.tcl"_s); });
    };
    arrivals[u"a command for the console"_s] = [this] {
        QTimer::singleShot(0, this, [this] {
            QString text;
            console().execCommand(u"note served"_s, false, false, &text);
            if (text == u"Command cannot be executed!")
                order.append(u"refused"_s);
        });
    };
}

void tst_Arrivals::addRuns()
{
    runs[u"nothing"_s] = [this] {
        launch();
        QTRY_VERIFY(mayEnd);
        order.append(u"ended"_s);
    };
    runs[u"a script"_s] = [this] { runScript(u"launch; while {![may_end]} {}; note ended"_s); };
    runs[u"a script in `after 10`"_s] = [this] {
        runScript(u"launch; while {![may_end]} {after 10}; note ended"_s);
    };
    runs[u"a script in `gets`"_s] = [this] {
        runScript(u"launch; while {![may_end]} {set p [open {|sh -c {sleep .1; echo}}]; gets $p; "
                  "close $p}; note ended"_s);
    };
    runs[u"a script in `update`"_s] = [this] {
        runScript(u"launch; while {![may_end]} {update}; note ended"_s);
    };
    runs[u"a script in `vwait`"_s] = [this] { runScript(u"launch; vwait released; note ended"_s); };
    runs[u"a script in `build run`"_s] = [this] { runScript(u"launch; build run; note ended"_s); };
    runs[u"a scripted action in `vwait`"_s] = [this] { executeAction(u"runs.tcl"_s); };
    runs[u"an event"_s] = [this] { runInEvent("launch; while {![may_end]} {}; note ended"); };
    runs[u"an event in `vwait`"_s] = [this] { runInEvent("launch; vwait released; note ended"); };
    runs[u"an event in `build run`"_s] = [this] { runInEvent("launch; build run; note ended"); };
    runs[u"a dialog"_s] = [this] { showDialog(); };
    runs[u"a bracket, in an event loop"_s] = [this] { holdBracket(); };
}

void tst_Arrivals::runInEvent(const QByteArray &script) const
{
    evaluate(("after 0 {" + script + "}").constData());
    QTRY_VERIFY(order.contains(u"ended"_s));
}

void tst_Arrivals::executeAction(const QString &file)
{
    const std::unique_ptr<AbstractScriptedAction> action(
        MorvalenCore::ScriptManager::instance()->createAction(u"text/x-tcl"_s, story->path(file)));
    QVERIFY(action);
    action->setShowExecutionLog(false);
    const qsizetype before = order.size();
    bool ok = false;
    action->execute(&ok, nullptr);
    QVERIFY(ok);
    if (order.size() == before)
        order.append(u"refused"_s);
}

void tst_Arrivals::showDialog()
{
    QMessageBox box(&story->window());
    QTimer closing;
    closing.callOnTimeout([&] {
        if (mayEnd)
            box.reject();
    });
    closing.start(5);
    launch();
    box.exec();
    order.append(u"ended"_s);
}

void tst_Arrivals::holdBracket()
{
    ChangeBracket::instance()->open();
    launch();
    QTRY_VERIFY(mayEnd);
    order.append(u"ended"_s);
    ChangeBracket::instance()->close();
}

// Turns of Qt's timers come in every event loop, and in the passes of a window that is kept alive.
void tst_Arrivals::launch()
{
    arrive();
    turnsLeft = turnsMeanwhile;
    turns.start();
}

void tst_Arrivals::turn()
{
    if (--turnsLeft > 0)
        return;
    turns.stop();
    mayEnd = true;
    Tcl_SetVar(interp, "released", "1", TCL_GLOBAL_ONLY);
    Story::write(story->path(u"d/go"_s), {});
}

int tst_Arrivals::launchCommand(void *self, Tcl_Interp *, int, const char **)
{
    static_cast<tst_Arrivals *>(self)->launch();
    return TCL_OK;
}

int tst_Arrivals::mayEndCommand(void *self, Tcl_Interp *interp, int, const char **)
{
    Tcl_SetObjResult(interp, Tcl_NewBooleanObj(static_cast<tst_Arrivals *>(self)->mayEnd));
    return TCL_OK;
}

int tst_Arrivals::noteCommand(void *self, Tcl_Interp *, int argc, const char **argv)
{
    if (argc > 1)
        static_cast<tst_Arrivals *>(self)->order.append(QString::fromUtf8(argv[1]));
    return TCL_OK;
}

void tst_Arrivals::comesWhenTheDocumentSays_data()
{
    QTest::addColumn<QString>("running");
    QTest::addColumn<QString>("arriving");
    QTest::addColumn<QString>("due");
    const QList<QStringList> rows = table();
    QCOMPARE(rows.size(), runs.size() + 1);
    QCOMPARE(rows.first().size(), arrivals.size() + 1);
    for (const QStringList &row : rows.sliced(1)) {
        for (qsizetype column = 1; column < row.size(); ++column) {
            const QString arriving = rows.first().value(column);
            QTest::addRow("while %s runs, %s", qPrintable(row.first()), qPrintable(arriving))
                << row.first() << arriving << row[column];
        }
    }
}

void tst_Arrivals::comesWhenTheDocumentSays()
{
    QFETCH(const QString, running);
    QFETCH(const QString, arriving);
    QFETCH(const QString, due);
    QVERIFY2(runs.contains(running), qPrintable(running));
    QVERIFY2(arrivals.contains(arriving), qPrintable(arriving));
    arrive = arrivals[arriving];
    runs[running]();
    QTRY_VERIFY(order.size() > 1);
    const QMap<QString, QStringList> orders {{u"at once"_s, {u"served"_s, u"ended"_s}},
                                             {u"afterwards"_s, {u"ended"_s, u"served"_s}},
                                             {u"refused"_s, {u"refused"_s, u"ended"_s}}};
    QCOMPARE(order, orders.value(due));
}

TEST_CLASS(tst_Arrivals)
#include "tst_Arrivals.moc"
