// From what a build or a script says of a file to the line that it means.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/needed.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>

#include <QDir>
#include <QStatusBar>
#include <QTableView>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignManager;
using Qtilities::Logging::Logger;

class tst_IssuesStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void aBuildLeadsToItsMistakes();
    void aClickInTheLogLeadsThere();
    void returnInTheLogLeadsThere();
    void aStepThatSaysNothingIsAnIssue();
    void aScriptLeadsToItsMistake();
    void aClickInTheConsoleLeadsThere();
    void aProcedureLeadsToItsFile();
    void whatIsNotThereIsTold_data();
    void whatIsNotThereIsTold();
    void manyLinksCostNothing();

private:
    QTreeView *issues() const { return story->find<QTreeView>("issues"); }
    QTableView *log() const { return story->find<QWidget>("logDock")->findChild<QTableView *>(); }
    // All rows of the issues, one a line.
    QString shown() const;
    // The text in front, with the place of the cursor.
    QString place() const;
    TextEdit *text() const;
    void build(const QByteArray &command) const;
    // The last row of the log with a text.
    QModelIndex logRow(const QString &text) const;
    void clickInLog(const QString &text) const;

    std::unique_ptr<Story> story;
};

void tst_IssuesStory::init()
{
    story->window().activateMode(105);
    story->window().resize(1200, 900);
}

void tst_IssuesStory::cleanup()
{
    story->window().designsMode()->editorArea()->closeAll();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
    QTRY_COMPARE(shown(), QString());
}

QString tst_IssuesStory::shown() const
{
    QStringList rows;
    const QAbstractItemModel *model = issues()->model();
    for (int source = 0; source < model->rowCount(); ++source) {
        const QModelIndex above = model->index(source, 0);
        rows.append(above.data().toString());
        for (int row = 0; row < model->rowCount(above); ++row)
            rows.append(model->index(row, 0, above).data(Qt::AccessibleTextRole).toString()
                        + u" | "_s + model->index(row, 1, above).data().toString() + u" | "_s
                        + model->index(row, 2, above).data().toString());
    }
    return rows.join(u'\n');
}

TextEdit *tst_IssuesStory::text() const
{
    const auto *page =
        qobject_cast<TextPage *>(story->window().designsMode()->editorArea()->currentPage());
    return page ? page->textEdit() : nullptr;
}

QString tst_IssuesStory::place() const
{
    const EditorPage *page = story->window().designsMode()->editorArea()->currentPage();
    if (!text())
        return {};
    return u"%1:%2:%3"_s.arg(page->title())
        .arg(text()->textCursor().blockNumber() + 1)
        .arg(text()->textCursor().positionInBlock() + 1);
}

void tst_IssuesStory::build(const QByteArray &command) const
{
    Story::write(story->path(u"component.xml"_s),
                 buildComponent(step("compile", command, "main.c", "main.o")));
    story->type(u"designs add {"_s + story->path(u"component.xml"_s) + u'}');
    const BuildConfiguration *configuration = Story::activeDesign()->activeBuildConfiguration();
    story->press(Qt::Key_F7);
    QTRY_VERIFY(configuration->runState() == BuildConfiguration::Failed
                || configuration->runState() == BuildConfiguration::Completed);
}

QModelIndex tst_IssuesStory::logRow(const QString &text) const
{
    const QAbstractItemModel *model = log()->model();
    for (int row = model->rowCount() - 1; row >= 0; --row) {
        if (model->index(row, 2).data().toString().contains(text))
            return model->index(row, 2);
    }
    return {};
}

void tst_IssuesStory::clickInLog(const QString &text) const
{
    QTRY_VERIFY(logRow(text).isValid());
    log()->scrollTo(logRow(text));
    const QRect cell = log()->visualRect(logRow(text));
    const QString line = logRow(text).data().toString();
    const int left = log()->fontMetrics().horizontalAdvance(line.first(line.indexOf(text)));
    QTest::mouseClick(log()->viewport(), Qt::LeftButton, {},
                      cell.topLeft() + QPoint(left + 12, cell.height() / 2));
}

