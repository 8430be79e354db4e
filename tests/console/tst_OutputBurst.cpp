#include "console/OutputBurst.h"
#include "tests/console/PaintCounter.h"
#include "tests/TestClass.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

// The burst alone, in a widget that does not close it.
class tst_OutputBurst : public QObject
{
    Q_OBJECT

private:
    void write(int lines)
    {
        QTextCursor &cursor = burst->open();
        for (int i = 0; i < lines; ++i) {
            cursor.movePosition(QTextCursor::End);
            cursor.insertBlock();
            cursor.insertText(u"line"_s);
        }
    }
    int end() const { return view->verticalScrollBar()->maximum(); }

    std::unique_ptr<QTextEdit> view;
    std::unique_ptr<OutputBurst> burst;

private Q_SLOTS:
    void init()
    {
        burst.reset();
        view = std::make_unique<QTextEdit>();
        view->resize(300, 100);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get(), patient()));
        burst = std::make_unique<OutputBurst>(view.get());
        write(50);
        burst->close();
        QVERIFY(end() > 0);
    }

    void theLayoutWaitsForTheEnd()
    {
        const int before = end();
        write(10);
        write(10);
        QCOMPARE(end(), before);
        QCOMPARE(view->document()->blockCount(), 71);
        burst->close();
        QVERIFY(end() > before);
    }

    void aTimerEndsIt()
    {
        const int before = end();
        write(10);
        QTRY_VERIFY_WITH_TIMEOUT(end() > before, patient(1000));
    }

    void aFollowingViewFollowsAndAnyOtherStays()
    {
        view->verticalScrollBar()->setValue(end());
        write(10);
        burst->close();
        QCOMPARE(view->verticalScrollBar()->value(), end());
        view->verticalScrollBar()->setValue(7);
        write(10);
        burst->close();
        QCOMPARE(view->verticalScrollBar()->value(), 7);
    }

    void undoIsOffMeanwhile()
    {
        for (const bool on : {true, false}) {
            view->setUndoRedoEnabled(on);
            write(1);
            QVERIFY(!view->isUndoRedoEnabled());
            burst->close();
            QCOMPARE(view->isUndoRedoEnabled(), on);
            QVERIFY(!view->document()->isUndoAvailable());
        }
    }

    void closingTwiceIsHarmless()
    {
        write(1);
        burst->close();
        burst->close();
        QVERIFY(view->isUndoRedoEnabled());
    }

    void whatIsWrittenForLongIsPainted()
    {
        burst->restartClock();
        PaintCounter counter(view->viewport());
        write(1);
        burst->written();
        QCOMPARE(counter.paints, 0);
        QTest::qSleep(60);
        write(1);
        burst->written();
        QCOMPARE(counter.paints, 1);
        write(1);
        burst->written();
        QCOMPARE(counter.paints, 1);
    }

    void aHiddenViewIsNotPainted()
    {
        view->hide();
        PaintCounter counter(view->viewport());
        const int before = end();
        write(1);
        QTest::qSleep(60);
        burst->written();
        QCOMPARE(counter.paints, 0);
        QVERIFY(end() > before);
    }

    // Each painting takes 20 ms here, so the next one has to wait for 200.
    void slowPaintingIsRarer()
    {
        class Slow : public QObject
        {
        public:
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::Paint)
                    QTest::qSleep(20);
                return false;
            }
        } slow;
        PaintCounter counter(view->viewport());
        view->viewport()->installEventFilter(&slow);
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 500) {
            write(1);
            burst->written();
            QTest::qSleep(5);
        }
        QVERIFY2(counter.paints >= 1 && counter.paints <= 4,
                 qPrintable(QString::number(counter.paints)));
    }
};

TEST_CLASS(tst_OutputBurst)
#include "tst_OutputBurst.moc"
