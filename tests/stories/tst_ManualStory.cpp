// Reading the commands' manual in the window.

#include "app/help/HelpDock.h"
#include "app/help/ManualBrowser.h"
#include "app/help/manualpages.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "commands/commandmanuals.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <QTextTable>

using namespace Qt::Literals::StringLiterals;

class tst_ManualStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void aKeyOpensTheContents();
    void aKeyOpensThePageOfACommand_data();
    void aKeyOpensThePageOfACommand();
    void everyPageShowsWhatTheCommandSays_data();
    void everyPageShowsWhatTheCommandSays();
    void linksLeadToPages();
    void thePagesAreSearched();
    void theConsoleKeepsItsText();
    void theProgramTellsItsVersion();

private:
    ManualBrowser *browser() const { return story->find<ManualBrowser>("manualBrowser"); }
    void showConsole() const
    {
        story->window().activateMode(105);
        story->console().setFocus();
    }

    std::unique_ptr<Story> story;
};

void tst_ManualStory::initTestCase()
{
    story = std::make_unique<Story>("proc mine {} {}\n");
    QCOMPARE(browser(), nullptr);
}

void tst_ManualStory::aKeyOpensTheContents()
{
    QTest::keyClick(&story->console(), Qt::Key_F1);
    QVERIFY(story->find<HelpDock>("helpDock")->isVisible());
    QCOMPARE(browser()->shownPage(), manualpages::contents);
    const QString text = browser()->toPlainText();
    for (const commands::CommandManual &manual : commands::commandManuals())
        QVERIFY2(text.contains(manual.help), qPrintable(manual.word));
    // What the console adds is in the listing of "help".
    QVERIFY(text.contains(u"Shows the commands history"_s));
}

void tst_ManualStory::aKeyOpensThePageOfACommand_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("back");
    QTest::addColumn<QString>("page");
    QTest::newRow("word-1 right behind it") << u"files"_s << 0 << u"files"_s;
    QTest::newRow("word-2 in it") << u"sfolder get"_s << 6 << u"sfolder"_s;
    QTest::newRow("word-3 inside brackets") << u"puts [designs list]"_s << 10 << u"designs"_s;
    QTest::newRow("word-4 no command") << u"mine"_s << 0 << manualpages::contents;
}

void tst_ManualStory::aKeyOpensThePageOfACommand()
{
    QFETCH(const QString, typed);
    QFETCH(const int, back);
    QFETCH(const QString, page);
    showConsole();
    QTest::keyClicks(&story->console(), typed);
    for (int i = 0; i < back; ++i)
        QTest::keyClick(&story->console(), Qt::Key_Left);
    QTest::keyClick(&story->console(), Qt::Key_F1);
    QCOMPARE(browser()->shownPage(), page);
    QVERIFY(browser()->isVisible());
    // Who has looked goes on typing.
    QVERIFY(story->console().hasFocus());
    story->console().replaceCurrentCommand(QString());
}

void tst_ManualStory::everyPageShowsWhatTheCommandSays_data()
{
    QTest::addColumn<int>("index");
    const auto manuals = commands::commandManuals();
    for (int i = 0; i < manuals.size(); ++i)
        QTest::newRow(qPrintable(manuals[i].word)) << i;
}

void tst_ManualStory::everyPageShowsWhatTheCommandSays()
{
    QFETCH(const int, index);
    const commands::CommandManual manual = commands::commandManuals()[index];
    browser()->showPage(manual.word);
    QCOMPARE(browser()->shownPage(), manual.word);
    const QString text = browser()->toPlainText();
    QVERIFY(text.startsWith(manual.word + u'\n' + manual.help + u'\n'));
    // The usage is the first table, once.
    QList<QTextTable *> tables;
    const auto frames = browser()->document()->rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        if (auto *table = qobject_cast<QTextTable *>(frame))
            tables.append(table);
    }
    QCOMPARE(text.count(u"\nUsage\n"_s), manual.calls.isEmpty() ? 0 : 1);
    if (manual.calls.isEmpty())
        return;
    QCOMPARE(tables.first()->rows(), manual.calls.size() + 1);
    for (int row = 0; row < manual.calls.size(); ++row) {
        const auto cell = [&](int column) {
            return tables.first()->cellAt(row + 1, column).firstCursorPosition().block().text();
        };
        QCOMPARE(cell(0), manual.calls[row].call);
        QCOMPARE(cell(1), manual.calls[row].does);
    }
    QVERIFY(text.contains(u"\nAnswers\n"_s));
}

void tst_ManualStory::linksLeadToPages()
{
    browser()->showPage(manualpages::contents);
    QVERIFY(browser()->find(u"Operations on open designs."_s));
    browser()->setSource(QUrl(u"log.md"_s), QTextDocument::MarkdownResource);
    QCOMPARE(browser()->shownPage(), u"log"_s);
    browser()->backward();
    QCOMPARE(browser()->shownPage(), manualpages::contents);
    QVERIFY(browser()->toPlainText().contains(u"Operations on open designs."_s));
}

void tst_ManualStory::thePagesAreSearched()
{
    auto *field = story->find<QLineEdit>("manualSearch");
    browser()->showPage(manualpages::contents);
    QTest::mouseClick(browser()->viewport(), Qt::LeftButton);
    QTest::keyClick(browser(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field->hasFocus());
    QTest::keyClicks(field, u"files_path_nowhere"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(browser()->shownPage(), manualpages::contents);
    QVERIFY(!browser()->textCursor().hasSelection());
    field->clear();
    QTest::keyClicks(field, u"backups_path"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(browser()->shownPage(), u"designs"_s);
    QCOMPARE(browser()->textCursor().selectedText(), u"backups_path"_s);
    QVERIFY(field->hasFocus());
    // Round about, back to the same page.
    const int place = browser()->textCursor().position();
    for (int i = 0; i < 20 && browser()->textCursor().position() != place; ++i)
        QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(browser()->textCursor().selectedText(), u"backups_path"_s);
}

void tst_ManualStory::theConsoleKeepsItsText()
{
    showConsole();
    const QString before = story->console().toPlainText();
    QTest::keyClick(&story->console(), Qt::Key_F1);
    QCOMPARE(story->console().toPlainText(), before);
}

void tst_ManualStory::theProgramTellsItsVersion()
{
    QString said;
    const DialogVisits visits({[&](QDialog *dialog) {
        said = qobject_cast<QMessageBox *>(dialog)->text();
        dialog->accept();
    }});
    QAction *about = story->entry('h', u"About Morvalen"_s);
    QVERIFY(about);
    story->closeMenus();
    about->trigger();
    QVERIFY(visits.areDone());
    QVERIFY2(said.contains(u"Tcl 8.6"_s), qPrintable(said));
}

void tst_ManualStory::cleanupTestCase()
{
    QCOMPARE(CommandJournal::instance()->text(), QString());
    story.reset();
}

TEST_CLASS(tst_ManualStory)
#include "tst_ManualStory.moc"
