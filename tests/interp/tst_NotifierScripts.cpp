#include "interp/commandsManager.h"
#include "interp/NotifierState.h"
#include "interp/QtNotifier.h"
#include "interp/tcltext.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// A script that ends by calling "finish", after which "answer" holds what it found.
struct Scenario
{
    const char *name;
    const char *script;
    const char *answer;
};

constexpr Scenario scenarios[] = {
    {"timer-after-1 after 0 runs", "after 0 {lappend answer zero; finish}", "zero"},
    {"timer-after-2 after 20 runs", "after 20 {lappend answer twenty; finish}", "twenty"},
    {"timer-after-3 timers run in the order of their times",
     "after 60 {lappend answer c; finish}; after 40 {lappend answer b}; after 0 {lappend answer a}",
     "a b c"},
    {"timer-after-4 timers of one time run in the order of their making",
     "foreach x {a b c d} {after 10 [list lappend answer $x]}; after 10 finish", "a b c d"},
    {"timer-after-5 a cancelled timer does not run",
     "set id [after 10 {lappend answer wrong}]; after cancel $id; after 30 finish", ""},
    {"timer-after-6 a chain of 2,000 timers of 0 ms",
     "proc step n {if {$n == 0} {set ::answer done; finish} else {after 0 step [expr {$n - 1}]}}; "
     "step 2000",
     "done"},
    {"timer-after-7 a timer restarts itself",
     "proc tick {} {if {[llength [lappend ::answer x]] < 5} {after 5 tick} else finish}; after 5 "
     "tick",
     "x x x x x"},
    {"timer-after-8 a timer of four weeks does not disturb a short one",
     "set id [after 2419200000 {lappend answer wrong}]; "
     "after 20 {lappend answer short; after cancel $id; finish}",
     "short"},
    {"timer-after-9 a timer of 300 years does not disturb a short one",
     "set id [after 9460800000000 {lappend answer wrong}]; "
     "after 20 {lappend answer short; after cancel $id; finish}",
     "short"},
    {"timer-after-10 nothing runs before its time",
     "set start [clock milliseconds]; "
     "after 50 {set answer [expr {[clock milliseconds] - $start >= 50}]; finish}",
     "1"},
    {"timer-idle-1 an idle callback runs", "after idle {lappend answer idle; finish}", "idle"},
    {"timer-idle-2 idle callbacks run in order",
     "after idle {lappend answer a}; after idle {lappend answer b}; after idle finish", "a b"},
    {"timer-idle-3 a chain of 1,000 idle callbacks",
     "proc step n {if {$n == 0} {set ::answer done; finish} else "
     "{after 0 [list after idle [list step [expr {$n - 1}]]]}}; step 1000",
     "done"},
    {"timer-idle-4 an idle callback waits for a due timer",
     "after 0 {lappend answer timer}; after idle {lappend answer idle; finish}", "timer idle"},
    {"error-timer-1 an error in a timer reaches bgerror and the next timer runs",
     "proc bgerror text {lappend ::answer $text; after 0 {lappend answer next; finish}}; "
     "after 0 {error oops}",
     "oops next"},
    {"error-file-1 an error in a file handler reaches bgerror and ends the handler",
     "proc bgerror text {lappend ::answer $text [fileevent $::r readable]; close $::r; "
     "close $::w; finish}; lassign [chan pipe] r w; fileevent $r readable {error broken}; "
     "puts $w x; flush $w",
     "broken {}"},
    {"pipe-read-1 a line through a pipe",
     "lassign [chan pipe] r w; fconfigure $w -buffering line; "
     "fileevent $r readable {gets $r answer; close $r; close $w; finish}; after 5 {puts $w hello}",
     "hello"},
    {"pipe-read-2 the end of a pipe is seen",
     "lassign [chan pipe] r w; puts $w last; close $w; fileevent $r readable "
     "{if {[gets $r line] < 0} {lappend answer [eof $r]; close $r; finish} else {lappend answer "
     "$line}}",
     "last 1"},
    {"pipe-read-3 a megabyte through a pipe without blocking",
     "lassign [chan pipe] r w; fconfigure $w -blocking 0 -translation binary; "
     "fconfigure $r -blocking 0 -translation binary; puts -nonewline $w [string repeat x 1000000]; "
     "close $w; set answer 0; fileevent $r readable "
     "{incr answer [string length [read $r]]; if {[eof $r]} {close $r; finish}}",
     "1000000"},
    {"pipe-copy-1 fcopy in the background",
     "lassign [chan pipe] r w; lassign [chan pipe] r2 w2; puts -nonewline $w [string repeat y "
     "50000]; "
     "close $w; fconfigure $r2 -blocking 0; set got {}; "
     "proc copied n {lappend ::answer $n; close $::w2}; "
     "fcopy $r $w2 -command copied; fileevent $r2 readable "
     "{append got [read $r2]; if {[eof $r2]} {lappend answer [string length $got]; finish}}",
     "50000 50000"},
    {"pipe-child-1 a child answers line by line",
     "set f [open |cat r+]; fconfigure $f -blocking 0 -buffering line; "
     "fileevent $f readable {if {[gets $f line] >= 0} {lappend answer $line; "
     "if {$line eq {three}} {close $f; finish}}}; foreach x {one two three} {puts $f $x}",
     "one two three"},
    {"pipe-child-2 the end and the exit status of a child",
     "set f [open {|sh -c {echo out; exit 3}}]; fconfigure $f -blocking 0; "
     "fileevent $f readable {if {[gets $f line] >= 0} {lappend answer $line} elseif {[eof $f]} "
     "{fconfigure $f -blocking 1; catch {close $f} - options; "
     "lappend answer [lindex [dict get $options -errorcode] 2]; finish}}",
     "out 3"},
    {"pipe-child-3 a child in the background",
     "set name [file join $folder made]; exec sh -c {sleep 0.05; echo x > \"$0\"} $name &; "
     "proc look {} {if {[file exists $::name]} {set ::answer made; file delete $::name; finish} "
     "else {after 5 look}}; look",
     "made"},
    {"file-plain-1 a plain file is always ready",
     "set f [open [file join $folder plain] w+]; puts $f text; seek $f 0; "
     "fileevent $f readable {gets $f answer; close $f; finish}",
     "text"},
    {"file-self-1 a handler removes itself in its callback",
     "lassign [chan pipe] r w; puts $w a; puts $w b; flush $w; fileevent $r readable "
     "{lappend answer [gets $r]; fileevent $r readable {}; after 20 {close $r; close $w; finish}}",
     "a"},
    {"file-self-2 a handler closes its channel in its callback",
     "lassign [chan pipe] r w; puts $w a; flush $w; "
     "fileevent $r readable {close $r; close $w; lappend answer closed; after 20 finish}",
     "closed"},
    {"file-self-3 a handler closes the other ready channel",
     "set n 0; lassign [chan pipe] r1 w1; lassign [chan pipe] r2 w2; "
     "proc one {mine other} {incr ::n; close $other; fileevent $mine readable {}}; "
     "fileevent $r1 readable {one $r1 $r2}; fileevent $r2 readable {one $r2 $r1}; "
     "puts $w1 x; puts $w2 x; flush $w1; flush $w2; after 50 {set answer $n; finish}",
     "1"},
    {"file-self-4 a handler deletes its interpreter",
     "set slave [interp create]; interp alias $slave gone {} apply "
     "{{} {interp delete $::slave; lappend ::answer gone; after 20 finish}}; "
     "$slave eval {lassign [chan pipe] r w; puts $w a; flush $w; fileevent $r readable gone}",
     "gone"},
    {"file-self-5 a timer deletes its interpreter",
     "set slave [interp create]; interp alias $slave gone {} apply "
     "{{} {interp delete $::slave; lappend ::answer gone; after 20 finish}}; "
     "$slave eval {after 0 gone; after 5 gone}",
     "gone"},
    {"file-self-6 a descriptor is used again by the next channel",
     "proc again n {lassign [chan pipe] ::r ::w; puts $::w $n; flush $::w; "
     "fileevent $::r readable [list taken $n]}; "
     "proc taken n {lappend ::answer [gets $::r]; close $::r; close $::w; "
     "if {$n < 5} {again [expr {$n + 1}]} else finish}; again 1",
     "1 2 3 4 5"},
    {"socket-echo-1 a server and a client",
     "proc accept {c args} {fconfigure $c -blocking 0 -buffering line; "
     "fileevent $c readable [list echo $c]}; "
     "proc echo c {if {[gets $c line] >= 0} {puts $c <$line>} elseif {[eof $c]} {close $c}}; "
     "set s [socket -server accept -myaddr 127.0.0.1 0]; "
     "set c [socket 127.0.0.1 [lindex [fconfigure $s -sockname] 2]]; "
     "fconfigure $c -blocking 0 -buffering line; fileevent $c readable {if {[gets $c line] >= 0} "
     "{lappend answer $line; if {[llength $answer] == 3} {close $c; close $s; finish} else "
     "{puts $c next}}}; puts $c first",
     "<first> <next> <next>"},
    {"socket-echo-2 twenty clients at once",
     "proc accept {c args} {fconfigure $c -blocking 0 -buffering line; "
     "fileevent $c readable [list echo $c]}; "
     "proc echo c {if {[gets $c line] >= 0} {puts $c $line} elseif {[eof $c]} {close $c}}; "
     "set s [socket -server accept -myaddr 127.0.0.1 0]; set answer 0; "
     "proc reply c {if {[gets $c line] >= 0} {incr ::answer $line; close $c; "
     "if {[incr ::left -1] == 0} {close $::s; finish}}}; set left 20; "
     "for {set i 1} {$i <= 20} {incr i} {set c [socket 127.0.0.1 [lindex [fconfigure $s -sockname] "
     "2]]; "
     "fconfigure $c -blocking 0 -buffering line; fileevent $c readable [list reply $c]; puts $c "
     "$i}",
     "210"},
    {"socket-async-1 an asynchronous connection becomes writable",
     "proc accept {c args} {puts $c welcome; close $c}; "
     "set s [socket -server accept -myaddr 127.0.0.1 0]; "
     "set c [socket -async 127.0.0.1 [lindex [fconfigure $s -sockname] 2]]; "
     "fileevent $c writable {fileevent $c writable {}; lappend answer [fconfigure $c -error]; "
     "fileevent $c readable {lappend answer [gets $c]; close $c; close $s; finish}}",
     "{} welcome"},
    {"socket-async-2 a refused asynchronous connection",
     "set s [socket -server list -myaddr 127.0.0.1 0]; "
     "set port [lindex [fconfigure $s -sockname] 2]; close $s; set c [socket -async 127.0.0.1 "
     "$port]; "
     "fileevent $c writable {lappend answer [fconfigure $c -error]; close $c; finish}",
     "{connection refused}"},
    {"wait-nest-1 a callback waits for an inner variable",
     "after 10 {lappend answer in; after 20 {set inner 1}; vwait inner; lappend answer out; "
     "finish}",
     "in out"},
    {"wait-nest-2 waits within waits, ten deep",
     "proc deep n {if {$n == 0} return; after 1 [list set ::v$n 1]; after 0 [list deep [expr {$n - "
     "1}]]; "
     "vwait ::v$n; lappend ::answer $n}; after 0 {deep 10; finish}",
     "1 2 3 4 5 6 7 8 9 10"},
    {"wait-nest-3 a file handler is served while another one waits",
     "lassign [chan pipe] r1 w1; lassign [chan pipe] r2 w2; foreach w [list $w1 $w2] "
     "{fconfigure $w -buffering line}; "
     "fileevent $r1 readable {gets $r1; vwait inner; lappend answer outer; finish}; "
     "fileevent $r2 readable {lappend answer [gets $r2]; set inner 1}; puts $w1 x; "
     "after 20 {puts $w2 second}",
     "second outer"},
    {"wait-rest-1 a timer that was pending when an inner wait ended still runs",
     "after 10 {set a 1}; after 60 {lappend answer late; finish}; vwait a; lappend answer waited",
     "waited late"},
    {"wait-rest-2 a file that was ready when an inner wait ended is still served",
     "lassign [chan pipe] r1 w1; lassign [chan pipe] r2 w2; "
     "fileevent $r1 readable {gets $r1; incr n; set a 1; done}; "
     "fileevent $r2 readable {gets $r2; incr n; set a 1; done}; "
     "proc done {} {if {$::n == 2} {set ::answer both; finish}}; "
     "puts $w1 x; puts $w2 x; flush $w1; flush $w2; set n 0; vwait a",
     "both"},
    {"wait-rest-3 an idle callback that was pending when an inner wait ended still runs",
     "lassign [chan pipe] r w; puts $w x; flush $w; "
     "fileevent $r readable {gets $r; after idle {lappend answer idle; finish}; set a 1}; vwait a",
     "idle"},
};

} // namespace

