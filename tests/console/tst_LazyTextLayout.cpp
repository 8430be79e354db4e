#include "console/LazyTextLayout.h"
#include "tests/console/ConsoleUnderTest.h"
#include "tests/TestClass.h"

#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

namespace {

QFont fixedFont()
{
    QFont font(u"Courier"_s, 10);
    font.setStyleHint(QFont::TypeWriter, QFont::PreferNoShaping);
    return font;
}

// A text widget with Qt's own layout, or with ours.
QTextEdit *makeView(bool lazy, QWidget *parent)
{
    auto *view = new QTextEdit(parent);
    view->document()->setUndoRedoEnabled(false);
    view->setWordWrapMode(QTextOption::WrapAnywhere);
    view->setCurrentFont(fixedFont());
    view->resize(420, 300);
    if (lazy) {
        auto *layout = new LazyTextLayout(view->document());
        view->document()->setDocumentLayout(layout);
        layout->setFont(fixedFont());
    }
    return view;
}

} // namespace

// A text of very many lines shows as Qt's own layout would show it, at a small part of the price.
class tst_LazyTextLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void itShowsWhatQtShows_data();
    void itShowsWhatQtShows();
    void selectionsAndTheCursorShowAlike();
    void placesAreTheSame_data();
    void placesAreTheSame();
    void editingIsFollowed();
    void anotherWidthIsFollowed();
    void anotherFontIsFollowed();
    void theEndStaysInSightWhenTheWidthChanges();
    void aViewElsewhereKeepsItsFirstLine();
    void paragraphsThatNobodySeesAreNotLaidOut();
    void aComposedTextShows();
    void aConsoleTakesVeryManyLines();
    void aConsoleEchoesVeryManyLines();
    void anOldLineCanBeScrolledTo();
    void aNewFontReachesEveryLine();

private:
    void fill(const QString &text)
    {
        for (QTextEdit *view : {ours, qts}) {
            QTextCursor cursor(view->document());
            cursor.movePosition(QTextCursor::End);
            QTextCharFormat format;
            format.setFont(fixedFont());
            cursor.insertText(text, format);
        }
    }
    QImage imageOf(QTextEdit *view) const
    {
        view->setCursorWidth(0);
        return view->viewport()->grab().toImage();
    }
    void compare()
    {
        QCOMPARE(ours->document()->size().height(), qts->document()->size().height());
        // Qt's own layout takes its time.
        QTRY_COMPARE(ours->verticalScrollBar()->maximum(), qts->verticalScrollBar()->maximum());
        QCOMPARE(imageOf(ours), imageOf(qts));
    }
    void resizeBoth(int width)
    {
        ours->resize(width, 300);
        qts->resize(width, 300);
    }

    std::unique_ptr<QWidget> window;
    QTextEdit *ours = nullptr;
    QTextEdit *qts = nullptr;
};

void tst_LazyTextLayout::init()
{
    // In one window, so that both are active or not.
    window = std::make_unique<QWidget>();
    ours = makeView(true, window.get());
    qts = makeView(false, window.get());
    qts->move(0, 310);
    window->resize(1000, 620);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
}

void tst_LazyTextLayout::itShowsWhatQtShows_data()
{
    QTest::addColumn<QString>("text");
    const QString line = u"The quick brown fox"_s;
    QTest::newRow("same-empty-1") << QString();
    QTest::newRow("same-line-1") << line;
    QTest::newRow("same-lines-1") << (line + u'\n').repeated(12);
    QTest::newRow("same-lines-2 more than fit") << (line + u'\n').repeated(120);
    QTest::newRow("same-wrapped-1") << line.repeated(20) + u'\n' + line;
    QTest::newRow("same-wrapped-2 blanks at the margin") << QString(500, u' ') + u"x\n"_s + line;
    QTest::newRow("same-wrapped-3 without a blank") << QString(700, u'x') + u"\n\n"_s + line;
    QTest::newRow("same-script-1 other letters") << u"äöü αβγ жзи\n漢字かな交じり文\n"_s + line;
    QTest::newRow("same-script-2 from right to left") << u"שלום עולם\n"_s + line;
    QTest::newRow("same-script-3 beyond the basic plane") << u"\U0001F600 \U0001D11E\n"_s + line;
    QTest::newRow("same-tab-1") << u"a\tb\n\t\tc\n"_s + line;
    QTest::newRow("same-odd-1") << u"a\u0001b\u00a0c\u2028d\n"_s + line;
}

void tst_LazyTextLayout::itShowsWhatQtShows()
{
    QFETCH(const QString, text);
    fill(text);
    compare();
    for (QTextEdit *view : {ours, qts})
        view->verticalScrollBar()->setValue(view->verticalScrollBar()->maximum() / 2);
    compare();
}

