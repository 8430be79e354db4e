#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QScrollBar>
#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;

// A page without changes follows what other programs do to its file.
class tst_TextFollow : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void anUnchangedPageFollows_data();
    void anUnchangedPageFollows();
    void followingKeepsThePlace();
    void followingCanBeUndone();

private:
    enum class How { Rewritten, Replaced, RemovedAndMade };
    bool change(How how, const QByteArray &bytes) const;
};

void tst_TextFollow::init() { QVERIFY2(openPage("one\ntwo\n", u"rtl/top.v"_s), qPrintable(error)); }

bool tst_TextFollow::change(How how, const QByteArray &bytes) const
{
    if (how == How::Rewritten)
        return files::write(path, bytes);
    if (how == How::RemovedAndMade && !QFile::remove(path))
        return false;
    return files::replace(path, bytes);
}

void tst_TextFollow::anUnchangedPageFollows_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("follow-1 rewritten in place") << int(How::Rewritten);
    QTest::newRow("follow-2 replaced by a renamed file") << int(How::Replaced);
    QTest::newRow("follow-3 removed and made again") << int(How::RemovedAndMade);
}

void tst_TextFollow::anUnchangedPageFollows()
{
    QFETCH(const int, how);
    // Again and again, since a watch can lose a file that is replaced.
    for (const char *bytes : {"one\nTWO\nthree\n", "", "last\r\nlines"}) {
        QVERIFY(change(How(how), bytes));
        QTRY_COMPARE(shown(), QString::fromLatin1(bytes).remove(u'\r'));
        QVERIFY(!page->isModified());
        QCOMPARE(notice(), QString());
    }
    type(u"x"_s);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path).size(), 12);
}

void tst_TextFollow::followingKeepsThePlace()
{
    QByteArray lines;
    for (int line = 1; line <= 200; ++line)
        lines += "line " + QByteArray::number(line) + '\n';
    QVERIFY(files::write(path, lines));
    QTRY_COMPARE(edit->blockCount(), 201);
    edit->goToLine(100);
    const int scrolled = edit->verticalScrollBar()->value();
    QVERIFY(scrolled > 50);

    lines.replace("line 150\n", "line 150 is another one\n");
    lines.replace("line 20\n", "line 20 too\n");
    QVERIFY(files::replace(path, lines));
    QTRY_VERIFY(shown().contains(u"another"_s));
    QCOMPARE(edit->textCursor().block().text(), u"line 100"_s);
    QCOMPARE(edit->verticalScrollBar()->value(), scrolled);
}

void tst_TextFollow::followingCanBeUndone()
{
    QVERIFY(files::replace(path, "all new\r\n"));
    QTRY_COMPARE(shown(), u"all new\n"_s);
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QVERIFY(page->isModified());
}

TEST_CLASS(tst_TextFollow)
#include "tst_TextFollow.moc"
