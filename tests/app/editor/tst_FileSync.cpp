#include "app/editor/FileSync.h"
#include "app/editor/TextEdit.h"
#include "tests/app/editor/DialogAnswer.h"
#include "tests/app/editor/files.h"
#include "tests/TestClass.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using Disk = TextFile::Disk;
using Trust = TextFile::Trust;
using Kind = Qtilities::Core::Status::Kind;

// A text and its file, by themselves; the pages that join them to a window are tested elsewhere.
class tst_FileSync : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fillingIsNoChange();
    void aTextWithoutChangesFollows();
    void aTextWithChangesWaits();
    void savingSeesWhatNobodyToldOf();
    void keepingMineMakesTheNextSaveGood();
    void overwritingTakesTheTextAnyway();
    void reloadingTakesTheFileAnyway();
    void aFileThatIsGoneIsAChange();
    void whatIsGoneIsWrittenAgainOnlyWhenAsked_data();
    void whatIsGoneIsWrittenAgainOnlyWhenAsked();
    void whatCannotBeShownKeepsTheText();
    void endsOfLinesAreKept();
    void aCopyLeavesAllAsItIs();
    void aFailureIsToldAndKeepsTheChanges();

private:
    void type(const QString &text) { edit->textCursor().insertText(text); }
    QString shown() const { return edit->toPlainText(); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<QWidget> page;
    TextEdit *edit = nullptr;
    FileSync *sync = nullptr;
    QString path;
};

void tst_FileSync::init()
{
    folder = std::make_unique<QTemporaryDir>();
    path = folder->filePath(u"a.txt"_s);
    QVERIFY(files::write(path, "one\ntwo\r\n"));
    page = std::make_unique<QWidget>();
    edit = new TextEdit(page.get());
    auto file = std::make_unique<TextFile>(path);
    const auto lines = file->read();
    QVERIFY2(lines.isOk(), qPrintable(lines.status().text()));
    sync = new FileSync(std::move(file), edit, page.get());
    sync->fill(lines.value());
}

void tst_FileSync::cleanup() { page.reset(); }

void tst_FileSync::fillingIsNoChange()
{
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QCOMPARE(sync->textFile().path(), path);
    QVERIFY(!sync->isModified());
    QVERIFY(!edit->document()->isUndoAvailable());
    QCOMPARE(sync->onDisk(), Disk::Same);
    QCOMPARE(sync->unreadable(), QString());
}

void tst_FileSync::aTextWithoutChangesFollows()
{
    QSignalSpy read(sync, &FileSync::contentsRead);
    QVERIFY(files::replace(path, "another\n"));
    sync->check(Trust::Nothing);
    QCOMPARE(shown(), u"another\n"_s);
    QVERIFY(!sync->isModified());
    QCOMPARE(read.size(), 1);
    edit->undo();
    QCOMPARE(shown(), u"one\ntwo\n"_s);
}

void tst_FileSync::aTextWithChangesWaits()
{
    QSignalSpy told(sync, &FileSync::diskChanged);
    type(u"x"_s);
    QVERIFY(files::replace(path, "another\n"));
    sync->check(Trust::Nothing);
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
    QCOMPARE(sync->onDisk(), Disk::Changed);
    QVERIFY(told.size() > 0);
}

void tst_FileSync::savingSeesWhatNobodyToldOf()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "another\n"));
    const auto saved = sync->save();
    QCOMPARE(saved.kind(), Kind::Conflict);
    QCOMPARE(saved.text(), QString());
    QCOMPARE(files::read(path), "another\n");
    QCOMPARE(sync->onDisk(), Disk::Changed);
    QVERIFY(sync->isModified());
}

void tst_FileSync::keepingMineMakesTheNextSaveGood()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "another\n"));
    sync->check(Trust::Nothing);
    sync->keepMine();
    QCOMPARE(sync->onDisk(), Disk::Same);
    QVERIFY(sync->isModified());
    QVERIFY(sync->save().isOk());
    QCOMPARE(files::read(path), "xone\ntwo\r\n");
    QVERIFY(!sync->isModified());
}