// What scripts see of the notifier: each scenario in both modes, under Qt's event loop and under
// "vwait".
class tst_NotifierScripts : public QObject
{
    Q_OBJECT

private:
    static int finish(void *self, Tcl_Interp *interp, int, const char **)
    {
        auto *test = static_cast<tst_NotifierScripts *>(self);
        Tcl_SetVar(interp, "finished", "1", TCL_GLOBAL_ONLY);
        test->finished = true;
        if (test->loop)
            test->loop->quit();
        return TCL_OK;
    }

    QString eval(const QByteArray &script)
    {
        const int code = Tcl_EvalEx(interp, script.constData(), -1, TCL_EVAL_GLOBAL);
        const QString answer = tcltext::result(interp);
        return code == TCL_OK ? answer : u"error: "_s + answer;
    }

    // Runs until the script calls "finish".
    void runUntilFinished(bool vwait)
    {
        if (vwait) {
            while (!finished)
                QCOMPARE(eval("vwait finished"), QString());
            return;
        }
        QEventLoop eventLoop;
        loop = &eventLoop;
        if (!finished)
            eventLoop.exec();
        loop = nullptr;
    }

    Tcl_Interp *interp = nullptr;
    QEventLoop *loop = nullptr;
    bool finished = false;
    QTemporaryDir folder;

private Q_SLOTS:
    void initTestCase()
    {
        interp = commandsManager::getInstance(nullptr)->interp;
        Qtk_InitNotifier(qApp);
        commandsManager::getInstance(nullptr)->registerFunction("finish", finish, "ends", this);
        Tcl_SetVar(interp, "folder", folder.path().toUtf8().constData(), TCL_GLOBAL_ONLY);
    }

