#include "app/editor/DifferenceDialog.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QLabel>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

// A file that changes on disk while its page has changes, too.
class tst_TextConflict : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void aConflictIsShown_data();
    void aConflictIsShown();
    void theDifferenceIsShown_data();
    void theDifferenceIsShown();
    void aPartOfTheDifferenceLeadsToItsLine();
    void aSaveSeesTheConflictItself();
    void theConflictGoesWhenTheFileIsAsBefore();
    void keepingMineAsksAgainNextTime();
    void aTouchedFileIsTheSame();
    void ownSavesAreNoConflict();

private:
    static QString conflict();
};

void tst_TextConflict::init()
{
    QVERIFY2(openPage("one\ntwo\n", u"rtl/top.v"_s), qPrintable(error));
}

QString tst_TextConflict::conflict()
{
    return u"\"top.v\" was changed on disk by another program, and has changes here that are not "
           "saved."_s;
}

void tst_TextConflict::aConflictIsShown_data()
{
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::addColumn<QString>("inPage");
    QTest::addColumn<bool>("modified");
    QTest::newRow("choose-1 reload")
        << u"Re&load"_s << QByteArray("other\n") << u"other\n"_s << false;
    QTest::newRow("choose-2 keep mine")
        << u"&Keep Mine"_s << QByteArray("other\n") << u"xone\ntwo\n"_s << true;
    QTest::newRow("choose-3 save anyway")
        << u"Save An&yway"_s << QByteArray("xone\ntwo\n") << u"xone\ntwo\n"_s << false;
}

void tst_TextConflict::aConflictIsShown()
{
    QFETCH(const QString, choice);
    QFETCH(const QByteArray, onDisk);
    QFETCH(const QString, inPage);
    QFETCH(const bool, modified);
    type(u"x"_s);
    QVERIFY(files::replace(path, "other\n"));
    QTRY_COMPARE(notice(), conflict());
    QCOMPARE(
        choices(),
        (QStringList {u"Show &Difference"_s, u"Re&load"_s, u"&Keep Mine"_s, u"Save An&yway"_s}));
    choose(choice);
    QCOMPARE(notice(), QString());
    QCOMPARE(files::read(path), onDisk);
    QCOMPARE(shown(), inPage);
    QCOMPARE(page->isModified(), modified);
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), inPage.toUtf8());
}

void tst_TextConflict::theDifferenceIsShown_data()
{
    QTest::addColumn<QByteArray>("onDisk");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("difference");
    QTest::newRow("differ-1 lines") << QByteArray("one\n2\n")
                                    << u"Lines with \"-\" are on disk only, lines with \"+\" are "
                                       "here only."_s
                                    << u"@@ -1 +1 @@\n-one\n-2\n+xone\n+two\n \n"_s;
    QTest::newRow("differ-2 ends of lines")
        << QByteArray("xone\r\ntwo\r\n")
        << u"The lines are the same; what differs is how they end, or how their characters are "
           "written."_s
        << QString();
}

void tst_TextConflict::theDifferenceIsShown()
{
    QFETCH(const QByteArray, onDisk);
    QFETCH(const QString, said);
    QFETCH(const QString, difference);
    type(u"x"_s);
    QVERIFY(files::replace(path, onDisk));
    QTRY_COMPARE(notice(), conflict());
    choose(u"Show &Difference"_s);
    QPointer<DifferenceDialog> dialog = page->findChild<DifferenceDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), u"Difference: top.v"_s);
    QCOMPARE(dialog->findChild<QLabel *>()->text(), said);
    QCOMPARE(dialog->findChild<QPlainTextEdit *>()->toPlainText(), difference);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(!dialog);
    QCOMPARE(notice(), conflict());
}

void tst_TextConflict::aPartOfTheDifferenceLeadsToItsLine()
{
    QString many;
    for (int line = 1; line <= 40; ++line)
        many += QString::number(line) + u'\n';
    edit->selectAll();
    edit->insertPlainText(many);
    const QByteArray onDisk = many.toUtf8().replace("30\n", "thirty\n");
    QVERIFY(files::replace(path, onDisk));
    QTRY_COMPARE(notice(), conflict());
    choose(u"Show &Difference"_s);
    const QPointer<DifferenceDialog> dialog = page->findChild<DifferenceDialog *>();
    auto *text = dialog->findChild<QPlainTextEdit *>();
    QVERIFY(text->toPlainText().startsWith(u"@@ -27 +27 @@\n"_s));
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(edit->textCursor().blockNumber(), 26);
    edit->goToLine(1);
    const QTextCursor start(text->document());
    QTest::mouseClick(text->viewport(), Qt::LeftButton, {},
                      text->cursorRect(start).center() + QPoint(10, 0));
    QTRY_COMPARE(edit->textCursor().blockNumber(), 26);
    dialog->close();
}

// The file is replaced between the last look at it and the save.
void tst_TextConflict::aSaveSeesTheConflictItself()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "other\n"));
    error = u"unchanged"_s;
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, QString());
    QCOMPARE(notice(), conflict());
    QCOMPARE(files::read(path), QByteArray("other\n"));
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
    QVERIFY(page->isModified());
}

void tst_TextConflict::theConflictGoesWhenTheFileIsAsBefore()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "other\n"));
    QTRY_COMPARE(notice(), conflict());
    QVERIFY(files::replace(path, "one\ntwo\n"));
    QTRY_COMPARE(notice(), QString());
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), QByteArray("xone\ntwo\n"));
}

void tst_TextConflict::keepingMineAsksAgainNextTime()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "other\n"));
    QTRY_COMPARE(notice(), conflict());
    choose(u"&Keep Mine"_s);
    QVERIFY(files::replace(path, "another\n"));
    QTRY_COMPARE(notice(), conflict());
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(files::read(path), QByteArray("another\n"));
}

void tst_TextConflict::aTouchedFileIsTheSame()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "one\ntwo\n"));
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(files::read(path), QByteArray("xone\ntwo\n"));
    QCOMPARE(notice(), QString());
}

void tst_TextConflict::ownSavesAreNoConflict()
{
    for (int save = 0; save < 3; ++save) {
        type(u"x"_s);
        QVERIFY(page->save().toErrorText(&error));
        type(u"y"_s);
        QTest::qWait(0);
    }
    // A change by somebody else is what the watch sees next.
    QCOMPARE(notice(), QString());
    QVERIFY(files::replace(path, "other\n"));
    QTRY_COMPARE(notice(), conflict());
    QCOMPARE(shown(), u"xyxyxyone\ntwo\n"_s);
}

TEST_CLASS(tst_TextConflict)
#include "tst_TextConflict.moc"