void tst_FileSync::overwritingTakesTheTextAnyway()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "another\n"));
    sync->check(Trust::Nothing);
    sync->overwrite();
    QCOMPARE(files::read(path), "xone\ntwo\r\n");
    QCOMPARE(sync->onDisk(), Disk::Same);
    QVERIFY(!sync->isModified());
}

void tst_FileSync::reloadingTakesTheFileAnyway()
{
    type(u"x"_s);
    QVERIFY(files::replace(path, "another\n"));
    sync->check(Trust::Nothing);
    sync->reload();
    QCOMPARE(shown(), u"another\n"_s);
    QCOMPARE(sync->onDisk(), Disk::Same);
    QVERIFY(!sync->isModified());
}

void tst_FileSync::aFileThatIsGoneIsAChange()
{
    QSignalSpy modified(sync, &FileSync::modifiedChanged);
    QVERIFY(QFile::remove(path));
    sync->check(Trust::Stamp);
    QCOMPARE(sync->onDisk(), Disk::Missing);
    QVERIFY(sync->isModified());
    QCOMPARE(modified.size(), 1);
    QVERIFY(files::write(path, "one\ntwo\r\n"));
    sync->check(Trust::Stamp);
    QCOMPARE(sync->onDisk(), Disk::Same);
    QVERIFY(!sync->isModified());
    QCOMPARE(modified.size(), 2);
}

void tst_FileSync::whatIsGoneIsWrittenAgainOnlyWhenAsked_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("gone-1 written again") << int(QMessageBox::Save) << true;
    QTest::newRow("gone-2 left") << int(QMessageBox::Cancel) << false;
}

void tst_FileSync::whatIsGoneIsWrittenAgainOnlyWhenAsked()
{
    QFETCH(const int, answer);
    QFETCH(const bool, isWritten);
    QVERIFY(QFile::remove(path));
    DialogAnswer dialog {QMessageBox::StandardButton(answer)};
    const auto saved = sync->save();
    QCOMPARE(
        dialog.said,
        u"File Is Gone\n\"%1\" is no longer on disk. Write it again?\nSave Cancel"_s.arg(path));
    QCOMPARE(saved.kind(), isWritten ? Kind::Ok : Kind::Cancelled);
    QCOMPARE(saved.text(), QString());
    QCOMPARE(QFile::exists(path), isWritten);
    QCOMPARE(sync->isModified(), !isWritten);
}

void tst_FileSync::whatCannotBeShownKeepsTheText()
{
    QVERIFY(files::replace(path, QByteArray("a\0b", 3)));
    sync->check(Trust::Nothing);
    QCOMPARE(shown(), u"one\ntwo\n"_s);
    QVERIFY(sync->unreadable().startsWith(u"Cannot open \"%1\": "_s.arg(path)));
    QVERIFY(sync->isModified());
    QVERIFY(files::replace(path, "text again\n"));
    sync->reload();
    QCOMPARE(sync->unreadable(), QString());
    QCOMPARE(shown(), u"text again\n"_s);
}

void tst_FileSync::endsOfLinesAreKept()
{
    type(u"new\n"_s);
    QVERIFY(sync->save().isOk());
    QCOMPARE(files::read(path), "new\none\ntwo\r\n");
}

void tst_FileSync::aCopyLeavesAllAsItIs()
{
    type(u"x"_s);
    const QString copy = folder->filePath(u"copy.txt"_s);
    QVERIFY(sync->saveCopy(copy).isOk());
    QCOMPARE(files::read(copy), "xone\ntwo\r\n");
    QCOMPARE(files::read(path), "one\ntwo\r\n");
    QVERIFY(sync->isModified());
    QCOMPARE(sync->saveCopy(folder->path()).text(),
             u"Cannot write \"%1\": it is a folder"_s.arg(folder->path()));
}

void tst_FileSync::aFailureIsToldAndKeepsTheChanges()
{
    type(u"x"_s);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkdir(path));
    sync->check(Trust::Nothing);
    DialogAnswer dialog {QMessageBox::Ok};
    sync->overwrite();
    QCOMPARE(dialog.said, u"Not Saved\nCannot write \"%1\": it is a folder\nOK"_s.arg(path));
    QVERIFY(sync->isModified());
    QCOMPARE(shown(), u"xone\ntwo\n"_s);
}

TEST_CLASS(tst_FileSync)
#include "tst_FileSync.moc"
