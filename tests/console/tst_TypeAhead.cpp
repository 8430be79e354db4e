#include "console/QConsole.h"
#include "console/SearchStrip.h"
#include "console/TypeAhead.h"
#include "tests/patience.h"
#include "tests/TestClass.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class BusyConsole : public QConsole
{
public:
    BusyConsole() : QConsole(nullptr, u"hello"_s)
    {
        setPrompt(u"> "_s, true);
        keepTypedKeys();
    }
    bool isBusy() const override { return busy; }
    QString interpretCommand(const QString &command, int *res) override
    {
        run.append(command);
        QConsole::interpretCommand(command, res);
        return {};
    }

    bool busy = false;
    QStringList run;
};

} // namespace

// What is typed while a command runs comes at the next prompt.
class tst_TypeAhead : public QObject
{
    Q_OBJECT

private:
    // Whether the console takes a key before the window's shortcuts.
    static bool isWanted(QConsole &console, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        event.ignore();
        QCoreApplication::sendEvent(&console, &event);
        return event.isAccepted();
    }

private Q_SLOTS:
    void linesAreTaken()
    {
        QTextEdit view;
        TypeAhead typed(&view);
        QVERIFY(typed.isEmpty());
        typed.append(u"a\nb\n\nc"_s);
        QCOMPARE(typed.takeLine(), u"a\n"_s);
        QCOMPARE(typed.takeLine(), u"b\n"_s);
        QCOMPARE(typed.takeLine(), u"\n"_s);
        QCOMPARE(typed.takeLine(), u"c"_s);
        QCOMPARE(typed.takeLine(), QString());
        QVERIFY(typed.isEmpty());
    }