void tst_IssuesStory::aBuildLeadsToItsMistakes()
{
    NEEDS_TOOL("gcc", "gcc");
    Story::write(story->path(u"main.c"_s),
                 "int main(void)\n{\n    int unused;\n    return wrong;\n}\n");
    build("LC_ALL=C gcc -Wall -c -o main.o main.c");
    QTRY_COMPARE(shown(),
                 u"soft: Main (2)\n"
                 "Error: 'wrong' undeclared (first use in this function) | main.c | 4\n"
                 "Warning: unused variable 'unused' [-Wunused-variable] | main.c | 3"_s);
    story->press(Qt::Key_F8);
    QTRY_COMPARE(place(), u"main.c:4:12"_s);
    QCOMPARE(text()->signText(4), u"'wrong' undeclared (first use in this function)"_s);
    QCOMPARE(text()->signText(3), u"unused variable 'unused' [-Wunused-variable]"_s);
    story->press(Qt::Key_F8);
    QCOMPARE(place(), u"main.c:3:9"_s);
    story->press(Qt::Key_F8);
    QCOMPARE(place(), u"main.c:4:12"_s);
    story->press(Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(place(), u"main.c:3:9"_s);

    // Signs go with their lines.
    text()->goToLine(1);
    QTest::keyClick(text(), Qt::Key_Return);
    QCOMPARE(text()->signText(5), u"'wrong' undeclared (first use in this function)"_s);
    QCOMPARE(text()->signText(4), u"unused variable 'unused' [-Wunused-variable]"_s);

    text()->selectAll();
    QTest::keyClicks(text(), u"int main(void) { return 0; }"_s);
    story->press(Qt::Key_S, Qt::ControlModifier);
    story->press(Qt::Key_F7);
    QTRY_COMPARE(shown(), QString());
    QVERIFY(!story->action("nextIssue")->isEnabled());
    QCOMPARE(text()->signText(1), QString());
}

void tst_IssuesStory::aClickInTheLogLeadsThere()
{
    Story::write(story->path(u"main.c"_s), "1\n2\n3\n4 5 6\n");
    build("echo main.c:4:3: error: said; exit 1");
    clickInLog(u"main.c:4:3"_s);
    QTRY_COMPARE(place(), u"main.c:4:3"_s);
}

void tst_IssuesStory::returnInTheLogLeadsThere()
{
    Story::write(story->path(u"main.c"_s), "1\n2\n3\n4 5 6\n");
    build("echo main.c:2: error: said; exit 1");
    QTRY_VERIFY(logRow(u"main.c:2"_s).isValid());
    log()->setFocus();
    log()->setCurrentIndex(logRow(u"main.c:2"_s));
    QTest::keyClick(log(), Qt::Key_Return);
    QCOMPARE(place(), u"main.c:2:1"_s);
}

void tst_IssuesStory::aStepThatSaysNothingIsAnIssue()
{
    Story::write(story->path(u"main.c"_s), "1\n");
    build("exit 3");
    QTRY_COMPARE(shown(), u"soft: Main (1)\nError: The step \"compile\" failed |  | "_s);
}

void tst_IssuesStory::aScriptLeadsToItsMistake()
{
    const QString script = story->path(u"run.tcl"_s);
    Story::write(script, "proc inner {} {\n  error {no good}\n}\ninner\n");
    story->type(u"source {"_s + script + u'}');
    QTRY_COMPARE(shown(), u"run.tcl (1)\nError: no good | run.tcl | 2"_s);
    story->press(Qt::Key_F8);
    QCOMPARE(place(), u"run.tcl:2:1"_s);
    Story::write(script, "set good 1\n");
    story->window().activateMode(105);
    story->type(u"source {"_s + script + u'}');
    QTRY_COMPARE(shown(), QString());
}

void tst_IssuesStory::aClickInTheConsoleLeadsThere()
{
    Story::write(story->path(u"top.v"_s), "1\n2\n3\n");
    const QString named = story->path(u"top.v"_s) + u":3:1"_s;
    story->type(u"string cat {"_s + story->path(u"top.v"_s) + u"} :3:1"_s);
    QtclConsole &console = story->console();
    const QTextCursor found = console.document()->find(named);
    QVERIFY(!found.isNull());
    QTextCursor middle = found;
    middle.setPosition(found.selectionStart() + 5);
    QTest::mouseClick(console.viewport(), Qt::LeftButton, {}, console.cursorRect(middle).center());
    QTRY_COMPARE(place(), u"top.v:3:1"_s);
}

void tst_IssuesStory::aProcedureLeadsToItsFile()
{
    const QString script = story->path(u"procedures.tcl"_s);
    Story::write(script, "# one\nproc known {} {\n  set a 1\n  set b 2\n}\n");
    story->type(u"source {"_s + script + u'}');
    Logger::instance()->logMessage(QString(), Logger::Info, u"(procedure \"known\" line 3)"_s);
    clickInLog(u"known\" line 3"_s);
    QTRY_COMPARE(place(), u"procedures.tcl:4:1"_s);
    Logger::instance()->logMessage(QString(), Logger::Info, u"(procedure \"nobody\" line 3)"_s);
    clickInLog(u"nobody\" line 3"_s);
    QCOMPARE(story->window().statusBar()->currentMessage(),
             u"The procedure \"nobody\" was not read from a file."_s);
}

void tst_IssuesStory::whatIsNotThereIsTold_data()
{
    QTest::addColumn<QString>("named");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("shownPlace");
    QTest::newRow("absent-1 a file")
        << u"gone.v:3:1"_s << u"There is no file \"gone.v\"."_s << QString();
    QTest::newRow("absent-2 a line")
        << u"here.v:40:1"_s << u"\"here.v\" has no line 40; it ends at line 3."_s
        << u"here.v:3:1"_s;
    QTest::newRow("absent-3 a column") << u"here.v:2:40"_s << QString() << u"here.v:2:4"_s;
    QTest::newRow("absent-4 a folder")
        << u"folder.v:1"_s << u"There is no file \"folder.v\"."_s << QString();
}

void tst_IssuesStory::whatIsNotThereIsTold()
{
    QFETCH(const QString, named);
    QFETCH(const QString, told);
    QFETCH(const QString, shownPlace);
    Story::write(story->path(u"here.v"_s), "one\ntwo\n");
    QDir(story->path(QString())).mkdir(u"folder.v"_s);
    story->type(u"cd {"_s + story->path(QString()) + u'}');
    story->window().statusBar()->clearMessage();
    Logger::instance()->logMessage(QString(), Logger::Info, named);
    clickInLog(named);
    QCOMPARE(story->window().statusBar()->currentMessage(), told);
    QCOMPARE(place(), shownPlace);
}

// Only what is seen is looked at.
void tst_IssuesStory::manyLinksCostNothing()
{
    Story::write(story->path(u"here.v"_s), "one\ntwo\n");
    story->type(u"cd {"_s + story->path(QString()) + u'}');
    const QString line = u"here.v:2: error: said"_s;
    for (int i = 0; i < 100'000; ++i)
        Logger::instance()->logMessage(QString(), Logger::Info, line);
    QTRY_VERIFY(log()->model()->rowCount() >= 50'000);
    clickInLog(line);
    QTRY_COMPARE(place(), u"here.v:2:1"_s);
    QCOMPARE(shown(), QString());
}

TEST_CLASS(tst_IssuesStory)
#include "tst_IssuesStory.moc"
