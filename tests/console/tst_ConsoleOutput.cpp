#include "ConsoleUnderTest.h"
#include "tests/console/PaintCounter.h"
#include "tests/TestClass.h"

#include <QRandomGenerator>
#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

namespace {

// What a console shows when every paragraph is laid out at once.
class SlowView : public QTextEdit
{
public:
    explicit SlowView(const ConsoleUnderTest &like)
    {
        document()->setUndoRedoEnabled(false);
        setWordWrapMode(like.wordWrapMode());
        setCurrentFont(like.currentFont());
        append(u"Welcome"_s);
        append(QString());
        resize(like.size());
    }
    void write(const QString &text, const QColor &color)
    {
        setTextColor(color);
        append(text);
    }
    void prompt(const QString &text, const QColor &color)
    {
        moveCursor(QTextCursor::End);
        setTextColor(color);
        insertPlainText(text);
    }
};

} // namespace

// What is written into the console, how it looks, and what it leaves alone.
class tst_ConsoleOutput : public QObject
{
    Q_OBJECT

private:
    // Writes as a running command does, and then goes on with a prompt.
    void runWriting(const std::function<void()> &write)
    {
        console->run = [write](const QString &, int *) {
            write();
            return QString();
        };
        console->execCommand(u"c"_s, true, true, nullptr);
    }
    void fill(int lines)
    {
        runWriting([this, lines] {
            for (int i = 0; i < lines; ++i)
                console->writeOutput(QString::number(i), Qt::blue);
        });
    }
    QScrollBar *bar() const { return console->verticalScrollBar(); }

    std::unique_ptr<ConsoleUnderTest> console;

private Q_SLOTS:
    void init()
    {
        console = std::make_unique<ConsoleUnderTest>();
        console->start();
    }

    void howAConsoleBegins()
    {
        const ConsoleUnderTest fresh;
        QCOMPARE(fresh.toPlainText(), u"Welcome\n"_s);
        QCOMPARE(fresh.cmdColor, QApplication::palette().color(QPalette::Current, QPalette::Text));
        QCOMPARE(fresh.errColor, QColor(Qt::red));
        QCOMPARE(fresh.outColor, QColor(Qt::blue));
        QCOMPARE(fresh.completionColor, QColor(Qt::darkGreen));
        QCOMPARE(fresh.promptLength, 0);
        QCOMPARE(fresh.prompt, QString());
        QCOMPARE(fresh.history, QStringList());
        QCOMPARE(fresh.recordedScript, QStringList());
        QCOMPARE(fresh.historyIndex, 0);
        QCOMPARE(fresh.promptParagraph, 0);
        QCOMPARE(fresh.currentFont().family(), u"Courier"_s);
        QCOMPARE(fresh.currentFont().styleHint(), QFont::TypeWriter);
        QCOMPARE(fresh.tabStopDistance(),
                 4 * QFontMetricsF(fresh.currentFont()).horizontalAdvance(u'a'));
        QCOMPARE(fresh.wordWrapMode(), QTextOption::WrapAnywhere);
        QCOMPARE(fresh.document()->maximumBlockCount(), 0);
        QVERIFY(!fresh.isUndoRedoEnabled());
    }

    void aLightGroundStaysLight()
    {
        const QPalette usual = QApplication::palette();
        QPalette dark = usual;
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(dark);
        ConsoleUnderTest fresh;
        QCOMPARE(fresh.cmdColor, QColor(Qt::white));
        QCOMPARE(fresh.palette().color(QPalette::Base), QColor(Qt::black));
        fresh.keepLightGround();
        QCOMPARE(fresh.cmdColor, QColor(Qt::black));
        QCOMPARE(fresh.palette().color(QPalette::Base), QColor(Qt::white));
        QTextCursor welcome(fresh.document());
        welcome.movePosition(QTextCursor::Right);
        QCOMPARE(welcome.charFormat().foreground().color(), QColor(Qt::black));
        QApplication::setPalette(usual);
        QApplication::setPalette(dark);
        QCOMPARE(fresh.palette().color(QPalette::Base), QColor(Qt::white));
        QApplication::setPalette(usual);
    }

    void aLightGroundThatComesBehindThePromptIsTypedOnInBlack()
    {
        const QPalette usual = QApplication::palette();
        const QScopeGuard restore([&usual] { QApplication::setPalette(usual); });
        QPalette dark = usual;
        dark.setColor(QPalette::Text, Qt::white);
        QApplication::setPalette(dark);
        ConsoleUnderTest fresh;
        fresh.start();
        fresh.keepLightGround();
        QTest::keyClicks(&fresh, u"typed"_s);
        QCOMPARE(coloursOf(fresh), u"none:Welcome/#000000:> typed/"_s);
    }

