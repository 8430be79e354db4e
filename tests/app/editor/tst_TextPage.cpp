#include "tests/app/editor/PageFixture.h"
#include "tests/TestClass.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QSignalSpy>
#include <QTimer>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

class tst_TextPage : public QObject, private PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { page.reset(); }

    void typingMarksAndSaves();
    void nothingIsWrittenWithoutChanges();
    void commandsFollowTheText_data();
    void commandsFollowTheText();
    void commandsRun();
    void findLeavesTheLineForReplacingAway();
    void reasonsForbidChanges();
    void filesWithoutPermissionAreReadOnly();
    void whatCannotBeWrittenIsKept();
    void aCopyIsSaved();

private:
    QString commands() const;
};

void tst_TextPage::init()
{
    QGuiApplication::clipboard()->clear();
    error.clear();
    QVERIFY2(openPage("one\ntwo\n"), qPrintable(error));
}

// A letter for each command that can run.
QString tst_TextPage::commands() const
{
    const QString letters = u"CUrxcvaFnpRg"_s;
    QString able;
    for (int command = EditorPage::SaveCopy; command <= EditorPage::GoToLine; ++command) {
        if (page->can(EditorPage::Command(command)))
            able += letters[command];
    }
    return able;
}

void tst_TextPage::typingMarksAndSaves()
{
    QSignalSpy states(page.get(), &EditorPage::stateChanged);
    QTest::keyClicks(edit, u"ab"_s);
    QVERIFY(page->isModified());
    QCOMPARE(states.size(), 1);
    QVERIFY(page->save().toErrorText(&error));
    QVERIFY(!page->isModified());
    QCOMPARE(states.size(), 2);
    QCOMPARE(files::read(path), QByteArray("abone\ntwo\n"));
    // Taking back what was saved is a change, doing it again none.
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(page->isModified());
    page->run(EditorPage::Redo);
    QVERIFY(!page->isModified());
}

