#include "tests/TestClass.h"

#include <Qtilities/Logger.h>
#include <Qtilities/LoggerGui.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::LoggerGui;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;

// Windows that show a log.
class tst_LoggerGui : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void init();
    void cleanup();

    void namesEngines_data();
    void namesEngines();
    void takesTheTitleForAName();
    void attachesItsEngineAndTakesItAlong();
    void survivesTheLog();
    void startsToTakeMessagesWhenActive();
    void showsWhatItsEngineTakes();
    void showsSystemMessagesOnly();
    void showsChosenParts_data();
    void showsChosenParts();

    void showsMessagesAsPlainText_data();
    void showsMessagesAsPlainText();
    void makesPriorityMessagesStandOut();
    void showsWhileNoEventLoopRuns();
    void followsTheEnd();
    void staysAtTheEndWhileNobodySees();
    void staysWhereTheUserReads();
    void staysWhereTheUserReadsWhenLinesAreDropped();

    void hasAButtonForEachLevel();
    void levelsHaveSigns();
    void filtersByLevel();
    void searches();
    void findsWhatHasJustCome();
    void marksAndCountsWhatIsTyped();
    void bringsWhatIsTypedIntoView();
    void searchesBackwards();
    void searchesFromTheKeyboard();
    void clears();
    void clearsThroughItsEngine();
    void copiesTheSelectedLines();
    void copiesEverythingWithoutASelection();
    void copiesWholeLines();
    void copiesWithTimeAndLevelFromTheMenu();

    void dropsOldLinesAndSaysSo();
    void dropsByCharactersToo();
    void keepsTheEndOfAMessageWithManyLines();
    void cutsAMessageThatIsTooLong();
    void keepsItsMemoryBoundedWhileNothingIsShown();
    void changesItsViewSeldomUnderManyMessages();

private:
    void log(const QString &text, Logger::MessageType type = Logger::Info)
    {
        Logger::instance()->logMessage(engineName, type, text);
    }
    // Waits for what was logged to show.
    // However slow the machine is, these timers fire after those of the log, which are shorter and
    // were started before.
    void settle() const
    {
        for (const int milliseconds : {80, 20}) {
            QEventLoop loop;
            QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
            loop.exec();
        }
    }
    QStringList shownColumn(int column) const
    {
        QStringList texts;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            texts.append(view->model()->index(row, column).data().toString());
        return texts;
    }
    QStringList shown() const { return shownColumn(2); }
    QStringList selected() const
    {
        QStringList texts;
        for (const QModelIndex &index : view->selectionModel()->selectedRows(2))
            texts.append(index.data().toString());
        return texts;
    }
    template <typename Widget>
    Widget *part(const QString &name) const
    {
        return window->findChild<Widget *>(name);
    }
    void press(const QString &button) const
    {
        QTest::mouseClick(part<QToolButton>(button), Qt::LeftButton);
    }
    void clickRow(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                          view->visualRect(view->model()->index(row, 2)).topLeft() + QPoint(5, 3));
    }
    QString clipboard() const { return QApplication::clipboard()->text(); }

    std::unique_ptr<QWidget> window;
    QTableView *view = nullptr;
    QString engineName;
};

void tst_LoggerGui::init()
{
    engineName = u"Test"_s;
    window.reset(LoggerGui::createLogWidget(&engineName, LoggerGui::AllDisplays, u"A log"_s, true,
                                            Logger::AllLogLevels));
    view = window->findChild<QTableView *>();
    QVERIFY(view);
    window->resize(800, 300);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get(), patient()));
    QApplication::clipboard()->clear();
}

void tst_LoggerGui::cleanup()
{
    window.reset();
    QCOMPARE(Logger::instance()->loggerEngineNames(), QStringList());
}

void tst_LoggerGui::namesEngines_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QStringList>("given");

    QTest::newRow("name-free-1 a free name stays") << u"Free"_s << QStringList {u"Free"_s};
    QTest::newRow("name-taken-1 numbers follow")
        << u"Test"_s << QStringList {u"Test 2"_s, u"Test 3"_s, u"Test 4"_s};
}

void tst_LoggerGui::namesEngines()
{
    QFETCH(QString, wanted);
    QFETCH(QStringList, given);
    std::vector<std::unique_ptr<QWidget>> windows;

    QStringList names;
    for (qsizetype count = 0; count < given.size(); ++count) {
        QString name = wanted;
        windows.emplace_back(LoggerGui::createLogWidget(&name, 3, u"A log"_s, true, 126));
        names.append(name);
    }

    QCOMPARE(names, given);
    QCOMPARE(Logger::instance()->loggerEngineNames(), QStringList {u"Test"_s} + given);
}

