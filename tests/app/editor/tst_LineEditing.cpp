// Indenting lines and making them comments, with keys.

#include "app/editor/EditorSettings.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

class tst_LineEditing : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QtilitiesApplication::setApplicationSessionPath(session.path()); }
    void cleanup();

    void tabsIndent_data();
    void tabsIndent();
    void theTextSaysHow_data();
    void theTextSaysHow();
    void thePreferencesSayHow();
    void readOnlyTextsStay();
    void commentsComeAndGo_data();
    void commentsComeAndGo();
    void commentsNeedASign();
    void textsZoom();
    void fontsAreOfFixedPitch();

private:
    void openSelected(const QByteArray &text, const QString &name, int from, int to);

    QTemporaryDir session;
};

void tst_LineEditing::cleanup()
{
    page.reset();
    EditorSettings::instance()->setIndentation({});
    EditorSettings::instance()->setFollowsText(true);
    EditorSettings::instance()->setZoom(0);
}

// Opens a text and selects from one place to another one.
void tst_LineEditing::openSelected(const QByteArray &text, const QString &name, int from, int to)
{
    QVERIFY2(openPage(text, name), qPrintable(error));
    press(Qt::Key_Home, Qt::ControlModifier);
    for (int step = 0; step < from; ++step)
        press(Qt::Key_Right);
    for (int step = from; step < to; ++step)
        press(Qt::Key_Right, Qt::ShiftModifier);
}

void tst_LineEditing::tabsIndent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("after");
    QTest::newRow("tab-1 no selection")
        << QByteArray("ab\n") << 1 << 1 << int(Qt::Key_Tab) << u"a   b\n"_s;
    QTest::newRow("tab-2 part of a line")
        << QByteArray("abc\n") << 1 << 2 << int(Qt::Key_Tab) << u"    abc\n"_s;
    QTest::newRow("tab-3 two lines")
        << QByteArray("ab\ncd\nef\n") << 1 << 4 << int(Qt::Key_Tab) << u"    ab\n    cd\nef\n"_s;
    QTest::newRow("tab-4 up to the start of a line")
        << QByteArray("ab\ncd\n") << 0 << 3 << int(Qt::Key_Tab) << u"    ab\ncd\n"_s;
    QTest::newRow("tab-5 empty lines stay")
        << QByteArray("ab\n\ncd") << 0 << 6 << int(Qt::Key_Tab) << u"    ab\n\n    cd"_s;
    QTest::newRow("back-1 no selection")
        << QByteArray("      ab\n") << 7 << 7 << int(Qt::Key_Backtab) << u"  ab\n"_s;
    QTest::newRow("back-2 two lines")
        << QByteArray("    ab\n  cd\n") << 0 << 10 << int(Qt::Key_Backtab) << u"ab\ncd\n"_s;
    QTest::newRow("back-3 a tab") << QByteArray("\t\tab\n") << 0 << 0 << int(Qt::Key_Backtab)
                                  << u"\tab\n"_s;
    QTest::newRow("back-4 blanks before a tab")
        << QByteArray("  \tab\n") << 0 << 0 << int(Qt::Key_Backtab) << u"ab\n"_s;
    QTest::newRow("back-5 nothing to take")
        << QByteArray("ab\n") << 0 << 2 << int(Qt::Key_Backtab) << u"ab\n"_s;
}

void tst_LineEditing::tabsIndent()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, from);
    QFETCH(const int, to);
    QFETCH(const int, key);
    QFETCH(const QString, after);
    EditorSettings::instance()->setFollowsText(false);
    openSelected(text, u"top.v"_s, from, to);
    press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    QCOMPARE(shown(), after);
    QVERIFY(edit->hasFocus());
    if (after == QString::fromLatin1(text))
        return;
    // One step of undoing.
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown(), QString::fromLatin1(text));
    QVERIFY(!page->isModified());
}

void tst_LineEditing::theTextSaysHow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("step");
    QTest::newRow("of-1 two blanks") << u"a.v"_s << QByteArray("a\n  b\n    c\n  d\n") << u"  "_s;
    QTest::newRow("of-2 tabs") << u"a.v"_s << QByteArray("a\n\tb\n\t\tc\n") << u"\t"_s;
    QTest::newRow("of-3 a continued line does not count")
        << u"a.v"_s << QByteArray("a\n   b\n      c\nd\n   e\n        f\n") << u"   "_s;
    QTest::newRow("of-4 nothing indented") << u"a.v"_s << QByteArray("a\nb\n") << u"    "_s;
    QTest::newRow("of-5 Make needs tabs") << u"Makefile"_s << QByteArray("a:\n  b\n") << u"\t"_s;
    QTest::newRow("of-6 so do its parts") << u"rules.mk"_s << QByteArray("a:\n") << u"\t"_s;
}

void tst_LineEditing::theTextSaysHow()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, text);
    QFETCH(const QString, step);
    QVERIFY2(openPage(text, name), qPrintable(error));
    press(Qt::Key_Tab);
    QCOMPARE(shown(), step + QString::fromLatin1(text));
}

