// Scripts that use threads, by Tcl's package Thread.

#include "tests/needed.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_ThreadRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void scripts_data();
    void scripts();
    void ends_data();
    void ends();
    void endsOfAWindow_data();
    void endsOfAWindow();
    void idleThreadsTakeNoTime();
};

namespace {

struct Row
{
    const char *name;
    const char *script;
    const char *out;
};

constexpr Row rows[] = {
    {"thread-send-1 an answer", "puts [thread::send [thread::create] {expr {6 * 7}}]", "42\n"},
    {"thread-send-2 an answer that comes later",
     "thread::send -async [thread::create] {after 50; set x late} r\nvwait r\nputs $r", "late\n"},
    {"thread-send-3 two hundred of them",
     "set t [thread::create]\nset n 0\nproc count {args} {if {[incr ::n] == 200} {set ::all 1}}\n"
     "trace add variable r write count\nfor {set i 0} {$i < 200} {incr i} {thread::send -async $t "
     "{set x 1} r}\nvwait all\nputs $n",
     "200\n"},
    {"thread-send-4 a worker sends back",
     "set main [thread::id]\nset t [thread::create]\n"
     "thread::send -async $t [list thread::send $main {set got back}] done\nvwait done\nputs $got",
     "back\n"},
    {"thread-send-5 an error",
     "puts [catch {thread::send [thread::create] {error oops}} text]$text", "1oops\n"},
    {"thread-send-6 to oneself",
     "thread::send -async [thread::id] {set got own}\nvwait got\nputs $got", "own\n"},
    {"thread-events-1 a worker has its own timers",
     "set t [thread::create]\nputs [thread::send $t {after 30 {set x ran}; vwait x; set x}]",
     "ran\n"},
    {"thread-events-2 a worker waits for events by itself",
     "set main [thread::id]\nset t [thread::create]\nthread::send $t [list set main $main]\n"
     "thread::send $t {after 20 {thread::send -async $main {set got tick}}}\nvwait got\nputs $got",
     "tick\n"},
    {"thread-events-3 a worker reads a pipe",
     "set t [thread::create]\nputs [thread::send $t {lassign [chan pipe] r w; fconfigure $w "
     "-buffering line; fileevent $r readable {gets $r x}; after 5 {puts $w piped}; vwait x; set "
     "x}]",
     "piped\n"},
    {"thread-events-4 a worker runs a child",
     "puts [thread::send [thread::create] {exec sh -c {echo child}}]", "child\n"},
    {"thread-events-5 a channel changes its thread",
     "lassign [chan pipe] r w\nset t [thread::create]\nthread::transfer $t $w\n"
     "thread::send -async $t [list apply {w {after 20; puts $w moved; close $w}} $w]\n"
     "fileevent $r readable {gets $r got}\nvwait got\nputs $got",
     "moved\n"},
    {"thread-shared-1 shared variables",
     "tsv::set s n 0\nset ts {}\nfor {set i 0} {$i < 4} {incr i} {lappend ts [thread::create "
     "-joinable {for {set i 0} {$i < 500} {incr i} {tsv::incr s n}}]}\n"
     "foreach t $ts {thread::join $t}\nputs [tsv::get s n]",
     "2000\n"},
    {"thread-shared-2 a mutex and a condition",
     "set m [thread::mutex create]\nset c [thread::cond create]\ntsv::set s ready 0\n"
     "set t [thread::create]\nthread::send -async $t [list apply {{m c} {after 20; "
     "thread::mutex lock $m; tsv::set s ready 1; thread::cond notify $c; thread::mutex unlock $m}} "
     "$m $c]\nthread::mutex lock $m\nwhile {![tsv::get s ready]} {thread::cond wait $c $m}\n"
     "thread::mutex unlock $m\nputs notified",
     "notified\n"},
    {"thread-pool-1 a pool of workers",
     "set p [tpool::create -minworkers 2 -maxworkers 4]\nset jobs {}\nfor {set i 0} {$i < 20} "
     "{incr "
     "i} {lappend jobs [tpool::post $p [list expr $i * $i]]}\nset sum 0\nwhile {[llength $jobs]} "
     "{foreach job [tpool::wait $p $jobs jobs] {incr sum [tpool::get $p $job]}}\n"
     "puts $sum\ntpool::release $p",
     "2470\n"},
    {"thread-end-1 a worker is released",
     "set t [thread::create]\nthread::release -wait $t\nputs [thread::exists $t]", "0\n"},
    {"thread-end-2 a worker that is joined",
     "set t [thread::create -joinable {after 20}]\nputs [thread::join $t]", "0\n"},
    {"thread-end-3 a worker that runs on when the script ends",
     "thread::create {while 1 {set x 1}}\nthread::create {vwait forever}\nputs end", "end\n"},
    {"thread-end-4 fifty workers come and go",
     "for {set i 0} {$i < 50} {incr i} {set t [thread::create]; thread::send $t {after 0 {set x "
     "1}; vwait x}; thread::release $t}\nputs done",
     "done\n"},
    {"thread-cancel-1 a loop is cancelled",
     "proc ignore args {}\nthread::errorproc ignore\n"
     "set t [thread::create]\nthread::send -async $t {while 1 {}} r\nafter 50\n"
     "thread::cancel $t\nvwait r\nputs $r",
     "eval canceled\n"},
    {"thread-cancel-2 a wait is cancelled",
     "proc ignore args {}\nthread::errorproc ignore\n"
     "set t [thread::create]\nthread::send -async $t {vwait forever} r\nafter 50\n"
     "thread::cancel $t\nvwait r\nputs $r",
     "eval canceled\n"},
};

} // namespace