void tst_LazyTextLayout::selectionsAndTheCursorShowAlike()
{
    fill(u"one line\n"_s + QString(200, u'x') + u"\nlast"_s);
    for (QTextEdit *view : {ours, qts}) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(4);
        cursor.setPosition(40, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
    }
    compare();
    for (QTextEdit *view : {ours, qts}) {
        view->moveCursor(QTextCursor::End);
        view->setCursorWidth(3);
        QCOMPARE(view->cursorWidth(), 3);
    }
    QCOMPARE(ours->cursorRect(), qts->cursorRect());
}

void tst_LazyTextLayout::placesAreTheSame_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("place-1 corner") << QPoint(0, 0);
    QTest::newRow("place-2 in a line") << QPoint(60, 12);
    QTest::newRow("place-3 behind a line") << QPoint(400, 12);
    QTest::newRow("place-4 in a wrapped line") << QPoint(100, 45);
    QTest::newRow("place-5 below the text") << QPoint(30, 280);
    QTest::newRow("place-6 left of the text") << QPoint(1, 30);
    QTest::newRow("place-7 above the text") << QPoint(50, -20);
}

void tst_LazyTextLayout::placesAreTheSame()
{
    QFETCH(const QPoint, point);
    fill(u"one line\n"_s + QString(200, u'x') + u"\nlast"_s);
    const QTextCursor there = ours->cursorForPosition(point);
    QCOMPARE(there.position(), qts->cursorForPosition(point).position());
    QCOMPARE(ours->cursorRect(there), qts->cursorRect(qts->cursorForPosition(point)));
    QCOMPARE(ours->anchorAt(point), QString());
}

void tst_LazyTextLayout::editingIsFollowed()
{
    fill(u"one\ntwo\nthree\nfour"_s);
    for (QTextEdit *view : {ours, qts}) {
        view->moveCursor(QTextCursor::Start);
        QTest::keyClicks(view, QString(100, u'y'));
        QTest::keyClick(view, Qt::Key_Return);
        QTest::keyClick(view, Qt::Key_Down);
        QTest::keyClick(view, Qt::Key_Delete);
        QTest::keyClick(view, Qt::Key_End, Qt::ControlModifier);
        for (int i = 0; i < 8; ++i)
            QTest::keyClick(view, Qt::Key_Backspace);
    }
    QCOMPARE(ours->toPlainText(), qts->toPlainText());
    QCOMPARE(ours->textCursor().position(), qts->textCursor().position());
    compare();
    ours->clear();
    qts->clear();
    compare();
}

void tst_LazyTextLayout::anotherWidthIsFollowed()
{
    fill((QString(60, u'x') + u"\nshort\n"_s).repeated(100));
    for (const int width : {200, 900, 333}) {
        resizeBoth(width);
        // Whoever has looked at all of it has laid out all of it.
        QScrollBar *const bar = ours->verticalScrollBar();
        for (int value = 0; value < bar->maximum(); value += 100) {
            bar->setValue(value);
            ours->viewport()->repaint();
        }
        bar->setValue(0);
        QTRY_COMPARE(bar->maximum(), qts->verticalScrollBar()->maximum());
        compare();
    }
}

void tst_LazyTextLayout::anotherFontIsFollowed()
{
    fill(u"one line\n"_s.repeated(50));
    QFont large = fixedFont();
    large.setPointSize(20);
    static_cast<LazyTextLayout *>(ours->document()->documentLayout())->setFont(large);
    for (QTextEdit *view : {ours, qts}) {
        view->selectAll();
        view->setCurrentFont(large);
        view->moveCursor(QTextCursor::Start);
    }
    compare();
}

void tst_LazyTextLayout::theEndStaysInSightWhenTheWidthChanges()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 5'000; ++i)
            console.writeOutput(u"a line that is long enough to be wrapped, "_s.repeated(1 + i % 5),
                                Qt::blue);
        return u"done"_s;
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    for (const int width : {300, 1000, 450}) {
        console.resize(width, 300);
        QCoreApplication::processEvents();
        QCOMPARE(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
        QVERIFY(console.viewport()->rect().contains(console.cursorRect()));
    }
}

void tst_LazyTextLayout::aViewElsewhereKeepsItsFirstLine()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 5'000; ++i)
            console.writeOutput(QString::number(i) + u" a line that is long enough, "_s.repeated(4),
                                Qt::blue);
        return u"done"_s;
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    const auto first = [&console] {
        return console.cursorForPosition(QPoint(0, 0)).block().blockNumber();
    };
    console.verticalScrollBar()->setValue(console.verticalScrollBar()->maximum() / 2);
    const int before = first();
    QVERIFY(before > 1'000 && before < 4'000);
    for (const int width : {300, 1000, 450}) {
        console.resize(width, 300);
        QCoreApplication::processEvents();
        QCOMPARE(first(), before);
    }
    QFont large = console.currentFont();
    large.setPointSize(20);
    console.setFont(large);
    QCOMPARE(first(), before);
    // A font is nothing that was typed.
    QVERIFY(!console.document()->isUndoAvailable());
}

