#include "app/editor/EditorSettings.h"
#include "app/editor/LineGutter.h"
#include "app/editor/PositionBar.h"
#include "app/editor/shades.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

// What users see of a text, besides its letters.
class tst_TextEdit : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void aNewLineKeepsTheIndent_data();
    void aNewLineKeepsTheIndent();
    void thePositionIsTold();
    void kindsAreTold_data();
    void kindsAreTold();
    void aGutterNumbersLines();
    void aClickOnANumberSelects();
    void theCurrentLineIsMarked();
    void theFontIsASetting();

private:
    QTemporaryDir session;
    QString position() const { return page->findChild<PositionBar *>()->text(); }
};

void tst_TextEdit::init()
{
    QVERIFY2(openPage("one\ntwo\n"), qPrintable(error));
    QtilitiesApplication::setApplicationSessionPath(session.path());
}

void tst_TextEdit::aNewLineKeepsTheIndent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("after");
    QTest::newRow("indent-1 none") << QByteArray("ab") << 1 << u"a\nb"_s;
    QTest::newRow("indent-2 blanks") << QByteArray("  ab") << 4 << u"  ab\n  "_s;
    QTest::newRow("indent-3 tabs") << QByteArray("\t ab") << 3 << u"\t a\n\t b"_s;
    QTest::newRow("indent-4 within the blanks") << QByteArray("    ab") << 2 << u"  \n    ab"_s;
}

void tst_TextEdit::aNewLineKeepsTheIndent()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, column);
    QFETCH(const QString, after);
    QVERIFY(openPage(text));
    for (int step = 0; step < column; ++step)
        press(Qt::Key_Right);
    press(Qt::Key_Return);
    QCOMPARE(edit->toPlainText(), after);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit->toPlainText(), QString::fromLatin1(text));
}

void tst_TextEdit::thePositionIsTold()
{
    QCOMPARE(position(), u"Line 1, Column 1 | Verilog | UTF-8, LF"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QCOMPARE(position(), u"Line 2, Column 2 | Verilog | UTF-8, LF"_s);
    press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(position(), u"Line 2, Column 3 (1 selected) | Verilog | UTF-8, LF"_s);
}

void tst_TextEdit::kindsAreTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("characters");
    QTest::addColumn<QString>("said");
    QTest::newRow("kind-1 no kind") << u"notes.txt"_s << 1 << u"Line 1, Column 1 | UTF-8, LF"_s;
    QTest::newRow("kind-2 large") << u"a.tcl"_s << TextPage::colouredCharacters - 1
                                  << u"Line 1, Column 1 | Tcl | UTF-8, LF"_s;
    QTest::newRow("kind-3 too large")
        << u"a.tcl"_s << TextPage::colouredCharacters
        << u"Line 1, Column 1 | Tcl, too large to be coloured | UTF-8, LF"_s;
}

void tst_TextEdit::kindsAreTold()
{
    QFETCH(const QString, name);
    QFETCH(const int, characters);
    QFETCH(const QString, said);
    QVERIFY(openPage(
        QByteArray(9'999, 'x').append('\n').repeated(1 + characters / 10'000).left(characters),
        name));
    QCOMPARE(position(), said);
}

void tst_TextEdit::aGutterNumbersLines()
{
    const auto *gutter = page->findChild<LineGutter *>();
    QVERIFY(gutter->isVisible());
    const int narrow = gutter->width();
    QVERIFY(openPage(QByteArray("\n").repeated(9'998)));
    gutter = page->findChild<LineGutter *>();
    const int digit = edit->fontMetrics().horizontalAdvance(u'9');
    QCOMPARE(gutter->width(), narrow + digit);
    QCOMPARE(edit->viewport()->x(), gutter->geometry().right() + 1);
    press(Qt::Key_Return);
    QCOMPARE(edit->blockCount(), 10'000);
    QCOMPARE(gutter->width(), narrow + 2 * digit);
}

void tst_TextEdit::aClickOnANumberSelects()
{
    auto *gutter = page->findChild<LineGutter *>();
    const int height = edit->cursorRect().height();
    const QPoint second(gutter->width() / 2, edit->cursorRect().top() + height + height / 2);
    QTest::mouseClick(gutter, Qt::LeftButton, {}, second);
    QCOMPARE(edit->textCursor().selectedText(), u"two\u2029"_s);
}

void tst_TextEdit::theCurrentLineIsMarked()
{
    const auto marked = [this] {
        const auto marks = edit->extraSelections();
        return QVariantList {marks.first().cursor.blockNumber(),
                             marks.first().format.background().color()};
    };
    QCOMPARE(marked(), (QVariantList {0, shades::currentLine(edit->palette())}));
    press(Qt::Key_Down);
    QPalette dark = edit->palette();
    dark.setColor(QPalette::Base, Qt::black);
    edit->setPalette(dark);
    QCOMPARE(marked(), (QVariantList {1, shades::currentLine(dark)}));
    QVERIFY(shades::currentLine(dark).lightness() < 80);
}

void tst_TextEdit::theFontIsASetting()
{
    EditorSettings *settings = EditorSettings::instance();
    QCOMPARE(edit->font().family(), EditorSettings::defaultFont().family());
    QFont large = EditorSettings::defaultFont();
    large.setPointSize(30);
    settings->setFont(large);
    QCOMPARE(settings->font().pointSize(), 30);
    QCOMPARE(edit->font().pointSize(), 30);
    QCOMPARE(edit->tabStopDistance(), 4.0 * edit->fontMetrics().horizontalAdvance(u' '));
    QVERIFY(openPage("x"));
    QCOMPARE(edit->font().pointSize(), 30);
    settings->setFont(EditorSettings::defaultFont());
    QCOMPARE(edit->font().pointSize(), EditorSettings::defaultFont().pointSize());
}

TEST_CLASS(tst_TextEdit)
#include "tst_TextEdit.moc"