void tst_LoggerGui::takesTheTitleForAName()
{
    QString name;
    const std::unique_ptr<QWidget> first(
        LoggerGui::createLogWidget(&name, 3, u"Title"_s, true, 126));
    const std::unique_ptr<QWidget> second(
        LoggerGui::createLogWidget(nullptr, 3, u"Title"_s, true, 126));
    const std::unique_ptr<QWidget> third(
        LoggerGui::createLogWidget(nullptr, 3, QString(), true, 126));

    QCOMPARE(name, u"Title"_s);
    QCOMPARE(Logger::instance()->loggerEngineNames(),
             QStringList({u"Test"_s, u"Title"_s, u"Title 2"_s, u"Log"_s}));
    QCOMPARE(first->windowTitle(), u"Title"_s);
}

void tst_LoggerGui::attachesItsEngineAndTakesItAlong()
{
    const QPointer<LoggerEngine> engine = Logger::instance()->loggerEngineReference(u"Test"_s);
    QVERIFY(engine);

    window->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<QWidget> closing = window.release();
    closing->close();
    QTRY_VERIFY(!closing);

    QVERIFY(!engine);
    QCOMPARE(Logger::instance()->loggerEngineNames(), QStringList());
}

void tst_LoggerGui::survivesTheLog()
{
    auto other = std::make_unique<Logger>();
    Logger::setInstance(other.get());
    const std::unique_ptr<QWidget> orphan(
        LoggerGui::createLogWidget(nullptr, 3, u"Orphan"_s, true, 126));

    other.reset();
    orphan->show();
    QTest::mouseClick(orphan->findChild<QToolButton *>(u"clear"_s), Qt::LeftButton);

    QCOMPARE(Logger::instance()->loggerEngineNames(), QStringList {u"Test"_s});
}

void tst_LoggerGui::startsToTakeMessagesWhenActive()
{
    const std::unique_ptr<QWidget> idle(
        LoggerGui::createLogWidget(nullptr, 3, u"Idle"_s, false, 126));
    LoggerEngine *const engine = Logger::instance()->loggerEngineReference(u"Idle"_s);

    Logger::instance()->logMessage(u"Idle"_s, Logger::Info, u"lost"_s);
    engine->setActive(true);
    Logger::instance()->logMessage(u"Idle"_s, Logger::Info, u"kept"_s);
    settle();

    const QAbstractItemModel *const model = idle->findChild<QTableView *>()->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 2).data().toString(), u"kept"_s);
}

void tst_LoggerGui::showsWhatItsEngineTakes()
{
    Logger::instance()
        ->loggerEngineReference(engineName)
        ->setMessageContexts(LoggerEngine::EngineSpecific);

    Logger::instance()->logMessage(QString(), Logger::Info, u"to all"_s);
    Logger::instance()->logMessage(u"another"_s, Logger::Info, u"to another"_s);
    log(u"to this one"_s);
    settle();

    QCOMPARE(shown(), QStringList {u"to this one"_s});
}

void tst_LoggerGui::showsSystemMessagesOnly()
{
    const std::unique_ptr<QWidget> system(LoggerGui::createSystemLogWidget(u"Messages"_s));

    Logger::instance()->logMessage(QString(), Logger::Debug, u"to all"_s);
    Logger::instance()->logMessage(u"Messages"_s, Logger::Info, u"by name"_s);
    settle();

    const QAbstractItemModel *const model = system->findChild<QTableView *>()->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 2).data().toString(), u"to all"_s);
    QCOMPARE(system->windowTitle(), u"Messages"_s);
}

void tst_LoggerGui::showsChosenParts_data()
{
    QTest::addColumn<int>("displays");
    QTest::addColumn<bool>("messages");
    QTest::addColumn<bool>("controls");

    QTest::newRow("parts-shown-1 both") << 3 << true << true;
    QTest::newRow("parts-shown-2 messages only") << 1 << true << false;
    QTest::newRow("parts-shown-3 controls only") << 2 << false << true;
}