    void init()
    {
        finished = false;
        eval("set answer {}; rename finish {}");
        commandsManager::getInstance(nullptr)->registerFunction("finish", finish, "ends", this);
    }

    void cleanup()
    {
        // Nothing that a script left behind reaches the next one.
        eval("foreach id [after info] {after cancel $id}");
        eval("foreach f [file channels] {if {![string match std* $f]} {catch {close $f}}}");
    }

    void scenario_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("resting");
        QTest::addColumn<bool>("vwait");
        for (const Scenario &row : scenarios) {
            for (const bool resting : {false, true}) {
                for (const bool vwait : {false, true}) {
                    QTest::addRow("%s, %s, %s", row.name, resting ? "resting" : "spinning",
                                  vwait ? "vwait" : "event loop")
                        << QByteArray(row.script) << QString::fromUtf8(row.answer) << resting
                        << vwait;
                }
            }
        }
    }
    void scenario()
    {
        QFETCH(QByteArray, script);
        QFETCH(bool, resting);
        QFETCH(bool, vwait);
        notifier->resting = resting;
        const QString given = eval(script);
        QVERIFY2(!given.startsWith(u"error: "_s), qPrintable(given));
        runUntilFinished(vwait);
        QTEST(eval("set answer"), "answer");
    }
};

TEST_CLASS(tst_NotifierScripts)

#include "tst_NotifierScripts.moc"