    void anEmptyWelcomeTextLeavesAnEmptyDocument()
    {
        const ConsoleUnderTest fresh {QString()};
        QVERIFY(fresh.document()->isEmpty());
        QCOMPARE(fresh.document()->blockCount(), 1);
        QCOMPARE(fresh.currentFont().family(), u"Courier"_s);
    }

    void resetKeepsThePromptAndShowsNone()
    {
        fill(3);
        console->reset(u"Again"_s);
        QCOMPARE(console->toPlainText(), u"Again\n"_s);
        QCOMPARE(console->history, QStringList());
        QCOMPARE(console->recordedScript, QStringList());
        QCOMPARE(console->historyIndex, 0);
        QCOMPARE(console->prompt, u"> "_s);
        QCOMPARE(console->currentFont().family(), u"Courier"_s);
        console->writeOutput(u"out"_s, Qt::blue);
        QCOMPARE(console->toPlainText(), u"Again\n\nout"_s);
        console->writeOutput(QString(), Qt::blue);
        console->displayPrompt();
        QCOMPARE(console->picture(), u"Again\n\nout\n> |"_s);
    }

    void clearTakesTheTextOnly()
    {
        fill(1);
        console->clear();
        QCOMPARE(console->toPlainText(), QString());
        QCOMPARE(console->history, QStringList {u"c"_s});
        QCOMPARE(console->prompt, u"> "_s);
        console->displayPrompt();
        QCOMPARE(console->picture(), u"> |"_s);
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(console->getCurrentCommand(), u"x"_s);
    }

    void eachTextIsAParagraphBehindTheCommand()
    {
        runWriting([this] {
            console->writeOutput(u"out"_s, console->outColor);
            console->writeOutput(u"oops"_s, console->errColor);
            console->writeOutput(QString(), console->outColor);
            console->writeOutput(u"two\nlines"_s, console->outColor);
        });
        QCOMPARE(console->picture(), u"Welcome\n> c\nout\noops\n\ntwo\nlines\n> |"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> c/#0000ff:out/#ff0000:oops//#0000ff:two/#0000ff:lines/"
                 "#000000:> /"_s);
    }

    void nothingIsTakenForMarkup()
    {
        const QString text = u"<b>bold</b> &amp; <img src='x'>"_s;
        ConsoleUnderTest shown(text);
        QCOMPARE(shown.toPlainText(), text + u"\n"_s);
        shown.run = [&](const QString &, int *) {
            shown.writeOutput(text, Qt::blue);
            return text;
        };
        shown.setPrompt(u"<i>p</i> "_s, true);
        shown.execCommand(text, true, true, nullptr);
        QCOMPARE(shown.toPlainText(),
                 text + u"\n<i>p</i> "_s + text + u"\n"_s + text + u"\n"_s + text
                     + u"\n<i>p</i> "_s);
    }

    void oddCharactersAreShownAsTheyAre()
    {
        const QString odd = u"tab\there \uFFFC object \u00A0 blank \U0001F600 \u2028 \u200B é"_s;
        runWriting([&] { console->writeOutput(odd, Qt::blue); });
        console->viewport()->repaint();
        QCOMPARE(console->document()->findBlockByNumber(2).text(), odd);
    }

