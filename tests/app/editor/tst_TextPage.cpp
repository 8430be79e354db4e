#include "app/editor/EditorSettings.h"
#include "app/editor/LineGutter.h"
#include "app/editor/NoticeBar.h"
#include "app/editor/PositionBar.h"
#include "app/editor/shades.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "tests/app/editor/files.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTimer>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

class tst_TextPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typingMarksAndSaves();
    void nothingIsWrittenWithoutChanges();
    void commandsFollowTheText_data();
    void commandsFollowTheText();
    void commandsRun();
    void aNewLineKeepsTheIndent_data();
    void aNewLineKeepsTheIndent();
    void holdsForbidChanges();
    void filesWithoutPermissionAreReadOnly();
    void whatCannotBeWrittenIsKept();
    void aCopyIsSaved();

    void thePositionIsTold();
    void kindsAreTold_data();
    void kindsAreTold();
    void aGutterNumbersLines();
    void aClickOnANumberSelects();
    void theCurrentLineIsMarked();
    void theFontIsASetting();

private:
    void open(const QByteArray &bytes, const QString &name = u"top.v"_s);
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(edit, Qt::Key(key), modifiers);
    }
    QString commands() const;
    QString position() const { return page->findChild<PositionBar *>()->text(); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<TextPage> page;
    TextEdit *edit = nullptr;
    QString path;
    QString error;
};

void tst_TextPage::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QtilitiesApplication::setApplicationSessionPath(folder->path());
    QGuiApplication::clipboard()->clear();
    error.clear();
    open("one\ntwo\n");
}

void tst_TextPage::cleanup() { page.reset(); }

void tst_TextPage::open(const QByteArray &bytes, const QString &name)
{
    path = folder->filePath(name);
    QVERIFY(files::write(path, bytes));
    page.reset(TextPage::open(path, &error));
    QVERIFY2(page, qPrintable(error));
    edit = page->textEdit();
    page->resize(500, 300);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
}

void tst_TextPage::typingMarksAndSaves()
{
    QSignalSpy states(page.get(), &EditorPage::stateChanged);
    QTest::keyClicks(edit, u"ab"_s);
    QVERIFY(page->isModified());
    QCOMPARE(states.size(), 1);
    QVERIFY(page->save(&error));
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
    QVERIFY(page->save(&error));
    struct stat after = {};
    QCOMPARE(::stat(QFile::encodeName(path).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
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
    page->setHold(TextPage::Caller, readOnly ? u"it was opened for reading"_s : QString());
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

void tst_TextPage::aNewLineKeepsTheIndent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("after");
    QTest::newRow("indent-1 none") << QByteArray("ab") << 1 << u"a\nb"_s;
    QTest::newRow("indent-2 blanks") << QByteArray("  ab") << 4 << u"  ab\n  "_s;
    QTest::newRow("indent-3 tabs") << QByteArray("\t ab") << 3 << u"\t a\n\t b"_s;
    QTest::newRow("indent-4 within the blanks") << QByteArray("    ab") << 2 << u"  \n    ab"_s;
}

void tst_TextPage::aNewLineKeepsTheIndent()
{
    QFETCH(const QByteArray, text);
    QFETCH(const int, column);
    QFETCH(const QString, after);
    open(text);
    for (int step = 0; step < column; ++step)
        press(Qt::Key_Right);
    press(Qt::Key_Return);
    QCOMPARE(edit->toPlainText(), after);
    press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(edit->toPlainText(), QString::fromLatin1(text));
}

void tst_TextPage::holdsForbidChanges()
{
    const auto *notice = page->findChild<NoticeBar *>();
    page->setHold(TextPage::Design, u"its design is read-only"_s);
    page->setHold(TextPage::Host, u"the host holds it"_s);
    QVERIFY(edit->isReadOnly() && notice->isVisible());
    QCOMPARE(notice->text(), u"Read-only: the host holds it."_s);
    QTest::keyClicks(edit, u"x"_s);
    QCOMPARE(edit->toPlainText(), u"one\ntwo\n"_s);
    page->setHold(TextPage::Host, QString());
    QCOMPARE(notice->text(), u"Read-only: its design is read-only."_s);
    page->setHold(TextPage::Design, QString());
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
    page.reset(TextPage::open(path, &error));
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
    QVERIFY(QDir(folder->path()).mkdir(u"sub"_s));
    open("one\n", u"sub/top.v"_s);
    press(Qt::Key_X);
    QVERIFY(QDir(folder->filePath(u"sub"_s)).removeRecursively());
    QVERIFY(files::write(folder->filePath(u"sub"_s), "a file"));
    QTRY_COMPARE(page->findChild<NoticeBar *>()->text(),
                 u"\"top.v\" is no longer on disk. Its text is kept here."_s);
    QVERIFY(!page->saveCopy(path, &error));
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

void tst_TextPage::thePositionIsTold()
{
    QCOMPARE(position(), u"Line 1, Column 1 | Verilog | UTF-8, LF"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QCOMPARE(position(), u"Line 2, Column 2 | Verilog | UTF-8, LF"_s);
    press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(position(), u"Line 2, Column 3 (1 selected) | Verilog | UTF-8, LF"_s);
}

void tst_TextPage::kindsAreTold_data()
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

void tst_TextPage::kindsAreTold()
{
    QFETCH(const QString, name);
    QFETCH(const int, characters);
    QFETCH(const QString, said);
    open(QByteArray(9'999, 'x').append('\n').repeated(1 + characters / 10'000).left(characters),
         name);
    QCOMPARE(position(), said);
}

void tst_TextPage::aGutterNumbersLines()
{
    const auto *gutter = page->findChild<LineGutter *>();
    QVERIFY(gutter->isVisible());
    const int narrow = gutter->width();
    open(QByteArray("\n").repeated(9'998));
    gutter = page->findChild<LineGutter *>();
    const int digit = edit->fontMetrics().horizontalAdvance(u'9');
    QCOMPARE(gutter->width(), narrow + digit);
    QCOMPARE(edit->viewport()->x(), gutter->geometry().right() + 1);
    press(Qt::Key_Return);
    QCOMPARE(edit->blockCount(), 10'000);
    QCOMPARE(gutter->width(), narrow + 2 * digit);
}

void tst_TextPage::aClickOnANumberSelects()
{
    auto *gutter = page->findChild<LineGutter *>();
    const int height = edit->cursorRect().height();
    const QPoint second(gutter->width() / 2, edit->cursorRect().top() + height + height / 2);
    QTest::mouseClick(gutter, Qt::LeftButton, {}, second);
    QCOMPARE(edit->textCursor().selectedText(), u"two\u2029"_s);
}

void tst_TextPage::theCurrentLineIsMarked()
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

void tst_TextPage::theFontIsASetting()
{
    EditorSettings *settings = EditorSettings::instance();
    QCOMPARE(edit->font().family(), EditorSettings::defaultFont().family());
    QFont large = EditorSettings::defaultFont();
    large.setPointSize(30);
    settings->setFont(large);
    QCOMPARE(settings->font().pointSize(), 30);
    QCOMPARE(edit->font().pointSize(), 30);
    QCOMPARE(edit->tabStopDistance(), 4.0 * edit->fontMetrics().horizontalAdvance(u' '));
    open("x");
    QCOMPARE(edit->font().pointSize(), 30);
    settings->setFont(EditorSettings::defaultFont());
    QCOMPARE(edit->font().pointSize(), EditorSettings::defaultFont().pointSize());
}

QTEST_MAIN(tst_TextPage)
#include "tst_TextPage.moc"