void tst_TextPage::nothingIsWrittenWithoutChanges()
{
    struct stat before = {};
    QCOMPARE(::stat(QFile::encodeName(path).constData(), &before), 0);
    QVERIFY(page->save().toErrorText(&error));
    struct stat after = {};
    QCOMPARE(::stat(QFile::encodeName(path).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
}

void tst_TextPage::commandsFollowTheText_data()
{
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QString>("untouched");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("cut");
    QTest::addColumn<QString>("undone");
    QTest::newRow("can-1 a text that may be changed")
        << false << u"CaFnpRg"_s << u"CxcaFnpRg"_s << u"CUvaFnpRg"_s << u"CrvaFnpRg"_s;
    QTest::newRow("can-2 one that may not")
        << true << u"CaFnpg"_s << u"CcaFnpg"_s << u"CcaFnpg"_s << u"CcaFnpg"_s;
}

void tst_TextPage::commandsFollowTheText()
{
    QFETCH(const bool, readOnly);
    QFETCH(const QString, untouched);
    QFETCH(const QString, selected);
    QFETCH(const QString, cut);
    QFETCH(const QString, undone);
    page->setReadOnly(ReadOnlyReasons::Caller,
                      readOnly ? u"it was opened for reading"_s : QString());
    QSignalSpy changes(page.get(), &EditorPage::commandsChanged);
    QCOMPARE(commands(), untouched);
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(commands(), selected);
    QVERIFY(changes.size() > 0);
    press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(commands(), cut);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(commands(), undone);
}

void tst_TextPage::commandsRun()
{
    page->run(EditorPage::SelectAll);
    page->run(EditorPage::Copy);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"one\ntwo\n"_s);
    page->run(EditorPage::Cut);
    QCOMPARE(edit->toPlainText(), QString());
    page->run(EditorPage::Paste);
    page->run(EditorPage::Paste);
    QCOMPARE(edit->toPlainText(), u"one\ntwo\none\ntwo\n"_s);
    page->run(EditorPage::Undo);
    page->run(EditorPage::Undo);
    QCOMPARE(edit->toPlainText(), QString());
    page->run(EditorPage::Redo);
    QCOMPARE(edit->toPlainText(), u"one\ntwo\n"_s);
}

void tst_TextPage::findLeavesTheLineForReplacingAway()
{
    const auto *pattern = page->findChild<QWidget *>(u"pattern"_s);
    const auto *replacement = page->findChild<QWidget *>(u"replacement"_s);
    page->run(EditorPage::Find);
    QVERIFY(pattern->isVisible());
    QVERIFY(!replacement->isVisible());
    page->run(EditorPage::Replace);
    QVERIFY(pattern->isVisible());
    QVERIFY(replacement->isVisible());
    page->run(EditorPage::Find);
    QVERIFY(!replacement->isVisible());
}

void tst_TextPage::reasonsForbidChanges()
{
    const auto *notice = page->findChild<NoticeBar *>();
    page->setReadOnly(ReadOnlyReasons::Design, u"its design is read-only"_s);
    page->setReadOnly(ReadOnlyReasons::ComponentFile, u"the host holds it"_s);
    QVERIFY(edit->isReadOnly() && notice->isVisible());
    QCOMPARE(notice->text(), u"Read-only: the host holds it."_s);
    QTest::keyClicks(edit, u"x"_s);
    QCOMPARE(edit->toPlainText(), u"one\ntwo\n"_s);
    page->setReadOnly(ReadOnlyReasons::ComponentFile, QString());
    QCOMPARE(notice->text(), u"Read-only: its design is read-only."_s);
    page->setReadOnly(ReadOnlyReasons::Design, QString());
    QVERIFY(!edit->isReadOnly() && !notice->isVisible());
}

// The superuser may write everywhere, so that this runs as somebody else.
void tst_TextPage::filesWithoutPermissionAreReadOnly()
{
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0444), 0);
    QCOMPARE(::chmod(QFile::encodeName(folder->path()).constData(), 0755), 0);
    const uid_t self = ::geteuid();
    if (self == 0) {
        // access() asks for the real user.
        QCOMPARE(::setresuid(65534, 65534, 0), 0);
    }
    page.reset(TextPage::open(path).valueOr(nullptr, &error));
    const bool shown = page && page->textEdit()->isReadOnly();
    const QString said = page ? page->findChild<NoticeBar *>()->text() : error;
    if (self == 0)
        QCOMPARE(::setresuid(0, 0, 0), 0);
    QCOMPARE(said, u"Read-only: you may not write to the file."_s);
    QVERIFY(shown);
}

// What takes the place of the file's folder cannot hold it.
void tst_TextPage::whatCannotBeWrittenIsKept()
{
    QVERIFY(openPage("one\n", u"sub/top.v"_s));
    press(Qt::Key_X);
    QVERIFY(QDir(folder->filePath(u"sub"_s)).removeRecursively());
    QVERIFY(files::write(folder->filePath(u"sub"_s), "a file"));
    QTRY_COMPARE(page->findChild<NoticeBar *>()->text(),
                 u"\"top.v\" is no longer on disk. Its text is kept here."_s);
    QVERIFY(!page->saveCopy(path).toErrorText(&error));
    QCOMPARE(error, u"Cannot write \"%1\": Not a directory"_s.arg(path));
    QVERIFY(page->isModified());
    QCOMPARE(edit->toPlainText(), u"xone\n"_s);
}

void tst_TextPage::aCopyIsSaved()
{
    const QString copy = folder->filePath(u"copy.v"_s);
    press(Qt::Key_X);
    QTimer::singleShot(0, this, [&copy] {
        QTRY_VERIFY(qobject_cast<QFileDialog *>(QApplication::activeModalWidget()));
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        dialog->selectFile(copy);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    page->run(EditorPage::SaveCopy);
    QCOMPARE(files::read(copy), QByteArray("xone\ntwo\n"));
    QCOMPARE(files::read(path), QByteArray("one\ntwo\n"));
    QCOMPARE(page->filePath(), path);
    QVERIFY(page->isModified());
}

TEST_CLASS(tst_TextPage)
#include "tst_TextPage.moc"