void tst_LoggerGui::showsChosenParts()
{
    QFETCH(int, displays);
    QFETCH(bool, messages);
    QFETCH(bool, controls);

    const std::unique_ptr<QWidget> log(
        LoggerGui::createLogWidget(nullptr, displays, u"Parts"_s, true, 126));
    log->show();

    QCOMPARE(log->findChild<QTableView *>()->isVisible(), messages);
    const auto *const search = log->findChild<QLineEdit *>(u"search"_s);
    QCOMPARE(search && search->isVisible(), controls);
}

void tst_LoggerGui::showsMessagesAsPlainText_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("text-plain-1 markup") << u"<b>x</b>&lt;"_s << QStringList {u"<b>x</b>&lt;"_s};
    QTest::newRow("text-plain-2 nothing") << u""_s << QStringList {u""_s};
    QTest::newRow("text-plain-3 letters beyond ASCII")
        << u"\u20ac\U0001F600"_s << QStringList {u"\u20ac\U0001F600"_s};
    QTest::newRow("text-lines-1 each line has a row")
        << u"a\nb\r\n\nc"_s << QStringList {u"a"_s, u"b"_s, u""_s, u"c"_s};
    QTest::newRow("text-lines-2 a line end at the end adds none")
        << u"a\n"_s << QStringList {u"a"_s};
    QTest::newRow("text-tabs-1 tabs reach the next column of eight")
        << u"\ta\tb"_s << QStringList {u"        a       b"_s};
    QTest::newRow("text-long-1 only the beginning of a long line shows")
        << QString(1001, u'x') << QStringList {QString(1000, u'x') + u'\u2026'};
    QTest::newRow("text-long-2 a line that just fits")
        << QString(1000, u'x') << QStringList {QString(1000, u'x')};
}

void tst_LoggerGui::showsMessagesAsPlainText()
{
    QFETCH(QString, message);
    QFETCH(QStringList, lines);

    log(message, Logger::Warning);
    settle();

    QCOMPARE(shown(), lines);
    // Only the first line of a message names time and level.
    QStringList levels(lines.size(), u""_s);
    levels[0] = u"Warning"_s;
    QCOMPARE(shownColumn(1), levels);
    QVERIFY(QTime::fromString(shownColumn(0).value(0), u"HH:mm:ss.zzz"_s).isValid());
    QCOMPARE(shownColumn(0).mid(1), QStringList(lines.size() - 1, u""_s));
}

void tst_LoggerGui::makesPriorityMessagesStandOut()
{
    log(u"plain"_s);
    Logger::instance()->logPriorityMessage(engineName, Logger::Info, u"urgent"_s);
    settle();

    const QModelIndex plain = view->model()->index(0, 2);
    const QModelIndex urgent = view->model()->index(1, 2);
    QCOMPARE(urgent.data().toString(), u"urgent"_s);
    QVERIFY(!plain.data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(urgent.data(Qt::FontRole).value<QFont>().bold());
    QVERIFY(!plain.data(Qt::BackgroundRole).isValid());
    QVERIFY(urgent.data(Qt::BackgroundRole).isValid());
}

void tst_LoggerGui::showsWhileNoEventLoopRuns()
{
    for (int count = 0; count < 4; ++count) {
        log(QString::number(count));
        QTest::qSleep(60);
    }

    QVERIFY(shown().size() >= 3);
}

void tst_LoggerGui::followsTheEnd()
{
    for (int count = 0; count < 200; ++count)
        log(QString::number(count));
    settle();

    QCOMPARE(view->verticalScrollBar()->value(), view->verticalScrollBar()->maximum());
    QVERIFY(view->verticalScrollBar()->maximum() > 0);
}

void tst_LoggerGui::staysAtTheEndWhileNobodySees()
{
    for (int count = 0; count < 100; ++count)
        log(QString::number(count));
    settle();
    window->hide();
    for (int count = 0; count < 500; ++count)
        log(QString::number(count));
    settle();
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    const QScrollBar *const bar = view->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 500);
    QCOMPARE(bar->value(), bar->maximum());
    window->resize(window->width(), window->height() / 2);
    QTRY_COMPARE(bar->value(), bar->maximum());
}

void tst_LoggerGui::staysWhereTheUserReads()
{
    for (int count = 0; count < 200; ++count)
        log(QString::number(count));
    settle();
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_PageDown);
    const int place = view->verticalScrollBar()->value();
    QVERIFY(place < view->verticalScrollBar()->maximum());

    for (int count = 0; count < 200; ++count)
        log(QString::number(count));
    settle();

    QCOMPARE(view->verticalScrollBar()->value(), place);
}

