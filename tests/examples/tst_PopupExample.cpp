// The example in examples/popup, whose main.cpp is built with this: an editor that completes words.

#include "console/PopupCompleter.h"
#include "console/PopupListWidget.h"
#include "examples/popup/CompletingEdit.h"
#include "tests/patience.h"

#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

class tst_PopupExample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void candidates_data();
    void candidates();
    void completes_data();
    void completes();
    void nothingToOffer();

private:
    // Presses Ctrl+Space in the editor, and then the keys in the popup; what the popup offered.
    QStringList complete(const QList<Qt::Key> &keys);

    std::unique_ptr<CompletingEdit> editor;
};

void tst_PopupExample::init()
{
    editor = std::make_unique<CompletingEdit>();
    editor->resize(400, 200);
    editor->show();
    QVERIFY(QTest::qWaitForWindowActive(editor.get(), patient()));
}

QStringList tst_PopupExample::complete(const QList<Qt::Key> &keys)
{
    QStringList offered;
    QTimer::singleShot(0, editor.get(), [&] {
        auto *popup = qobject_cast<PopupCompleter *>(QApplication::activePopupWidget());
        if (!popup)
            return;
        auto *list = popup->findChild<PopupListWidget *>();
        // With the focus the first candidate becomes the current one.
        QTRY_VERIFY(list->hasFocus());
        for (int row = 0; row < list->count(); ++row)
            offered.append(list->item(row)->text());
        for (const Qt::Key key : keys)
            QTest::keyClick(list, key);
    });
    QTest::keyClick(editor.get(), Qt::Key_Space, Qt::ControlModifier);
    QCoreApplication::processEvents();
    return offered;
}

void tst_PopupExample::candidates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("words-1 each once, in order")
        << u"beta alpha beta b_1 x"_s << u"b"_s << QStringList {u"b_1"_s, u"beta"_s};
    QTest::newRow("words-2 not the prefix itself") << u"be"_s << u"be"_s << QStringList {};
    QTest::newRow("words-3 case counts") << u"Beta"_s << u"b"_s << QStringList {};
    QTest::newRow("words-4 letters beyond ASCII") << u"M\u00fcller-M\u00fche"_s << u"M\u00fc"_s
                                                  << QStringList {u"M\u00fche"_s, u"M\u00fcller"_s};
    QTest::newRow("words-5 all words for no prefix")
        << u"b, a"_s << u""_s << QStringList {u"a"_s, u"b"_s};
}

void tst_PopupExample::candidates()
{
    QFETCH(const QString, text);
    QFETCH(const QString, prefix);
    editor->setPlainText(text);
    QTEST(editor->candidates(prefix), "words");
}

void tst_PopupExample::completes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QStringList>("offered");
    QTest::addColumn<QString>("text");
    const QStringList both {u"uart_rx"_s, u"uart_tx"_s};
    const QString before = u"uart_tx uart_rx\n"_s;
    QTest::newRow("complete-1 the first with Tab")
        << u"x=ua"_s << QList<Qt::Key> {Qt::Key_Tab} << both << before + u"x=uart_rx"_s;
    QTest::newRow("complete-2 the second with Return")
        << u"ua"_s << QList<Qt::Key> {Qt::Key_Down, Qt::Key_Return} << both
        << before + u"uart_tx"_s;
    QTest::newRow("complete-3 Escape leaves the text alone")
        << u"ua"_s << QList<Qt::Key> {Qt::Key_Escape} << both << before + u"ua"_s;
    QTest::newRow("complete-4 a word of one candidate")
        << u"uart_t"_s << QList<Qt::Key> {Qt::Key_Return} << QStringList {u"uart_tx"_s}
        << before + u"uart_tx"_s;
}

void tst_PopupExample::completes()
{
    QFETCH(const QString, typed);
    QFETCH(const QList<Qt::Key>, keys);
    editor->setPlainText(u"uart_tx uart_rx\n"_s);
    editor->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor.get(), typed);
    const QStringList offered = complete(keys);
    QTEST(offered, "offered");
    QTEST(editor->toPlainText(), "text");
}

void tst_PopupExample::nothingToOffer()
{
    editor->setPlainText(u"alpha z"_s);
    editor->moveCursor(QTextCursor::End);
    QCOMPARE(complete({}), QStringList());
    QCOMPARE(editor->toPlainText(), u"alpha z"_s);
    QVERIFY(!QApplication::activePopupWidget());
}

QTEST_MAIN(tst_PopupExample)
#include "tst_PopupExample.moc"