void tst_LazyTextLayout::paragraphsThatNobodySeesAreNotLaidOut()
{
    fill(u"a line\n"_s.repeated(10'000));
    ours->viewport()->repaint();
    int laidOut = 0;
    for (QTextBlock block = ours->document()->begin(); block.isValid(); block = block.next())
        laidOut += block.layout()->lineCount() > 0;
    QVERIFY2(laidOut > 10 && laidOut < 400, qPrintable(QString::number(laidOut)));
    // Qt's own layout takes its time.
    QTRY_COMPARE(ours->verticalScrollBar()->maximum(), qts->verticalScrollBar()->maximum());
}

void tst_LazyTextLayout::aComposedTextShows()
{
    fill(u"one\ntwo"_s);
    for (QTextEdit *view : {ours, qts}) {
        view->moveCursor(QTextCursor::End);
        QInputMethodEvent::Attribute cursor(QInputMethodEvent::Cursor, 2, 1, {});
        QInputMethodEvent event(u"abc"_s, {cursor});
        QApplication::sendEvent(view, &event);
    }
    QCOMPARE(ours->cursorRect(), qts->cursorRect());
    compare();
}

void tst_LazyTextLayout::aConsoleTakesVeryManyLines()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 700'000; ++i)
            console.writeOutput(QString::number(i), Qt::blue);
        return u"done"_s;
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    QCOMPARE(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
    const QString text = console.toPlainText();
    QVERIFY(text.startsWith(u"Welcome\n> count\n0\n1\n2\n"_s));
    QVERIFY(text.endsWith(u"\n699998\n699999\ndone\n> "_s));
    QCOMPARE(text.count(u'\n'), 700'003);
    QTest::keyClicks(&console, u"abc"_s);
    QCOMPARE(console.getCurrentCommand(), u"abc"_s);
}

void tst_LazyTextLayout::aConsoleEchoesVeryManyLines()
{
    ConsoleUnderTest console;
    console.start();
    const QString command = u"incr count; # one of many\n"_s.repeated(700'000) + u"end"_s;
    console.execCommand(command, true, true, nullptr);
    QCOMPARE(console.verticalScrollBar()->value(), console.verticalScrollBar()->maximum());
    QCOMPARE(console.history, QStringList {QString(command).replace(u'\n', u"\\n"_s)});
    QVERIFY(console.toPlainText().endsWith(u"many\nend\n> "_s));
}

// Far below the height that Qt's own layout can bear, every line is where it belongs.
void tst_LazyTextLayout::anOldLineCanBeScrolledTo()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 700'000; ++i)
            console.writeOutput(QString::number(i), Qt::blue);
        return QString();
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    for (const int number : {0, 1234, 350'000, 699'990}) {
        QTextCursor cursor(console.document()->findBlockByNumber(number + 2));
        console.setTextCursor(cursor);
        console.ensureCursorVisible();
        const QRect place = console.cursorRect();
        QVERIFY(console.viewport()->rect().contains(place));
        const QTextCursor found = console.cursorForPosition(place.center());
        QCOMPARE(found.block().text(), QString::number(number));
        const QImage image =
            console.viewport()->grab(QRect(0, place.top(), 200, place.height())).toImage();
        bool isBlue = false;
        for (int x = 0; x < image.width() && !isBlue; ++x) {
            for (int y = 0; y < image.height() && !isBlue; ++y) {
                const QColor color = image.pixelColor(x, y);
                isBlue = color.blue() > 200 && color.red() < 120;
            }
        }
        QVERIFY2(isBlue, qPrintable(QString::number(number)));
    }
}

void tst_LazyTextLayout::aNewFontReachesEveryLine()
{
    ConsoleUnderTest console;
    console.start();
    console.run = [&console](const QString &, int *) {
        for (int i = 0; i < 20'000; ++i)
            console.writeOutput(QString::number(i), Qt::blue);
        return QString();
    };
    console.execCommand(u"count"_s, true, true, nullptr);
    const int before = console.verticalScrollBar()->maximum();
    QFont large = console.currentFont();
    large.setPointSize(30);
    console.setFont(large);
    QVERIFY(console.verticalScrollBar()->maximum() > 2 * before);
    QCOMPARE(console.document()->lastBlock().charFormat().font().pointSize(), 30);
    const auto hasOldFont = [&console] {
        for (QTextBlock block = console.document()->begin(); block.isValid();
             block = block.next()) {
            if (block.charFormat().font().pointSize() != 30)
                return true;
            const auto text = block.begin();
            if (!text.atEnd() && text.fragment().charFormat().font().pointSize() != 30)
                return true;
        }
        return false;
    };
    console.writeOutput(u"meanwhile"_s, Qt::blue);
    QTRY_VERIFY(!hasOldFont());
    QCOMPARE(console.document()->blockCount(), 20'004);
    QVERIFY(console.isUndoRedoEnabled());
    QVERIFY(!console.document()->isUndoAvailable());
}

TEST_CLASS(tst_LazyTextLayout)
#include "tst_LazyTextLayout.moc"