void tst_LoggerGui::staysWhereTheUserReadsWhenLinesAreDropped()
{
    for (int count = 0; count < 50'000; ++count)
        log(QString::number(count));
    settle();
    view->verticalScrollBar()->setValue(20'000);
    const auto firstShown = [&] {
        return view->indexAt(QPoint(1, 1)).siblingAtColumn(2).data().toString();
    };
    QCOMPARE(firstShown(), u"20000"_s);

    for (int count = 50'000; count < 50'300; ++count)
        log(QString::number(count));
    settle();

    QCOMPARE(firstShown(), u"20000"_s);
    QCOMPARE(shown().constFirst(), u"300"_s);
}

void tst_LoggerGui::hasAButtonForEachLevel()
{
    const std::unique_ptr<QWidget> few(
        LoggerGui::createLogWidget(nullptr, 3, u"Few"_s, true, Logger::Warning | Logger::Error));
    QStringList names;
    for (const QToolButton *button : few->findChildren<QToolButton *>()) {
        if (button->isCheckable())
            names.append(button->text());
    }
    QCOMPARE(names, QStringList({u"Warning"_s, u"Error"_s}));

    names.clear();
    for (const QToolButton *button : window->findChildren<QToolButton *>()) {
        if (button->isCheckable())
            names.append(button->text());
    }
    QCOMPARE(
        names,
        QStringList({u"Info"_s, u"Warning"_s, u"Error"_s, u"Fatal"_s, u"Debug"_s, u"Trace"_s}));
}

void tst_LoggerGui::levelsHaveSigns()
{
    log(u"wrong\nmore"_s, Logger::Error);
    log(u"odd"_s, Logger::Warning);
    log(u"so"_s);
    settle();
    const auto sign = [this](int row) {
        const auto shown = view->model()->index(row, 1).data(Qt::DecorationRole);
        return shown.value<QIcon>().cacheKey();
    };
    QVERIFY(sign(0) != 0);
    QCOMPARE(sign(1), 0);
    QVERIFY(sign(2) != 0);
    QVERIFY(sign(2) != sign(0));
    QCOMPARE(sign(3), 0);
}

void tst_LoggerGui::filtersByLevel()
{
    log(u"i1"_s);
    log(u"w1\nw1 goes on"_s, Logger::Warning);
    log(u"e1"_s, Logger::Error);
    settle();

    press(u"Warning"_s);
    QCOMPARE(shown(), QStringList({u"i1"_s, u"e1"_s}));
    log(u"w2"_s, Logger::Warning);
    log(u"i2"_s);
    settle();
    QCOMPARE(shown(), QStringList({u"i1"_s, u"e1"_s, u"i2"_s}));
    press(u"Info"_s);
    press(u"Error"_s);
    QCOMPARE(shown(), QStringList());
    press(u"Warning"_s);
    QCOMPARE(shown(), QStringList({u"w1"_s, u"w1 goes on"_s, u"w2"_s}));
    press(u"Info"_s);
    press(u"Error"_s);

    QCOMPARE(shown(), QStringList({u"i1"_s, u"w1"_s, u"w1 goes on"_s, u"e1"_s, u"w2"_s, u"i2"_s}));
}

void tst_LoggerGui::searches()
{
    for (const QString &text : {u"one"_s, u"Two"_s, u"three"_s, u"two and two"_s})
        log(text);
    settle();
    auto *const field = part<QLineEdit>(u"search"_s);
    const auto *const note = part<QLabel>(u"found"_s);

    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(field, u"TWO"_s);
    QCOMPARE(selected(), QStringList());
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"Two"_s});
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"two and two"_s});
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"Two"_s});
    QCOMPARE(note->text(), u""_s);

    QTest::keyClicks(field, u"x"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"Two"_s});
    QCOMPARE(note->text(), u"Not found"_s);
    QTest::keyClick(field, Qt::Key_Backspace);
    QCOMPARE(note->text(), u""_s);

    field->clear();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"Two"_s});
    QCOMPARE(note->text(), u""_s);
}

