#include "tests/reentrancy/RandomWalk.h"

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "interp/ScriptRuns.h"
#include "tests/patience.h"
#include "tests/reentrancy/buildingcomponent.h"
#include "tests/stories/Story.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/ChangeBracket.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>

#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPointer>
#include <QTest>

#include <utility>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::AbstractScriptedAction;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::ChangeBracket;
using MorvalenCore::DesignManager;

namespace {

// So deep one thing may start within another.
constexpr int deepest = 8;
constexpr int mostActions = 4;

// A walk that has not taken a step for so long is stuck.
constexpr int longestRest = patient(10'000);

// What of the walk is Tcl: "go" takes a step, whatever comes of it.
constexpr char procedures[] =
    "proc go {} {catch {uplevel #0 [next_step]}}\n"
    "proc by_file {} {\n"
    "    lassign [chan pipe] r w\n"
    "    fconfigure $w -blocking 0 -buffering none\n"
    "    fileevent $r readable [list apply {{r w} {close $r; close $w; go}} $r $w]\n"
    "    puts $w x\n"
    "}\n"
    "proc wait {milliseconds} {\n"
    "    set name ::wait[incr ::waits]\n"
    "    after $milliseconds [list set $name 1]\n"
    "    vwait $name\n"
    "    unset $name\n"
    "}\n"
    "proc any {} {set ids [designs list]; lindex $ids [expr {int(rand() * [llength $ids])}]}\n";

} // namespace

RandomWalk::RandomWalk(Story &theStory, quint32 seed)
    : story(theStory),
      interp(commandsManager::getInstance(nullptr)->interp),
      random(seed)
{
    commandsManager::getInstance(nullptr)->registerFunction("next_step", step, "a step", this);
    Tcl_Eval(interp, procedures);
    Tcl_Eval(interp, ("expr {srand(" + QByteArray::number(seed + 1) + ")}").constData());
    for (const char *name : {"one", "two", "three"}) {
        const QString folder = story.path(QString::fromLatin1(name));
        QDir().mkpath(folder);
        Story::write(folder + u"/component.xml"_s, buildingComponent(name, "true"));
    }
    Story::write(story.path(u"action.tcl"_s), "go; update; go");
    for (int action = 0; action < mostActions; ++action) {
        actions.emplace_back(MorvalenCore::ScriptManager::instance()->createAction(
            u"text/x-tcl"_s, story.path(u"action.tcl"_s)));
        actions.back()->setShowExecutionLog(action == 0);
    }
    connect(&watching, &QTimer::timeout, this, &RandomWalk::watch);
}

RandomWalk::~RandomWalk()
{
    commandsManager::getInstance(nullptr)->unregisterFunction("next_step");
}

QString RandomWalk::go(int steps)
{
    taken = 0;
    wanted = steps;
    watching.start(longestRest);
    QString wrong;
    while (taken < wanted && wrong.isEmpty() && stuck.isEmpty()) {
        const int before = taken;
        if (random.bounded(2))
            story.console().execCommand(u"go"_s, true, true, nullptr);
        else
            Tcl_Eval(interp, "after 0 go");
        QTest::qWait(1);
        if (taken == before || random.bounded(10) == 0)
            wrong = settle();
    }
    if (wrong.isEmpty())
        wrong = settle();
    watching.stop();
    return stuck.isEmpty() ? wrong : stuck;
}

// Says what waits, and stops it: nothing else would end it.
void RandomWalk::watch()
{
    if (std::exchange(seen, taken) != taken)
        return;
    if (stuck.isEmpty()) {
        int code = TCL_OK;
        stuck = u"nothing goes on: "_s
            + evaluate("list waits [info vars ::wait*] after [after info] level [info level]",
                       &code);
    }
    ScriptRuns::instance()->stop();
}

int RandomWalk::step(void *self, Tcl_Interp *current, int, const char **)
{
    auto *walk = static_cast<RandomWalk *>(self);
    const QByteArray script = walk->nextScript();
    Tcl_SetObjResult(current, Tcl_NewStringObj(script.constData(), int(script.size())));
    return TCL_OK;
}

QByteArray RandomWalk::nextScript()
{
    if (taken >= wanted)
        return {};
    ++taken;
    outside();
    QByteArray script = arrival() + '\n';
    if (depth < deepest && random.bounded(3) == 0)
        script += waitingScript();
    else
        script += designScript();
    return script;
}

QByteArray RandomWalk::arrival()
{
    return one({"after " + QByteArray::number(random.bounded(4)) + " go", "by_file",
                "after idle go", "after 0 go; by_file", "", ""});
}

// Ends after a while, with whatever has come until then.
QByteArray RandomWalk::waitingScript()
{
    return one({"wait " + QByteArray::number(random.bounded(10)), "update", "update idletasks",
                "after 3", "build run", "build run true", "build refresh", "morvalen build -all",
                "morvalen build -dry", "for {set i 0} {$i < 5000} {incr i} {set x $i}",
                "go; update",
                "interp create child; catch {child eval {after 0 {set v 1}; vwait v}}; "
                "interp delete child"});
}

QByteArray RandomWalk::designScript()
{
    const QByteArray name = one({"one", "two", "three"});
    const QByteArray file =
        QFile::encodeName(story.path(QString::fromLatin1(name))) + "/component.xml";
    return one({"designs add {" + file + "}",
                "designs add {" + file + "}",
                "designs new d[incr ::made]",
                "designs close [any]",
                "designs close [any] true",
                "designs set_active [any]",
                "designs close_all",
                "files add f[incr ::made].v",
                "files set_active [lindex [files list] 0]",
                "files remove [lindex [files list] 0]",
                "files remove_all",
                "folders add sub",
                "folders delete sub",
                "properties set p int 5",
                "sfile property set k string v",
                "design set description [clock milliseconds]",
                "design save",
                "design proc_cycle start",
                "design proc_cycle end",
                "design clean",
                "design assign_physical_wfp",
                "morvalen design reload",
                "project new",
                "project save {" + QFile::encodeName(story.path(u"p.mvproject"_s)) + "}",
                "project open {" + QFile::encodeName(story.path(u"p.mvproject"_s)) + "}",
                "project close",
                "overview",
                "help",
                "history",
                "puts [overview]",
                "log x warning",
                "save_script {" + QFile::encodeName(story.path(u"saved.tcl"_s)) + "}",
                "error on_purpose"});
}

// What comes from Qt's side, where Qt's events come.
void RandomWalk::outside()
{
    switch (random.bounded(12)) {
    case 0:
        QTimer::singleShot(0, this, [this] {
            if (depth < deepest)
                story.console().execCommand(u"go"_s, random.bounded(2), true, nullptr);
        });
        break;
    case 1:
        QTimer::singleShot(0, this, &RandomWalk::executeAction);
        break;
    case 2:
        QTimer::singleShot(0, this, &RandomWalk::openDialog);
        break;
    case 3:
        QTimer::singleShot(random.bounded(5), this, [] {
            for (BuildConfiguration *configuration : BuildMonitor::instance()->running())
                configuration->cancel();
        });
        break;
    case 4:
        if (random.bounded(20) == 0)
            QTimer::singleShot(5, this, [] { ScriptRuns::instance()->stop(); });
        break;
    case 5:
        ChangeBracket::instance()->open();
        break;
    case 6:
        ChangeBracket::instance()->close();
        break;
    default:
        break;
    }
}

void RandomWalk::executeAction()
{
    if (depth >= deepest)
        return;
    ++depth;
    actions[size_t(random.bounded(mostActions))]->execute(nullptr, nullptr);
    --depth;
}

void RandomWalk::openDialog()
{
    if (depth >= deepest)
        return;
    ++depth;
    QMessageBox box(&story.window());
    QTimer::singleShot(random.bounded(10), &box, &QDialog::reject);
    box.exec();
    --depth;
}

QString RandomWalk::evaluate(const QByteArray &script, int *code) const
{
    *code = Tcl_EvalEx(interp, script.constData(), -1, TCL_EVAL_GLOBAL);
    return QString::fromUtf8(Tcl_GetStringResult(interp));
}

// Lets what runs come to its end, and looks whether everything is as when nothing runs.
QString RandomWalk::settle()
{
    int code = TCL_OK;
    evaluate("foreach id [after info] {after cancel $id}", &code);
    const auto rests = [] { return BuildMonitor::instance()->running().isEmpty(); };
    if (!QTest::qWaitFor(rests, 60'000))
        return u"a build does not end"_s;
    QTest::qWait(20);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (ChangeBracket::instance()->depth() != 0)
        return u"a bracket stays open"_s;
    if (Tcl_GetServiceMode() != TCL_SERVICE_ALL)
        return u"Tcl serves no events"_s;
    if (ScriptRuns::instance()->isRunning())
        return u"something counts as running"_s;
    QString text;
    if (!story.console().execCommand(u"set still alive"_s, false, true, &text) || text != u"alive")
        return u"the console answers \"%1\""_s.arg(text);
    for (const QString &id : DesignManager::instance()->openDesignIds()) {
        const auto *design = DesignManager::instance()->design(id);
        if (!design || design->id(u"."_s) != id)
            return u"the design \"%1\" is not the one of its id"_s.arg(id);
    }
    evaluate("catch {design proc_cycle end}; foreach id [designs list] {designs close $id}", &code);
    if (!DesignManager::instance()->openDesignIds().isEmpty())
        return u"a design cannot be closed: "_s
            + DesignManager::instance()->openDesignIds().join(u' ');
    story.console().clear();
    return {};
}
