#include "app/editor/DifferenceDialog.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/DialogAnswer.h"
#include "tests/app/editor/files.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

// A file that changes on disk while it is open.
class tst_TextConflict : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void anUnchangedPageFollows_data();
    void anUnchangedPageFollows();
    void followingKeepsThePlace();
    void followingCanBeUndone();
    void aTouchedFileIsTheSame();
    void ownSavesAreNoConflict();

    void aConflictIsShown_data();
    void aConflictIsShown();
    void theDifferenceIsShown_data();
    void theDifferenceIsShown();
    void aSaveSeesTheConflictItself();
    void theConflictGoesWhenTheFileIsAsBefore();
    void keepingMineAsksAgainNextTime();

    void aFileThatIsGoneKeepsItsText();
    void savingAFileThatIsGone_data();
    void savingAFileThatIsGone();
    void aFolderThatIsGone();
    void aFolderThatComesBack();
    void aFileThatComesBack_data();
    void aFileThatComesBack();
    void whatBecomesUnreadableKeepsItsText();

private:
    enum class How { Rewritten, Replaced, RemovedAndMade };
    bool change(How how, const QByteArray &bytes) const;
    void type(const QString &text) { QTest::keyClicks(page->textEdit(), text); }
    QString notice() const { return page->findChild<NoticeBar *>()->text(); }
    QStringList choices() const;
    void choose(const QString &text) const;
    QString shown() const { return page->textEdit()->toPlainText(); }
    QString conflict() const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<TextPage> page;
    QString path;
    QString error;
};

Q_DECLARE_METATYPE(QMessageBox::StandardButton)

void tst_TextConflict::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    QVERIFY(QDir(folder->path()).mkdir(u"rtl"_s));
    path = folder->filePath(u"rtl/top.v"_s);
    QVERIFY(files::write(path, "one\ntwo\n"));
    page.reset(TextPage::open(path, &error));
    QVERIFY2(page, qPrintable(error));
    page->resize(400, 200);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
}

void tst_TextConflict::cleanup() { page.reset(); }

bool tst_TextConflict::change(How how, const QByteArray &bytes) const
{
    if (how == How::Rewritten)
        return files::write(path, bytes);
    if (how == How::RemovedAndMade && !QFile::remove(path))
        return false;
    return files::replace(path, bytes);
}

QStringList tst_TextConflict::choices() const
{
    QStringList texts;
    const auto buttons = page->findChild<NoticeBar *>()->findChildren<QPushButton *>();
    for (const QPushButton *button : buttons) {
        if (button->isVisible())
            texts.append(button->text());
    }
    return texts;
}

void tst_TextConflict::choose(const QString &text) const
{
    const auto buttons = page->findChild<NoticeBar *>()->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->isVisible() && button->text() == text) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("there is no such choice");
}

QString tst_TextConflict::conflict() const
{
    return u"\"top.v\" was changed on disk by another program, and has changes here that are not "
           "saved."_s;
}

void tst_TextConflict::anUnchangedPageFollows_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("follow-1 rewritten in place") << int(How::Rewritten);
    QTest::newRow("follow-2 replaced by a renamed file") << int(How::Replaced);
    QTest::newRow("follow-3 removed and made again") << int(How::RemovedAndMade);
}

void tst_TextConflict::anUnchangedPageFollows()
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
    QVERIFY(page->save(&error));
    QCOMPARE(files::read(path).size(), 12);
}

void tst_TextConflict::followingKeepsThePlace()
{
    QByteArray lines;
    for (int line = 1; line <= 200; ++line)
        lines += "line " + QByteArray::number(line) + '\n';
    QVERIFY(files::write(path, lines));
    QTRY_COMPARE(page->textEdit()->blockCount(), 201);
    page->textEdit()->goToLine(100);
    const int scrolled = page->textEdit()->verticalScrollBar()->value();
    QVERIFY(scrolled > 50);

    lines.replace("line 150\n", "line 150 is another one\n");
    lines.replace("line 20\n", "line 20 too\n");
    QVERIFY(files::replace(path, lines));
    QTRY_VERIFY(shown().contains(u"another"_s));
    QCOMPARE(page->textEdit()->textCursor().block().text(), u"line 100"_s);
    QCOMPARE(page->textEdit()->verticalScrollBar()->value(), scrolled);
}

