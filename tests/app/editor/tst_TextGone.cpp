#include "tests/app/editor/DialogAnswer.h"
#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QSignalSpy>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

// A file that goes away, or becomes something else, while it is open.
class tst_TextGone : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void aFileThatIsGoneKeepsItsText();
    void savingAFileThatIsGone_data();
    void savingAFileThatIsGone();
    void aFolderThatIsGone();
    void aFolderThatComesBack();
    void aFileThatComesBack_data();
    void aFileThatComesBack();
    void whatBecomesUnreadableKeepsItsText();
};

void tst_TextGone::init() { QVERIFY2(openPage("one\ntwo\n", u"rtl/top.v"_s), qPrintable(error)); }

void tst_TextGone::aFileThatIsGoneKeepsItsText()
{
    QSignalSpy states(page.get(), &EditorPage::stateChanged);
    QVERIFY(QFile::remove(path));
    QTRY_COMPARE(notice(), u"\"top.v\" is no longer on disk. Its text is kept here."_s);
    QCOMPARE(states.size(), 1);
    QVERIFY(page->isModified());
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QCOMPARE(choices(), QStringList {u"Write A&gain"_s});
    choose(u"Write A&gain"_s);
    QCOMPARE(files::read(path), QByteArray("one\ntwo\n"));
    QVERIFY(!page->isModified());
    QCOMPARE(notice(), QString());
}

void tst_TextGone::savingAFileThatIsGone_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("saved");
    QTest::newRow("gone-1 write it again") << QMessageBox::Save << true;
    QTest::newRow("gone-2 leave it") << QMessageBox::Cancel << false;
}

void tst_TextGone::savingAFileThatIsGone()
{
    QFETCH(const QMessageBox::StandardButton, button);
    QFETCH(const bool, saved);
    type(u"x"_s);
    QVERIFY(QFile::remove(path));
    DialogAnswer answer {button};
    QCOMPARE(page->save().toErrorText(&error), saved);
    QCOMPARE(
        answer.said,
        u"File Is Gone\n\"%1\" is no longer on disk. Write it again?\nSave Cancel"_s.arg(path));
    QCOMPARE(error, QString());
    QCOMPARE(page->isModified(), !saved);
    QCOMPARE(QFile::exists(path), saved);
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
}

void tst_TextGone::aFolderThatIsGone()
{
    type(u"x"_s);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir(folder->path()).rmdir(u"rtl"_s));
    QTRY_COMPARE(notice(), u"\"top.v\" is no longer on disk. Its text is kept here."_s);
    DialogAnswer answer {QMessageBox::Save};
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, u"Cannot write \"%1\": No such file or directory"_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
}

// Nothing tells of a folder that is made again, but who comes back to the page sees it.
void tst_TextGone::aFolderThatComesBack()
{
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir(folder->path()).rmdir(u"rtl"_s));
    QTRY_VERIFY(page->isModified());
    QVERIFY(QDir(folder->path()).mkdir(u"rtl"_s));
    QVERIFY(files::write(path, "other\n"));
    page->hide();
    page->show();
    QCOMPARE(shown(), u"other\n"_s);
    QVERIFY(!page->isModified());
    QVERIFY(files::replace(path, "and again\n"));
    QTRY_COMPARE(shown(), u"and again\n"_s);
}

void tst_TextGone::aFileThatComesBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("back-1 as it was") << QByteArray("one\ntwo\n");
    QTest::newRow("back-2 as another one") << QByteArray("other\n");
}

void tst_TextGone::aFileThatComesBack()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(QFile::remove(path));
    QTRY_VERIFY(page->isModified());
    QVERIFY(files::write(path, bytes));
    QTRY_VERIFY(!page->isModified());
    QCOMPARE(notice(), QString());
    QCOMPARE(shown(), QString::fromLatin1(bytes));
    QVERIFY(files::write(path, "and again\n"));
    QTRY_COMPARE(shown(), u"and again\n"_s);
}

void tst_TextGone::whatBecomesUnreadableKeepsItsText()
{
    QVERIFY(files::replace(path, QByteArray("a\0b", 3)));
    QTRY_COMPARE(notice(),
                 u"Cannot open \"%1\": it is not text, since it holds a zero byte. The text that "
                 "it had is kept here."_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QCOMPARE(choices(), (QStringList {u"Re&load"_s, u"Save An&yway"_s}));
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(files::read(path), QByteArray("a\0b", 3));
    choose(u"Save An&yway"_s);
    QCOMPARE(files::read(path), QByteArray("one\ntwo\n"));
    QVERIFY(!page->isModified());
    QCOMPARE(notice(), QString());

    // A pipe in the file's place must not hold up the window.
    QVERIFY(QFile::remove(path));
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QTRY_COMPARE(notice(),
                 u"Cannot open \"%1\": it is a device or a pipe. The text that it had is kept "
                 "here."_s.arg(path));
}

TEST_CLASS(tst_TextGone)
#include "tst_TextGone.moc"