    void outputWithoutACommandGoesInFrontOfThePrompt()
    {
        QTest::keyClicks(console.get(), u"half"_s);
        console->moveTo(12);
        console->writeOutput(u"tick"_s, console->outColor);
        console->writeOutput(u"two\nlines"_s, console->errColor);
        QCOMPARE(console->picture(), u"Welcome\ntick\ntwo\nlines\n> ha|lf"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#0000ff:tick/#ff0000:two/#ff0000:lines/#000000:> half/"_s);
        QCOMPARE(console->promptParagraph, 4);
        QCOMPARE(console->getCurrentCommand(), u"half"_s);
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(console->picture(), u"Welcome\ntick\ntwo\nlines\n> hax|lf"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#0000ff:tick/#ff0000:two/#ff0000:lines/#000000:> haxlf/"_s);
    }

    void outputInFrontOfAPromptInTheFirstParagraph()
    {
        ConsoleUnderTest bare {QString()};
        bare.setPrompt(u"> "_s, true);
        bare.writeOutput(u"tick"_s, Qt::blue);
        QCOMPARE(bare.picture(), u"tick\n> |"_s);
        QTest::keyClick(&bare, Qt::Key_Backspace);
        QCOMPARE(bare.picture(), u"tick\n> |"_s);
    }

    void outputInFrontOfACommandOfSeveralLines()
    {
        console->complete = [](const QString &) { return false; };
        QTest::keyClicks(console.get(), u"if {"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QTest::keyClicks(console.get(), u"a"_s);
        console->writeOutput(u"tick"_s, Qt::blue);
        QCOMPARE(console->picture(), u"Welcome\ntick\n> if {\na|"_s);
        QCOMPARE(console->getCurrentCommand(), u"if {\na"_s);
    }

    void outputInFrontOfAnEmptyPrompt()
    {
        console->setPrompt(QString(), false);
        runWriting([] {});
        QTest::keyClicks(console.get(), u"ab"_s);
        console->writeOutput(u"tick"_s, Qt::blue);
        QCOMPARE(console->picture(), u"Welcome\n> c\ntick\nab|"_s);
        QCOMPARE(console->getCurrentCommand(), u"ab"_s);
        console->replaceCurrentCommand(QString());
        console->writeOutput(u"tock"_s, Qt::blue);
        QTest::keyClicks(console.get(), u"cd"_s);
        QCOMPARE(console->picture(), u"Welcome\n> c\ntick\ntock\ncd|"_s);
        QCOMPARE(coloursOf(*console),
                 u"none:Welcome/#000000:> c/#0000ff:tick/#0000ff:tock/#000000:cd/"_s);
    }

    void undoCannotReachBehindOutput()
    {
        QTest::keyClicks(console.get(), u"half"_s);
        console->writeOutput(u"tick"_s, Qt::blue);
        QTest::keyClick(console.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->picture(), u"Welcome\ntick\n> half|"_s);
        QTest::keyClicks(console.get(), u"x"_s);
        QTest::keyClick(console.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(console->picture(), u"Welcome\ntick\n> half|"_s);
    }

    void selectionsStayAndAreNotRecoloured_data()
    {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("after");
        QTest::newRow("selection-output-1") << 1 << 4 << u"W^elc|ome\ntick\ntock\n> abc"_s;
        QTest::newRow("selection-output-2 backwards")
            << 4 << 1 << u"W|elc^ome\ntick\ntock\n> abc"_s;
        QTest::newRow("selection-output-3 up to the prompt")
            << 0 << 8 << u"^Welcome\n|tick\ntock\n> abc"_s;
        QTest::newRow("selection-output-4 up to the prompt, backwards")
            << 8 << 0 << u"|Welcome\n^tick\ntock\n> abc"_s;
        QTest::newRow("selection-zone-1") << 10 << 13 << u"Welcome\ntick\ntock\n> ^abc|"_s;
        QTest::newRow("selection-zone-2 with the prompt")
            << 8 << 13 << u"Welcome\ntick\ntock\n^> abc|"_s;
        QTest::newRow("selection-cursor-1 in front of the prompt")
            << 8 << 8 << u"Welcome\ntick\ntock\n|> abc"_s;
        QTest::newRow("selection-cursor-2 in output") << 7 << 7 << u"Welcome|\ntick\ntock\n> abc"_s;
    }

    void selectionsStayAndAreNotRecoloured()
    {
        QFETCH(int, anchor);
        QFETCH(int, position);
        QTest::keyClicks(console.get(), u"abc"_s);
        console->select(anchor, position);
        console->writeOutput(u"tick"_s, Qt::red);
        console->writeOutput(u"tock"_s, Qt::red);
        QTest::qWait(80);
        QTEST(console->picture(), "after");
        QCOMPARE(coloursOf(*console), u"none:Welcome/#ff0000:tick/#ff0000:tock/#000000:> abc/"_s);
    }

    void aSelectionUpToTheEndDoesNotGrowWhileACommandWrites()
    {
        runWriting([this] {
            console->selectAll();
            console->writeOutput(u"out"_s, Qt::blue);
            QTest::qWait(80);
            QCOMPARE(console->picture(), u"^Welcome\n> c|\nout"_s);
        });
        QCOMPARE(console->picture(), u"Welcome\n> c\nout\n> |"_s);
    }

    void aViewAtItsEndFollowsOutput()
    {
        fill(100);
        QCOMPARE(bar()->value(), bar()->maximum());
        const int before = bar()->maximum();
        console->writeOutput(u"tick"_s, Qt::blue);
        QTest::qWait(80);
        QVERIFY(bar()->maximum() > before);
        QCOMPARE(bar()->value(), bar()->maximum());
    }

    void aViewElsewhereStaysThroughOutput()
    {
        fill(100);
        bar()->setValue(37);
        console->writeOutput(u"tick"_s, Qt::blue);
        QTest::qWait(80);
        QCOMPARE(bar()->value(), 37);
        fill(5);
        QCOMPARE(bar()->value(), 37);
    }

    // A burst is open until its 50 ms are over.
    void aViewMovedWhileOutputIsHeldStaysThere()
    {
        fill(100);
        console->writeOutput(u"tick"_s, Qt::blue);
        bar()->setValue(37);
        QTest::qWait(80);
        QCOMPARE(bar()->value(), 37);
        console->writeOutput(u"tock"_s, Qt::blue);
        bar()->setValue(bar()->maximum());
        QTest::qWait(80);
        QCOMPARE(bar()->value(), bar()->maximum());
    }

    void returnBringsTheEndIntoView()
    {
        fill(100);
        bar()->setValue(0);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QCOMPARE(bar()->value(), bar()->maximum());
    }

    void typingBringsTheEndIntoViewAndTheViewFollowsAgain()
    {
        fill(100);
        bar()->setValue(0);
        QTest::keyClicks(console.get(), u"x"_s);
        QVERIFY(bar()->value() > 0);
        console->writeOutput(u"tick"_s, Qt::blue);
        QTest::qWait(80);
        QCOMPARE(bar()->value(), bar()->maximum());
    }

    void itLooksLikeTheSlowVersion_data()
    {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 8; ++seed)
            QTest::addRow("slow-same-%u", seed) << seed;
    }

    // Random bursts: text, colours, scroll range, place, undo and the end's cursor are the same.
    void itLooksLikeTheSlowVersion()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        SlowView slow(*console);
        slow.show();
        slow.prompt(u"> "_s, console->cmdColor);
        for (int command = 0; command < 6; ++command) {
            QList<std::pair<QString, QColor>> writes;
            const int count = random.bounded(400);
            for (int i = 0; i < count; ++i) {
                const QString text = QString(random.bounded(200), u'x')
                    + (random.bounded(10) == 0 ? u"\nsecond"_s : QString());
                writes.append({text, random.bounded(2) ? console->outColor : console->errColor});
            }
            runWriting([&] {
                for (const auto &[text, color] : std::as_const(writes))
                    console->writeOutput(text, color);
            });
            slow.prompt(u"c"_s, console->cmdColor);
            for (const auto &[text, color] : std::as_const(writes))
                slow.write(text, color);
            slow.write(QString(), console->outColor);
            slow.prompt(u"> "_s, console->cmdColor);
            QCOMPARE(console->toPlainText(), slow.toPlainText());
            QCOMPARE(coloursOf(*console), coloursOf(slow));
            QCOMPARE(bar()->maximum(), slow.verticalScrollBar()->maximum());
            QCOMPARE(bar()->value(), slow.verticalScrollBar()->value());
            QCOMPARE(console->textCursor().position(), slow.textCursor().position());
            QVERIFY(!console->document()->isUndoAvailable());
            QVERIFY(!console->document()->isRedoAvailable());
            QVERIFY(console->isUndoRedoEnabled());
        }
        slow.setCursorWidth(0);
        console->setCursorWidth(0);
        QCOMPARE(console->viewport()->grab().toImage(), slow.viewport()->grab().toImage());
    }

    void theTextIsThereAtOnce()
    {
        console->writeOutput(u"tick"_s, Qt::blue);
        QCOMPARE(console->toPlainText(), u"Welcome\ntick\n> "_s);
    }

    void theLayoutFollowsWithoutAnyEvent()
    {
        fill(100);
        const int before = bar()->maximum();
        console->writeOutput(u"tick\ntock\ntack"_s, Qt::blue);
        QTRY_VERIFY_WITH_TIMEOUT(bar()->maximum() > before, patient(500));
    }

    void anEventForTheConsoleFindsTheLayoutReady()
    {
        fill(100);
        console->writeOutput(u"one"_s, Qt::blue);
        const int before = bar()->maximum();
        console->writeOutput(u"two\nthree"_s, Qt::blue);
        QTest::keyClicks(console.get(), u"x"_s);
        QVERIFY(bar()->maximum() > before);
    }

    // A script that writes for long shows what it does, and no event is let in for that.
    void aLongWritingScriptIsPaintedButNoEventIsProcessed()
    {
        fill(10);
        QTest::qWait(20);
        PaintCounter counter(console->viewport());
        bool letIn = false;
        QTimer timer;
        timer.callOnTimeout([&letIn] { letIn = true; });
        timer.start(0);
        QElapsedTimer clock;
        runWriting([&] {
            clock.start();
            while (clock.elapsed() < 400) {
                console->writeOutput(u"line"_s, Qt::blue);
                QTest::qSleep(1);
            }
            QVERIFY(!letIn);
            QVERIFY2(counter.paints >= 2, qPrintable(QString::number(counter.paints)));
            QVERIFY2(counter.paints <= 8, qPrintable(QString::number(counter.paints)));
        });
    }

    void aShortCommandIsNotPaintedTwice()
    {
        fill(10);
        QTest::qWait(100);
        PaintCounter counter(console->viewport());
        runWriting([&] {
            console->writeOutput(u"line"_s, Qt::blue);
            QCOMPARE(counter.paints, 0);
        });
    }

    void aConsoleThatGoesWithItsOutputUnfinished()
    {
        console->writeOutput(u"tick"_s, Qt::blue);
        console.reset();
        QTest::qWait(80);
    }

    void aLineOfAMillionCharactersStaysWhole()
    {
        const QString text(1000000, u'x');
        runWriting([&] { console->writeOutput(text, Qt::blue); });
        QCOMPARE(console->document()->findBlockByNumber(2).text(), text);
        QCOMPARE(bar()->value(), bar()->maximum());
    }

    void theFontIsThatOfAllTextNowAndLater()
    {
        fill(2);
        QTest::keyClicks(console.get(), u"abc"_s);
        console->select(2, 5);
        const QString before = console->picture();
        const QString colours = coloursOf(*console);
        QFont font(u"Helvetica"_s, 17);
        console->setFont(font);
        QCOMPARE(console->picture(), before);
        QCOMPARE(coloursOf(*console), colours);
        console->undo();
        QCOMPARE(console->picture(), before);
        console->moveTo(int(console->toPlainText().size()));
        QTest::keyClicks(console.get(), u"d"_s);
        fill(2);
        for (QTextBlock block = console->document()->begin(); block.isValid();
             block = block.next()) {
            QCOMPARE(block.charFormat().font().family(), u"Helvetica"_s);
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                QCOMPARE(it.fragment().charFormat().font().family(), u"Helvetica"_s);
                QCOMPARE(it.fragment().charFormat().font().pointSize(), 17);
            }
        }
        QCOMPARE(console->currentFont().family(), u"Helvetica"_s);
    }

    void aNewPromptCountsFromTheNextOneShown()
    {
        QTest::keyClicks(console.get(), u"ab"_s);
        console->setPrompt(u"much longer> "_s, false);
        QCOMPARE(console->picture(), u"Welcome\n> ab|"_s);
        QCOMPARE(console->getCurrentCommand(), u"ab"_s);
        QTest::keyClick(console.get(), Qt::Key_Backspace);
        QTest::keyClick(console.get(), Qt::Key_Backspace);
        QTest::keyClick(console.get(), Qt::Key_Backspace);
        QCOMPARE(console->picture(), u"Welcome\n> |"_s);
        QTest::keyClick(console.get(), Qt::Key_Return);
        QCOMPARE(console->picture(), u"Welcome\n> \nmuch longer> |"_s);
        QCOMPARE(console->promptLength, 13);
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(console->getCurrentCommand(), u"x"_s);
    }

    void aPromptGoesToTheEndWhereverTheCursorStood()
    {
        fill(2);
        console->moveTo(3);
        console->writeOutput(u"out"_s, Qt::blue);
        console->execCommand(u"c"_s, false, true, nullptr);
        QVERIFY(console->picture().endsWith(u"\n> |"_s));
        console->select(2, 4);
        console->execCommand(u"echo"_s, true, true, nullptr);
        QVERIFY(console->picture().endsWith(u"\n> echo\n0\n1\n> |"_s));
        QVERIFY(console->toPlainText().startsWith(u"Welcome\n> c\n"_s));
    }

    void aPromptOfTwoLinesCountsItsLastOne()
    {
        console->setPrompt(u"first\n% "_s, false);
        fill(0);
        QTest::keyClicks(console.get(), u"x"_s);
        QCOMPARE(console->getCurrentCommand(), u"x"_s);
        QTest::keyClick(console.get(), Qt::Key_Backspace);
        QTest::keyClick(console.get(), Qt::Key_Backspace);
        QCOMPARE(console->picture(), u"Welcome\n> c\nfirst\n% |"_s);
    }
};

TEST_CLASS(tst_ConsoleOutput)
#include "tst_ConsoleOutput.moc"