void tst_TextConflict::followingCanBeUndone()
{
    QVERIFY(files::replace(path, "all new\r\n"));
    QTRY_COMPARE(shown(), u"all new\n"_s);
    QTest::keyClick(page->textEdit(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QVERIFY(page->isModified());
}

void tst_TextConflict::aTouchedFileIsTheSame()
{
    type(u"x"_s);
    QSignalSpy states(page.get(), &EditorPage::stateChanged);
    QVERIFY(files::replace(path, "one\ntwo\n"));
    QVERIFY(page->save(&error));
    QCOMPARE(files::read(path), QByteArray("xone\ntwo\n"));
    QCOMPARE(notice(), QString());
}

void tst_TextConflict::ownSavesAreNoConflict()
{
    for (int save = 0; save < 3; ++save) {
        type(u"x"_s);
        QVERIFY(page->save(&error));
        type(u"y"_s);
        QTest::qWait(0);
    }
    // A change by somebody else is what the watch sees next.
    QCOMPARE(notice(), QString());
    QVERIFY(files::replace(path, "other\n"));
    QTRY_COMPARE(notice(), conflict());
    QCOMPARE(shown(), u"xyxyxyone\ntwo\n"_s);
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
    QVERIFY(page->save(&error));
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

// The file is replaced between the last look at it and the save.
void tst_TextConflict::aSaveSeesTheConflictItself()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "other\n"));
    error = u"unchanged"_s;
    QVERIFY(!page->save(&error));
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
    QVERIFY(page->save(&error));
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
    QVERIFY(!page->save(&error));
    QCOMPARE(files::read(path), QByteArray("another\n"));
}

void tst_TextConflict::aFileThatIsGoneKeepsItsText()
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

void tst_TextConflict::savingAFileThatIsGone_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("saved");
    QTest::newRow("gone-1 write it again") << QMessageBox::Save << true;
    QTest::newRow("gone-2 leave it") << QMessageBox::Cancel << false;
}

void tst_TextConflict::savingAFileThatIsGone()
{
    QFETCH(const QMessageBox::StandardButton, button);
    QFETCH(const bool, saved);
    type(u"x"_s);
    QVERIFY(QFile::remove(path));
    DialogAnswer answer {button};
    QCOMPARE(page->save(&error), saved);
    QCOMPARE(
        answer.said,
        u"File Is Gone\n\"%1\" is no longer on disk. Write it again?\nSave Cancel"_s.arg(path));
    QCOMPARE(error, QString());
    QCOMPARE(page->isModified(), !saved);
    QCOMPARE(QFile::exists(path), saved);
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
}

void tst_TextConflict::aFolderThatIsGone()
{
    type(u"x"_s);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir(folder->path()).rmdir(u"rtl"_s));
    QTRY_COMPARE(notice(), u"\"top.v\" is no longer on disk. Its text is kept here."_s);
    DialogAnswer answer {QMessageBox::Save};
    QVERIFY(!page->save(&error));
    QCOMPARE(error, u"Cannot write \"%1\": No such file or directory"_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
}

// Nothing tells of a folder that is made again, but who comes back to the page sees it.
void tst_TextConflict::aFolderThatComesBack()
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

void tst_TextConflict::aFileThatComesBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("back-1 as it was") << QByteArray("one\ntwo\n");
    QTest::newRow("back-2 as another one") << QByteArray("other\n");
}

void tst_TextConflict::aFileThatComesBack()
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

void tst_TextConflict::whatBecomesUnreadableKeepsItsText()
{
    QVERIFY(files::replace(path, QByteArray("a\0b", 3)));
    QTRY_COMPARE(notice(),
                 u"Cannot open \"%1\": it is not text, since it holds a zero byte. The text that "
                 "it had is kept here."_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QCOMPARE(choices(), (QStringList {u"Re&load"_s, u"Save An&yway"_s}));
    QVERIFY(!page->save(&error));
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

QTEST_MAIN(tst_TextConflict)
#include "tst_TextConflict.moc"