void tst_LineEditing::thePreferencesSayHow()
{
    EditorSettings::instance()->setIndentation({false, 8});
    QVERIFY(openPage("ab\n"));
    press(Qt::Key_Tab);
    QCOMPARE(shown(), u"\tab\n"_s);
    QCOMPARE(edit->tabStopDistance(), 8.0 * edit->fontMetrics().horizontalAdvance(u' '));
    EditorSettings::instance()->setIndentation({true, 3});
    EditorSettings::instance()->setFollowsText(false);
    press(Qt::Key_Home);
    press(Qt::Key_Tab);
    QCOMPARE(shown(), u"   \tab\n"_s);
    QCOMPARE(edit->tabStopDistance(), 3.0 * edit->fontMetrics().horizontalAdvance(u' '));
}

void tst_LineEditing::readOnlyTextsStay()
{
    QVERIFY(openPage("ab\n"));
    page->setReadOnly(ReadOnlyReasons::Permission, u"it is so"_s);
    press(Qt::Key_Tab);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!page->can(EditorPage::ToggleComment));
    QCOMPARE(shown(), u"ab\n"_s);
}

void tst_LineEditing::commentsComeAndGo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("after");
    QTest::newRow("on-1 Verilog") << u"a.v"_s << QByteArray("ab\n") << 0 << u"// ab\n"_s;
    QTest::newRow("on-2 VHDL") << u"a.vhd"_s << QByteArray("ab\n") << 0 << u"-- ab\n"_s;
    QTest::newRow("on-3 Tcl") << u"a.tcl"_s << QByteArray("ab\n") << 0 << u"# ab\n"_s;
    QTest::newRow("on-4 what is not known")
        << u"Makefile"_s << QByteArray("ab\n") << 0 << u"# ab\n"_s;
    QTest::newRow("on-5 below each other")
        << u"a.v"_s << QByteArray("  ab\n\n    cd\n") << 8 << u"  // ab\n\n  //   cd\n"_s;
    QTest::newRow("on-6 some are")
        << u"a.v"_s << QByteArray("// ab\ncd\n") << 8 << u"// // ab\n// cd\n"_s;
    QTest::newRow("off-1 with a blank")
        << u"a.v"_s << QByteArray("  // ab\n  // cd\n") << 12 << u"  ab\n  cd\n"_s;
    QTest::newRow("off-2 without one") << u"a.tcl"_s << QByteArray("#ab\n") << 0 << u"ab\n"_s;
}

void tst_LineEditing::commentsComeAndGo()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, text);
    QFETCH(const int, to);
    QFETCH(const QString, after);
    openSelected(text, name, 0, to);
    QVERIFY(page->can(EditorPage::ToggleComment));
    page->run(EditorPage::ToggleComment);
    QCOMPARE(shown(), after);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown(), QString::fromLatin1(text));
}

void tst_LineEditing::commentsNeedASign()
{
    QVERIFY(openPage("<a/>\n", u"component.xml"_s));
    QVERIFY(!page->can(EditorPage::ToggleComment));
}

void tst_LineEditing::textsZoom()
{
    QVERIFY(openPage("ab\n"));
    const int usual = edit->font().pointSize();
    page->run(EditorPage::ZoomIn);
    page->run(EditorPage::ZoomIn);
    QCOMPARE(edit->font().pointSize(), usual + 2);
    page->run(EditorPage::ZoomOut);
    QCOMPARE(edit->font().pointSize(), usual + 1);
    const QPointF middle = edit->viewport()->rect().center();
    const auto turn = [&](int by) {
        QWheelEvent wheel(middle, edit->viewport()->mapToGlobal(middle), {}, {0, by}, {},
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(edit->viewport(), &wheel);
    };
    turn(120);
    QCOMPARE(edit->font().pointSize(), usual + 2);
    QCOMPARE(EditorSettings::instance()->zoom(), 2);
    for (int step = 0; step < 100; ++step)
        turn(-120);
    QCOMPARE(edit->font().pointSize(), 4);
    turn(120);
    QCOMPARE(edit->font().pointSize(), 5);
    page->run(EditorPage::ZoomReset);
    QCOMPARE(edit->font().pointSize(), usual);
}

void tst_LineEditing::fontsAreOfFixedPitch()
{
    // What a page shows, whatever the font says of itself.
    const auto isEven = [](const QFont &font) {
        const QFontMetricsF metrics(font);
        return metrics.horizontalAdvance(u"illii!"_s) == metrics.horizontalAdvance(u"WMW@#m"_s);
    };
    QVERIFY(isEven(EditorSettings::defaultFont()));
    QFont wide(u"DejaVu Sans"_s, 17);
    NEEDS(!isEven(wide), "DejaVu Sans", "fonts-dejavu-core");
    const QFont fixed = EditorSettings::fixedPitch(wide);
    QVERIFY(isEven(fixed));
    QCOMPARE(fixed.pointSize(), 17);
    QCOMPARE(EditorSettings::fixedPitch(fixed), fixed);
    // A font that somebody has chosen is kept.
    for (const QString &family : QFontDatabase::families(QFontDatabase::Latin)) {
        const QFont font(family, 17);
        if (isEven(font))
            QCOMPARE(EditorSettings::fixedPitch(font).family(), family);
    }
}

TEST_CLASS(tst_LineEditing)
#include "tst_LineEditing.moc"