    void keys_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<QString>("shown");
        QTest::newRow("keys-1 letters") << QList<int> {Qt::Key_A, Qt::Key_B} << u"ab"_s;
        QTest::newRow("keys-2 the end of a line")
            << QList<int> {Qt::Key_A, Qt::Key_Return, Qt::Key_B, Qt::Key_Enter}
            << u"a \u23ce b \u23ce "_s;
        QTest::newRow("keys-3 a correction")
            << QList<int> {Qt::Key_A, Qt::Key_B, Qt::Key_Backspace, Qt::Key_C} << u"ac"_s;
        QTest::newRow("keys-4 nothing to correct")
            << QList<int> {Qt::Key_Backspace, Qt::Key_A} << u"a"_s;
        QTest::newRow("keys-5 a line that has ended")
            << QList<int> {Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace} << u"a \u23ce "_s;
        QTest::newRow("keys-6 keys that type nothing")
            << QList<int> {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Home,
                           Qt::Key_Tab, Qt::Key_Escape, Qt::Key_Delete, Qt::Key_F5}
            << QString();
    }
    void keys()
    {
        QFETCH(QList<int>, keys);
        BusyConsole console;
        console.busy = true;
        const QString before = console.toPlainText();
        for (const int key : keys)
            QTest::keyClick(&console, Qt::Key(key));
        const auto *line = console.findChild<QLabel *>(u"typeAhead"_s);
        QTEST(line->text(), "shown");
        QCOMPARE(line->isHidden(), line->text().isEmpty());
        QCOMPARE(console.toPlainText(), before);
        QCOMPARE(console.run, QStringList());
    }

    void theNextPromptGetsIt()
    {
        BusyConsole console;
        console.busy = true;
        QTest::keyClicks(&console, u"one"_s);
        QTest::keyClick(&console, Qt::Key_Return);
        QTest::keyClicks(&console, u"tw"_s);
        console.typeKeptKeys();
        QCOMPARE(console.run, QStringList());
        console.busy = false;
        console.typeKeptKeys();
        QCOMPARE(console.run, QStringList {u"one"_s});
        QCOMPARE(console.getCurrentCommand(), u"tw"_s);
        QTest::keyClicks(&console, u"o"_s);
        QTest::keyClick(&console, Qt::Key_Return);
        QCOMPARE(console.run, (QStringList {u"one"_s, u"two"_s}));
    }

    void pastedAndComposedTextIsKept()
    {
        BusyConsole console;
        console.busy = true;
        QGuiApplication::clipboard()->setText(u"pasted\n"_s);
        QTest::keyClick(&console, Qt::Key_V, Qt::ControlModifier);
        QInputMethodEvent composed;
        composed.setCommitString(u"\u6f22"_s);
        QCoreApplication::sendEvent(&console, &composed);
        console.busy = false;
        console.typeKeptKeys();
        QCOMPARE(console.run, QStringList {u"pasted"_s});
        QCOMPARE(console.getCurrentCommand(), u"\u6f22"_s);
    }

    void itStaysAtTheFootWhenTheViewScrolls()
    {
        BusyConsole console;
        for (int i = 0; i < 100; ++i)
            console.execCommand(u"old %1"_s.arg(i), true, true, nullptr);
        console.show();
        QVERIFY(QTest::qWaitForWindowExposed(&console, patient()));
        console.busy = true;
        QTest::keyClicks(&console, u"one"_s);
        const auto *line = console.findChild<QLabel *>(u"typeAhead"_s);
        const QWidget *view = console.viewport();
        const auto foot = [&] { return line->mapTo(&console, line->rect().bottomLeft()); };
        const QPoint before = view->mapTo(&console, view->rect().bottomLeft());
        QCOMPARE(foot(), before);
        QScrollBar *bar = console.verticalScrollBar();
        bar->setValue(bar->value() - 50);
        QCOMPARE(foot(), before);
        bar->setValue(bar->maximum());
        QCOMPARE(foot(), before);
        QVERIFY(line->isVisible());
    }

    // Of more than fits, what came last.
    void theEndOfALongLineShows()
    {
        BusyConsole console;
        console.resize(300, 200);
        console.show();
        console.busy = true;
        const auto *line = console.findChild<QLabel *>(u"typeAhead"_s);
        QTest::keyClicks(&console, u"one"_s);
        QVERIFY(line->alignment() & Qt::AlignLeft);
        QGuiApplication::clipboard()->setText(QString(100'000, u'x') + u"end"_s);
        QTest::keyClick(&console, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(line->alignment() & Qt::AlignRight);
        QVERIFY(line->text().endsWith(u"xend"_s));
        QVERIFY2(line->text().size() < 2'000, qPrintable(QString::number(line->text().size())));
        console.busy = false;
        console.typeKeptKeys();
        QCOMPARE(console.getCurrentCommand(), u"one"_s + QString(100'000, u'x') + u"end"_s);
    }

    void itCanBeForgotten()
    {
        BusyConsole console;
        console.busy = true;
        QTest::keyClicks(&console, u"one"_s);
        QTest::keyClick(&console, Qt::Key_Return);
        console.forgetKeptKeys();
        console.busy = false;
        console.typeKeptKeys();
        QCOMPARE(console.run, QStringList());
        QCOMPARE(console.getCurrentCommand(), QString());
    }

    void copyingGoesOn()
    {
        BusyConsole console;
        console.busy = true;
        console.selectAll();
        const QString before = console.toPlainText();
        QTest::keyClick(&console, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), before);
        QTest::keyClick(&console, Qt::Key_X, Qt::ControlModifier);
        QTest::keyClick(&console, Qt::Key_Delete);
        QCOMPARE(console.toPlainText(), before);
    }

    void onlyWhatLooksWorksMeanwhile()
    {
        BusyConsole console;
        console.setFeatures(QConsole::AllFeatures);
        for (int i = 0; i < 100; ++i)
            console.execCommand(u"old %1"_s.arg(i), true, true, nullptr);
        console.show();
        console.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&console, patient()));
        console.busy = true;
        const QString before = console.toPlainText();
        for (const Qt::Key key : {Qt::Key_R, Qt::Key_L, Qt::Key_F})
            QCOMPARE(isWanted(console, key, Qt::ControlModifier), key == Qt::Key_F);
        QVERIFY(isWanted(console, Qt::Key_PageUp));
        for (const Qt::Key key : {Qt::Key_R, Qt::Key_L})
            QTest::keyClick(&console, key, Qt::ControlModifier);
        QTest::keyClick(&console, Qt::Key_Tab);
        QVERIFY(!console.findChild<SearchStrip *>());
        QCOMPARE(console.toPlainText(), before);

        QScrollBar *bar = console.verticalScrollBar();
        const int place = bar->value();
        QTest::keyClick(&console, Qt::Key_PageUp);
        QVERIFY(bar->value() < place);
        QTest::keyClick(&console, Qt::Key_F, Qt::ControlModifier);
        auto *strip = console.findChild<SearchStrip *>();
        QVERIFY(strip);
        QTest::keyClicks(strip->findChild<QLineEdit *>(), u"old 7"_s);
        QCOMPARE(console.textCursor().selectedText(), u"old 7"_s);
        QCOMPARE(console.toPlainText(), before);
        QCOMPARE(console.findChild<QLabel *>(u"typeAhead"_s)->text(), QString());
        console.busy = false;
        for (const Qt::Key key : {Qt::Key_R, Qt::Key_L, Qt::Key_F})
            QVERIFY(isWanted(console, key, Qt::ControlModifier));
    }

    void aSearchOfTheHistoryLeavesARunningCommandAlone()
    {
        BusyConsole console;
        console.setFeatures(QConsole::AllFeatures);
        console.execCommand(u"old"_s, true, true, nullptr);
        console.show();
        console.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&console, patient()));
        QTest::keyClick(&console, Qt::Key_R, Qt::ControlModifier);
        auto *pattern = console.findChild<SearchStrip *>()->findChild<QLineEdit *>();
        console.busy = true;
        const QString before = console.toPlainText();
        QTest::keyClicks(pattern, u"ol"_s);
        QTest::keyClick(pattern, Qt::Key_Escape);
        QCOMPARE(console.toPlainText(), before);
    }

    void withoutTheCallKeysGoToTheLine()
    {
        struct Plain : QConsole
        {
            Plain() : QConsole(nullptr, QString()) { setPrompt(u"> "_s, true); }
            bool isBusy() const override { return true; }
        } console;
        QTest::keyClicks(&console, u"abc"_s);
        QCOMPARE(console.getCurrentCommand(), u"abc"_s);
        QVERIFY(!console.findChild<QLabel *>(u"typeAhead"_s));
    }
};

TEST_CLASS(tst_TypeAhead)

#include "tst_TypeAhead.moc"