void tst_LoggerGui::findsWhatHasJustCome()
{
    settle();
    auto *const field = part<QLineEdit>(u"search"_s);
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(field, u"late"_s);
    log(u"one"_s);
    log(u"late"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(selected(), QStringList {u"late"_s});
}

void tst_LoggerGui::marksAndCountsWhatIsTyped()
{
    for (const QString &text : {u"one"_s, u"Two two"_s, u"three"_s, u"two"_s})
        log(text);
    settle();
    auto *const field = part<QLineEdit>(u"search"_s);
    const auto *const count = part<QLabel>(u"count"_s);
    const QImage before = view->viewport()->grab().toImage();
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(field, u"TW"_s);
    QCOMPARE(count->text(), u"Lines: 2"_s);
    QVERIFY(view->viewport()->grab().toImage() != before);
    QTest::keyClicks(field, u"x"_s);
    QCOMPARE(count->text(), u"Lines: 0"_s);
    QCOMPARE(view->viewport()->grab().toImage(), before);
    QTest::keyClick(field, Qt::Key_Backspace);
    // What comes later counts too.
    log(u"twice"_s);
    QTRY_COMPARE(count->text(), u"Lines: 3"_s);
    // Whoever goes through them sees where.
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(count->text(), u"Line 1 of 3"_s);
    QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(count->text(), u"Line 3 of 3"_s);
    field->clear();
    QCOMPARE(count->text(), QString());
}

void tst_LoggerGui::bringsWhatIsTypedIntoView()
{
    for (int number = 0; number < 300; ++number)
        log(number == 7 ? u"wanted"_s : QString::number(number));
    settle();
    auto *const field = part<QLineEdit>(u"search"_s);
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(field, u"want"_s);
    QVERIFY(view->viewport()->rect().intersects(view->visualRect(view->model()->index(7, 2))));
    QCOMPARE(selected(), QStringList());
}

void tst_LoggerGui::searchesBackwards()
{
    for (const QString &text : {u"a 1"_s, u"b"_s, u"a 2"_s, u"b"_s, u"a 3"_s})
        log(text);
    settle();
    auto *const field = part<QLineEdit>(u"search"_s);
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClicks(field, u"a"_s);

    QStringList found;
    for (int count = 0; count < 4; ++count) {
        QTest::keyClick(field, Qt::Key_Return, Qt::ShiftModifier);
        found += selected();
    }

    QCOMPARE(found, QStringList({u"a 3"_s, u"a 2"_s, u"a 1"_s, u"a 3"_s}));
}

void tst_LoggerGui::searchesFromTheKeyboard()
{
    log(u"one"_s);
    log(u"two"_s);
    settle();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    view->setFocus();

    QTest::keySequence(view, QKeySequence::Find);
    auto *const field = part<QLineEdit>(u"search"_s);
    QVERIFY(field->hasFocus());
    QTest::keyClicks(field, u"o"_s);
    QTest::keySequence(field, QKeySequence::FindNext);
    QCOMPARE(selected(), QStringList {u"one"_s});
    QTest::keySequence(field, QKeySequence::FindNext);
    QCOMPARE(selected(), QStringList {u"two"_s});
    QTest::keySequence(field, QKeySequence::FindPrevious);

    QCOMPARE(selected(), QStringList {u"one"_s});
}

void tst_LoggerGui::clears()
{
    log(u"old"_s);
    settle();
    log(u"not yet shown"_s);

    press(u"clear"_s);
    QCOMPARE(shown(), QStringList());
    log(u"new"_s);
    settle();

    QCOMPARE(shown(), QStringList {u"new"_s});
}

void tst_LoggerGui::clearsThroughItsEngine()
{
    log(u"old"_s);
    settle();

    Logger::instance()->loggerEngineReference(engineName)->clearLog();
    settle();

    QCOMPARE(shown(), QStringList());
}

void tst_LoggerGui::copiesTheSelectedLines()
{
    for (const QString &text : {u"a"_s, u"<b>"_s, u"c"_s, u"d"_s})
        log(text);
    settle();

    clickRow(1);
    clickRow(3, Qt::ControlModifier);
    QTest::keySequence(view, QKeySequence::Copy);
    QCOMPARE(clipboard(), u"<b>\nd"_s);
    clickRow(0);
    clickRow(2, Qt::ShiftModifier);
    press(u"copy"_s);

    QCOMPARE(clipboard(), u"a\n<b>\nc"_s);
}

void tst_LoggerGui::copiesEverythingWithoutASelection()
{
    log(u"a\nb"_s);
    log(u"hidden"_s, Logger::Error);
    log(u"c"_s);
    settle();
    press(u"Error"_s);

    press(u"copy"_s);

    QCOMPARE(clipboard(), u"a\nb\nc"_s);
}

void tst_LoggerGui::copiesWholeLines()
{
    log(QString(5000, u'x') + u"\ty"_s);
    settle();

    clickRow(0);
    press(u"copy"_s);

    QCOMPARE(clipboard(), QString(5000, u'x') + u"\ty"_s);
}

void tst_LoggerGui::copiesWithTimeAndLevelFromTheMenu()
{
    log(u"a\nb"_s, Logger::Error);
    settle();
    const QString time = shownColumn(0).constFirst();

    QStringList entries;
    QTimer::singleShot(0, view, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        for (const QAction *action : menu->actions())
            entries.append(action->text());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            view->viewport()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(view->viewport(), &event);

    QCOMPARE(entries,
             QStringList({u"&Copy"_s, u"Copy with &Time and Level"_s, u"Select &All"_s, u""_s,
                          u"C&lear"_s}));
    QCOMPARE(clipboard(), time + u"\tError\ta\n\t\tb"_s);
}

void tst_LoggerGui::dropsOldLinesAndSaysSo()
{
    const auto *const note = part<QLabel>(u"dropped"_s);
    for (int count = 0; count < 50'000; ++count)
        log(QString::number(count));
    settle();
    QCOMPARE(shown().size(), 50'000);
    QVERIFY(!note->isVisible());

    for (int count = 50'000; count < 50'123; ++count)
        log(QString::number(count));
    settle();

    QCOMPARE(shown().size(), 50'000);
    QCOMPARE(shown().constFirst(), u"123"_s);
    QCOMPARE(shown().constLast(), u"50122"_s);
    QVERIFY(note->isVisible());
    QCOMPARE(note->text(), u"Only the newest lines are kept; older lines dropped: 123"_s);

    press(u"clear"_s);
    QVERIFY(!note->isVisible());
}

void tst_LoggerGui::dropsByCharactersToo()
{
    for (int count = 0; count < 250; ++count)
        log(QString(100'000, u'x'));
    settle();

    QCOMPARE(shown().size(), 200);
    QCOMPARE(part<QLabel>(u"dropped"_s)->text(),
             u"Only the newest lines are kept; older lines dropped: 50"_s);
}

void tst_LoggerGui::keepsTheEndOfAMessageWithManyLines()
{
    QString message;
    for (int count = 0; count < 60'000; ++count)
        message += QString::number(count) + u'\n';
    log(u"before"_s);
    settle();

    log(message);
    settle();

    QCOMPARE(shown().size(), 50'000);
    QCOMPARE(shown().constFirst(), u"10000"_s);
    QCOMPARE(shown().constLast(), u"59999"_s);
    QCOMPARE(part<QLabel>(u"dropped"_s)->text(),
             u"Only the newest lines are kept; older lines dropped: 10,001"_s);

    // Numbers still fit the lines.
    log(u"after"_s, Logger::Error);
    settle();
    press(u"Info"_s);
    QCOMPARE(shown(), QStringList {u"after"_s});
}

void tst_LoggerGui::cutsAMessageThatIsTooLong()
{
    log(QString(10'000'005, u'x'));
    settle();

    QCOMPARE(shown(), QStringList({QString(1000, u'x') + u'\u2026', u"(5 more characters)"_s}));
}

void tst_LoggerGui::keepsItsMemoryBoundedWhileNothingIsShown()
{
    window->hide();

    for (int count = 0; count < 300'000; ++count)
        log(QString::number(count));
    settle();

    QCOMPARE(shown().size(), 50'000);
    QCOMPARE(shown().constFirst(), u"250000"_s);
    QCOMPARE(part<QLabel>(u"dropped"_s)->text(),
             u"Only the newest lines are kept; older lines dropped: 250,000"_s);
}

void tst_LoggerGui::changesItsViewSeldomUnderManyMessages()
{
    qint64 changes = 0;
    connect(view->model(), &QAbstractItemModel::rowsInserted, this, [&] { ++changes; });
    connect(view->model(), &QAbstractItemModel::rowsRemoved, this, [&] { ++changes; });
    QElapsedTimer time;
    time.start();

    for (int count = 0; count < 100'000; ++count)
        log(u"line %1 of a tool that writes much"_s.arg(count));
    settle();

    QCOMPARE(shown().constLast(), u"line 99999 of a tool that writes much"_s);
    // Twice every 50 milliseconds at most: what is new, and what has to go for it.
    QVERIFY2(changes <= 2 * (time.elapsed() / 50 + 2),
             qPrintable(u"%1 changes in %2 ms"_s.arg(changes).arg(time.elapsed())));
}

TEST_CLASS(tst_LoggerGui)
#include "tst_LoggerGui.moc"