void tst_ThreadRuns::initTestCase()
{
    const Ended ended = Program().runScript("puts [catch {package require Thread}]");
    QCOMPARE(ended.err, QByteArray());
    NEEDS(ended.out == "0\n", "Tcl's package Thread", "tcl-thread");
}

void tst_ThreadRuns::scripts_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("out");
    for (const Row &row : rows)
        QTest::newRow(row.name) << QByteArray(row.script) << QByteArray(row.out);
}

void tst_ThreadRuns::scripts()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QByteArray, out);
    QCOMPARE(Program().runScript("package require Thread\n" + script + '\n'), (Ended {0, out, ""}));
}

void tst_ThreadRuns::ends_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("end-1 while the script waits for an event")
        << QByteArray("thread::send -async $t {exit 3}\nvwait forever");
    QTest::newRow("end-2 while the script waits for the worker")
        << QByteArray("thread::send $t {exit 3}\nputs wrong");
    QTest::newRow("end-3 while the script waits for the worker and catches")
        << QByteArray("catch {thread::send $t {exit 3}}\nputs wrong");
    QTest::newRow("end-4 in a loop")
        << QByteArray("thread::send -async $t {exit 3}\nwhile 1 {catch {error x}}");
    QTest::newRow("end-5 in an event of the worker")
        << QByteArray("thread::send $t {after 20 {exit 3}}\nvwait forever");
    QTest::newRow("end-6 of a worker that is joined")
        << QByteArray("thread::join [thread::create -joinable {exit 3}]\nputs wrong");
    QTest::newRow("end-7 two at once")
        << QByteArray("set u [thread::create]\nthread::send -async $t {exit 3}\n"
                      "thread::send -async $u {exit 3}\nvwait forever");
    QTest::newRow("end-8 forty at once")
        << QByteArray("for {set i 0} {$i < 40} {incr i} {lappend all [thread::create]}\n"
                      "foreach t $all {thread::send -async $t {exit 3}}\nvwait forever");
    QTest::newRow("end-9 forty while the script ends")
        << QByteArray("for {set i 0} {$i < 40} {incr i} {lappend all [thread::create]}\n"
                      "foreach t $all {thread::send -async $t {exit 3}}\nexit 3");
}

void tst_ThreadRuns::ends()
{
    QFETCH(const QByteArray, script);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(Program().runScript("package require Thread\nset t [thread::create]\n" + script),
                 (Ended {3, "", ""}));
    }
}

void tst_ThreadRuns::endsOfAWindow_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("window-end-1 while it is idle") << QByteArray("thread::send -async $t {exit 3}");
    QTest::newRow("window-end-2 while a script waits")
        << QByteArray("thread::send -async $t {exit 3}; vwait forever");
}

void tst_ThreadRuns::endsOfAWindow()
{
    QFETCH(const QByteArray, script);
    Program program;
    program.environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    program.write(u"session/Scripts/startup.tcl"_s,
                  "package require Thread\nset t [thread::create]\nafter 300 {\n" + script
                      + "\n}\n");
    QCOMPARE(program.run({}), (Ended {3, "", ""}));
}

void tst_ThreadRuns::idleThreadsTakeNoTime()
{
    const Ended ended =
        Program().runScript("package require Thread\n"
                            "proc ticks {} {\n"
                            "    set f [open /proc/self/stat]\n"
                            "    set fields [split [lindex [split [read $f] )] end]]\n"
                            "    close $f\n"
                            "    return [expr {[lindex $fields 12] + [lindex $fields 13]}]\n"
                            "}\n"
                            "for {set i 0} {$i < 5} {incr i} {thread::create}\n"
                            "after 300 {set ready 1}\nvwait ready\nset start [ticks]\n"
                            "after 1200 {set x 1}\nvwait x\nputs [expr {[ticks] - $start}]\n");
    QCOMPARE(ended.err, QByteArray());
    bool isNumber = false;
    const int ticks = ended.out.trimmed().toInt(&isNumber);
    QVERIFY2(isNumber && ticks <= 10, ended.out.constData());
}

GUILESS_TEST_CLASS(tst_ThreadRuns)
#include "tst_ThreadRuns.moc"
