#include "app/editor/GoToLineBar.h"
#include "tests/app/editor/SearchFixture.h"
#include "tests/TestClass.h"

using namespace Qt::Literals::StringLiterals;

class tst_GoToLineBar : public QObject, private SearchFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(openArea()); }
    void cleanup() { area.reset(); }

    void aLineIsGoneTo_data();
    void aLineIsGoneTo();
    void oneStripAtATime();
};

void tst_GoToLineBar::aLineIsGoneTo_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("place");
    QTest::newRow("line-1 with Ctrl+L") << int(Qt::Key_L) << u"3"_s << u"3:1 "_s;
    QTest::newRow("line-2 with Ctrl+G") << int(Qt::Key_G) << u"4"_s << u"4:1 "_s;
    // What is typed cannot be beyond the last line.
    QTest::newRow("line-3 beyond the end") << int(Qt::Key_L) << u"9"_s << u"1:1 "_s;
}

void tst_GoToLineBar::aLineIsGoneTo()
{
    QFETCH(const int, key);
    QFETCH(const QString, typed);
    QFETCH(const QString, place);
    press(key, Qt::ControlModifier);
    const auto *lines = page->findChild<GoToLineBar *>();
    QVERIFY(lines->isVisible());
    type(typed);
    press(Qt::Key_Return);
    QVERIFY(!lines->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
    QCOMPARE(selected(), place);
}

void tst_GoToLineBar::oneStripAtATime()
{
    const auto *lines = page->findChild<GoToLineBar *>();
    press(Qt::Key_L, Qt::ControlModifier);
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!lines->isVisible() && bar->isVisible());
    press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(lines->isVisible() && !bar->isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!lines->isVisible());
    QCOMPARE(QApplication::focusWidget(), edit);
}

TEST_CLASS(tst_GoToLineBar)
#include "tst_GoToLineBar.moc"
