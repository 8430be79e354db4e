#include "app/editor/Highlighter.h"
#include "app/editor/SyntaxScan.h"
#include "app/editor/TextEdit.h"
#include "tests/TestClass.h"

#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

using namespace Qt::Literals::StringLiterals;

class tst_Highlighter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aSmallTextHasColoursAtOnce();
    void aLargeTextGetsThemAll();
    void whatIsTypedMeanwhileHasThem_data();
    void whatIsTypedMeanwhileHasThem();
    void theRestFollowsAnEdit();
    void thePaletteIsFollowed();

private:
    void fill(int lines);
    // The first line whose colours are not those of a scan from the top; empty when there is none.
    QString wrongLine() const;
    // Whether no line waits for its colours.
    bool isSettled() const;
    QColor colourAt(int line, int column) const;

    static constexpr int many = 3'000;
    std::unique_ptr<TextEdit> edit;
};

void tst_Highlighter::init() { edit = std::make_unique<TextEdit>(); }

void tst_Highlighter::fill(int lines)
{
    QString text;
    for (int line = 0; line < lines; ++line)
        text += u"wire w%1; // number %1\n"_s.arg(line);
    edit->document()->setPlainText(text);
    new Highlighter(*Syntax::of(u"a.v"_s), edit->document(), edit.get());
}

QString tst_Highlighter::wrongLine() const
{
    int state = -1;
    for (QTextBlock block = edit->document()->firstBlock(); block.isValid(); block = block.next()) {
        const QString text = block.text();
        const SyntaxScan scan(*Syntax::of(u"a.v"_s), text, state);
        state = scan.state();
        const QList<QTextLayout::FormatRange> formats = block.layout()->formats();
        qsizetype index = 0;
        bool same = formats.size() == scan.pieces().size();
        for (const SyntaxScan::Piece &piece : scan.pieces()) {
            same = same && formats[index].start == piece.start
                && formats[index].length == piece.length;
            ++index;
        }
        if (!same)
            return u"%1: %2"_s.arg(block.blockNumber()).arg(text);
    }
    return {};
}

bool tst_Highlighter::isSettled() const
{
    for (QTextBlock block = edit->document()->firstBlock(); block.isValid(); block = block.next()) {
        if (block.userState() < 0)
            return false;
    }
    return true;
}

QColor tst_Highlighter::colourAt(int line, int column) const
{
    const QTextBlock block = edit->document()->findBlockByNumber(line);
    for (const QTextLayout::FormatRange &format : block.layout()->formats()) {
        if (format.start <= column && column < format.start + format.length)
            return format.format.foreground().color();
    }
    return {};
}

void tst_Highlighter::aSmallTextHasColoursAtOnce()
{
    fill(10);
    QCOMPARE(wrongLine(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(wrongLine(), QString());
}

void tst_Highlighter::aLargeTextGetsThemAll()
{
    fill(many);
    QVERIFY(colourAt(0, 0).isValid());
    QTRY_VERIFY(isSettled());
    QCOMPARE(wrongLine(), QString());
}

void tst_Highlighter::whatIsTypedMeanwhileHasThem_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("typed");
    QTest::newRow("meanwhile-1 a word at the top") << 0 << u"reg "_s;
    QTest::newRow("meanwhile-2 a comment at the top") << 0 << u"/* "_s;
    QTest::newRow("meanwhile-3 a word where no colours are yet") << many - 5 << u"reg "_s;
    QTest::newRow("meanwhile-4 a comment in the middle") << many / 2 << u"/* "_s;
    QTest::newRow("meanwhile-5 many lines at the top") << 0 << u"// a\nreg b;\n"_s.repeated(50);
}

void tst_Highlighter::whatIsTypedMeanwhileHasThem()
{
    QFETCH(const int, line);
    QFETCH(const QString, typed);
    fill(many);
    QCoreApplication::processEvents();
    QTextCursor cursor(edit->document()->findBlockByNumber(line));
    cursor.insertText(typed);
    QCoreApplication::processEvents();
    // Some lines go, so that what waits moves up.
    cursor.setPosition(0);
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, 40);
    cursor.removeSelectedText();
    QTRY_VERIFY(isSettled());
    QCOMPARE(wrongLine(), QString());
}

void tst_Highlighter::theRestFollowsAnEdit()
{
    fill(many);
    QTRY_VERIFY(isSettled());
    QCOMPARE(wrongLine(), QString());
    QTest::keyClicks(edit.get(), u"/*"_s);
    QTRY_VERIFY(isSettled());
    QCOMPARE(wrongLine(), QString());
    QCOMPARE(colourAt(many - 1, 0), colourAt(0, 0));
    QTest::keyClick(edit.get(), Qt::Key_Backspace);
    QTRY_VERIFY(isSettled());
    QCOMPARE(wrongLine(), QString());
    QVERIFY(colourAt(many - 1, 0) != colourAt(many - 1, 12));
}

void tst_Highlighter::thePaletteIsFollowed()
{
    fill(10);
    const QColor onLight = colourAt(0, 0);
    QPalette dark = edit->palette();
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    edit->setPalette(dark);
    QCOMPARE(wrongLine(), QString());
    const QColor onDark = colourAt(0, 0);
    QVERIFY(onLight.lightness() < 128);
    QVERIFY(onDark.lightness() > 128);
}

TEST_CLASS(tst_Highlighter)
#include "tst_Highlighter.moc"
