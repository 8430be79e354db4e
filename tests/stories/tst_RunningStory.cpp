// A script that runs: the user watches it, and stops it.

#include "tests/patience.h"
#include "tests/sanitized.h"
#include "tests/stories/RunningScriptTest.h"
#include "tests/TestClass.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class tst_RunningStory : public RunningScriptTest
{
    Q_OBJECT

private Q_SLOTS:
    void escapeStops_data();
    void escapeStops();
    void controlCStopsWhereNothingIsSelected();
    void controlCCopiesASelection();
    void theButtonStops();
    void theMenuStops();
    void aStopWhileNothingRunsDoesNothing();
    void whatRunsIsSaid();
    void whatIsShortIsNotShown();
    void theWindowIsPaintedAndScrolled();
    void modesAreSwitched();
    void theStripTakesItsEscapeFirst();
    void outputLeavesASelectionAlone();
    void theHistoryHasWhatWasStopped();
    void endlessEventsLeaveThePromptAlone();
};

namespace {

// Counts the paint events of a widget.
class Painted : public QObject
{
public:
    explicit Painted(QWidget *widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

// By the wheel, as users do, away from the end; then to the place, and over its text by the mouse.
void selectOldText(QConsole &console, int place)
{
    QWidget *text = console.viewport();
    QWheelEvent wheel(QPointF(20, 20), text->mapToGlobal(QPointF(20, 20)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(text, &wheel);
    console.verticalScrollBar()->setValue(place);
    QTest::mousePress(text, Qt::LeftButton, {}, QPoint(20, 20));
    QMouseEvent move(QEvent::MouseMove, QPointF(90, 80), text->mapToGlobal(QPointF(90, 80)),
                     Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(text, &move);
    QTest::mouseRelease(text, Qt::LeftButton, {}, QPoint(90, 80));
}

} // namespace

void tst_RunningStory::escapeStops_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("stop-1 an empty loop") << u"while 1 {}"_s;
    QTest::newRow("stop-2 one that writes") << u"for {set i 0} 1 {incr i} {set x $i}"_s;
    QTest::newRow("stop-3 after") << u"after 100000"_s;
    QTest::newRow("stop-4 vwait") << u"vwait forever"_s;
    QTest::newRow("stop-5 one that catches") << u"while 1 {catch {while 1 {}}}"_s;
}

void tst_RunningStory::escapeStops()
{
    QFETCH(const QString, command);
    meanwhile([this] { key(Qt::Key_Escape); });
    QCOMPARE(typeAndRead(command), command + u'\n' + stopped);
    const QTextBlock result = console().document()->lastBlock().previous();
    QCOMPARE(result.begin().fragment().charFormat().foreground().color(), QColor(Qt::red));
}

void tst_RunningStory::controlCStopsWhereNothingIsSelected()
{
    meanwhile([this] { key(Qt::Key_C, Qt::ControlModifier); });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
}

void tst_RunningStory::controlCCopiesASelection()
{
    meanwhile([this] {
        QTextCursor cursor = console().textCursor();
        cursor.movePosition(QTextCursor::Start);
        cursor.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
        console().setTextCursor(cursor);
        key(Qt::Key_C, Qt::ControlModifier);
        QVERIFY(ScriptRuns::instance()->isRunning());
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QVERIFY(console().toPlainText().startsWith(QGuiApplication::clipboard()->text()));
    QVERIFY(!QGuiApplication::clipboard()->text().isEmpty());
    console().moveCursor(QTextCursor::End);
}

void tst_RunningStory::theButtonStops()
{
    auto *button = story->find<QToolButton>("stopScript");
    QVERIFY(!button->isVisible());
    QTimer::singleShot(600, &console(), [&] {
        QVERIFY(button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QVERIFY(!button->isVisible());
}

void tst_RunningStory::theMenuStops()
{
    QAction *stop = story->action("stopRunningScript");
    QVERIFY(!stop->isEnabled());
    meanwhile([&] {
        QVERIFY(stop->isEnabled());
        QVERIFY(story->entry('s', stop->text().remove(u'&')));
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY(menu);
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          qobject_cast<QMenu *>(menu)->actionGeometry(stop).center());
        story->closeMenus();
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QVERIFY(!stop->isEnabled());
}

void tst_RunningStory::aStopWhileNothingRunsDoesNothing()
{
    key(Qt::Key_Escape);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(typeAndRead(u"set a 1"_s), u"set a 1\n1\nmorvalen > "_s);
}

void tst_RunningStory::whatRunsIsSaid()
{
    const auto *label = story->find<QLabel>("runText");
    QString text;
    Qt::CursorShape cursor = Qt::ArrowCursor;
    QTimer::singleShot(800, &console(), [&] {
        text = label->isVisible() ? label->text() : QString();
        cursor = console().viewport()->cursor().shape();
        key(Qt::Key_Escape);
    });
    story->type(u"while 1 {};   # a comment that is longer than the status bar likes"_s);
    QCOMPARE(
        text,
        u"Running for 0 s: while 1 {};   # a comment that is longer\u2026 (Escape stops it)"_s);
    QCOMPARE(cursor, Qt::BusyCursor);
    QVERIFY(!label->isVisible());
    QCOMPARE(console().viewport()->cursor().shape(), Qt::IBeamCursor);
}

void tst_RunningStory::whatIsShortIsNotShown()
{
    story->type(u"set a 1"_s);
    QTest::qWait(300);
    QVERIFY(!story->find<QLabel>("runText")->isVisible());
}

void tst_RunningStory::theWindowIsPaintedAndScrolled()
{
    story->type(u"for {set i 0} {$i < 300} {incr i} {puts $i}"_s);
    QScrollBar *bar = console().verticalScrollBar();
    Painted painted(console().viewport());
    const QSize size = story->window().size();
    QSize during;
    int place = -1;
    int paints = 0;
    meanwhile([&] {
        bar->setValue(bar->maximum());
        const int end = bar->value();
        key(Qt::Key_PageUp);
        QVERIFY(bar->value() < end);
        bar->setValue(3);
        story->window().resize(size + QSize(40, 20));
        painted.count = 0;
        QTimer::singleShot(200, &console(), [&] {
            place = bar->value();
            during = story->window().size();
            paints = painted.count;
            QVERIFY(ScriptRuns::instance()->isInPass());
            key(Qt::Key_Escape);
        });
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QCOMPARE(place, 3);
    QCOMPARE(during, size + QSize(40, 20));
    QVERIFY(paints > 0);
    story->window().resize(size);
}

void tst_RunningStory::modesAreSwitched()
{
    bool isAway = false;
    bool isBack = false;
    meanwhile([&] {
        auto *bar = story->find<QToolBar>("modeBar");
        const QList<QAction *> modes = bar->actions();
        QTest::mouseClick(bar->widgetForAction(modes.at(0)), Qt::LeftButton);
        isAway = !console().isVisible();
        QTest::keyClick(&story->window(), Qt::Key_2, Qt::AltModifier);
        isBack = console().isVisible();
        QTest::keyClick(&story->window(), Qt::Key_1, Qt::AltModifier);
        QVERIFY(!console().isVisible());
        // Where the focus is now.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    });
    story->type(u"while 1 {}"_s);
    QVERIFY(isAway);
    QVERIFY(isBack);
}

// The strip of a search is closed before the script is stopped.
void tst_RunningStory::theStripTakesItsEscapeFirst()
{
    story->type(u"puts needle"_s);
    QString found;
    meanwhile([&] {
        key(Qt::Key_F, Qt::ControlModifier);
        auto *pattern = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY(pattern && console().isAncestorOf(pattern));
        QTest::keyClicks(pattern, u"needle"_s);
        found = console().textCursor().selectedText();
        QTest::keyClick(pattern, Qt::Key_Escape);
        QVERIFY(ScriptRuns::instance()->isRunning());
        QVERIFY(console().hasFocus());
        key(Qt::Key_Escape);
    });
    QCOMPARE(typeAndRead(u"while 1 {}"_s), u"while 1 {}\n"_s + stopped);
    QCOMPARE(found, u"needle"_s);
}

// The user drags the mouse over old text while 300,000 lines are printed.
void tst_RunningStory::outputLeavesASelectionAlone()
{
    allow(60'000);
    story->type(u"for {set i 0} {$i < 100} {incr i} {puts \"old line $i\"}"_s);
    QScrollBar *bar = console().verticalScrollBar();
    const int place = bar->maximum() - bar->pageStep();
    constexpr int lines = isSanitized ? 30'000 : 300'000;
    QString selected;
    QStringList seen;
    const QString flag = story->path(u"looked"_s);
    QTimer look;
    look.callOnTimeout(&console(), [&] {
        seen.append(console().textCursor().selectedText());
        if (seen.size() == 3)
            Story::write(flag, "");
    });
    meanwhile([&] {
        selectOldText(console(), place);
        selected = console().textCursor().selectedText();
        look.start(50);
    });
    // However fast the machine is, until it was looked at three times.
    QTest::keyClicks(&console(),
                     u"for {set i 0} {$i < %1 || $i % 1000 || ![file exists {%2}]} {incr i} "
                     "{puts $i}"_s.arg(QString::number(lines), flag));
    connect(ScriptRuns::instance(), &ScriptRuns::ended, &look, &QTimer::stop);
    key(Qt::Key_Return);
    QVERIFY2(selected.contains(u"ld line "_s), qPrintable(selected));
    QVERIFY(seen.size() > 1);
    for (const QString &each : std::as_const(seen))
        QCOMPARE(each, selected);
    QVERIFY(console().toPlainText().endsWith(u"999\nmorvalen > "_s));
    QVERIFY(console().document()->blockCount() > lines);
    key(Qt::Key_L, Qt::ControlModifier);
}

void tst_RunningStory::theHistoryHasWhatWasStopped()
{
    meanwhile([this] { key(Qt::Key_Escape); });
    story->type(u"while 1 {} ;# remember"_s);
    key(Qt::Key_Up);
    QCOMPARE(console().getCurrentCommand(), u"while 1 {} ;# remember"_s);
    console().replaceCurrentCommand(QString());
}

void tst_RunningStory::endlessEventsLeaveThePromptAlone()
{
    story->type(u"proc again {} {incr ::turns; set ::id [after 0 again]}; set turns 0; again"_s);
    QTRY_VERIFY(typeAndRead(u"expr {$turns > 50}"_s).endsWith(u"\n1\nmorvalen > "_s));
    key(Qt::Key_Escape);
    QVERIFY(!story->find<QLabel>("runText")->isVisible());
    story->type(u"after cancel $id"_s);
    QCOMPARE(typeAndRead(u"after info"_s), u"after info\nmorvalen > "_s);
}

TEST_CLASS(tst_RunningStory)
#include "tst_RunningStory.moc"
