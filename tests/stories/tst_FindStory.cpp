// Finding: a file by a part of its name, a text in many files, and another one in its place.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextEdit.h"
#include "app/editor/TextPage.h"
#include "app/find/FileSearch.h"
#include "app/find/LocatorModel.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesign.h>

#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTreeWidget>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

class tst_FindStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void theLocatorGoesToAFile();
    void theLocatorKnowsMore_data();
    void theLocatorKnowsMore();
    void theLocatorHasNothing();
    void manyNamesAreFiltered();
    void aTextIsFoundInFiles();
    void caseIsAChoice();
    void whatIsTypedIsFound();
    void otherTextsAreReplaced();
    void marksWithinATextAreCharacters();
    void aFileThatChangedIsLeftAlone();
    void tenThousandFilesAreSearched();

private:
    EditorArea *area() const { return story->window().designsMode()->editorArea(); }
    QString place() const;
    QStringList results() const;
    // Opens the dock with its key and searches.
    void find(const QString &text) const;
    // Something that is done in the locator, which is one dialog however often it opens.
    static DialogVisits::Visit inLocator(const DialogVisits::Visit &visit)
    {
        return [visit](QDialog *dialog) {
            QCOMPARE(dialog->objectName(), u"locator"_s);
            visit(dialog);
            dialog->setProperty("visited", QVariant());
            dialog->reject();
        };
    }
    QLineEdit *field(const char *name) const { return story->find<QLineEdit>(name); }

    std::unique_ptr<Story> story;
};

void tst_FindStory::init()
{
    story->window().activateMode(105);
    story->window().resize(1200, 900);
    Story::write(story->path(u"adder.v"_s), "module adder;\r\nwire Sum;\r\n\twire sum;\r\n");
    Story::write(story->path(u"top.v"_s), "module top;\nadder a(sum);\n");
    story->type(u"designs new found"_s);
    QVERIFY(Story::activeDesign());
    for (const QString &name : {u"adder.v"_s, u"top.v"_s})
        story->type(u"files add {"_s + story->path(name) + u'}');
}

void tst_FindStory::cleanup()
{
    for (EditorPage *page : area()->modifiedPages())
        delete page;
    area()->closeAll();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
}

QString tst_FindStory::place() const
{
    const auto *page = qobject_cast<TextPage *>(area()->currentPage());
    if (!page)
        return {};
    const QTextCursor cursor = page->textEdit()->textCursor();
    return u"%1:%2:%3"_s.arg(page->title())
        .arg(cursor.blockNumber() + 1)
        .arg(cursor.positionInBlock() + 1);
}

QStringList tst_FindStory::results() const
{
    QStringList rows;
    const auto *tree = story->find<QTreeWidget>("findResults");
    for (int file = 0; file < tree->topLevelItemCount(); ++file) {
        const QTreeWidgetItem *above = tree->topLevelItem(file);
        rows.append(QFileInfo(above->text(0)).fileName());
        for (int row = 0; row < above->childCount(); ++row)
            rows.append(above->child(row)->text(0) + u"|"_s + above->child(row)->text(1));
    }
    return rows;
}

void tst_FindStory::find(const QString &text) const
{
    story->press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), field("findText"));
    field("findText")->selectAll();
    QTest::keyClicks(field("findText"), text);
    QTest::keyClick(field("findText"), Qt::Key_Return);
    QTRY_VERIFY(story->find<QLabel>("findNote")->text() != u"Searching..."_s);
}

void tst_FindStory::theLocatorGoesToAFile()
{
    const DialogVisits visits({inLocator([](QDialog *dialog) {
        auto *text = dialog->findChild<QLineEdit *>();
        QTest::keyClicks(text, u"adder"_s);
        QTest::keyClick(text, Qt::Key_Return);
    })});
    story->press(Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(visits.areDone());
    QTRY_COMPARE(place(), u"adder.v:1:1"_s);
}

void tst_FindStory::theLocatorKnowsMore_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("first");
    QTest::newRow("kind-1 a design") << u"found"_s << u"found \u2013 Design"_s;
    QTest::newRow("kind-2 a command") << u"sproperty"_s << u"sproperty \u2013 Command"_s;
    QTest::newRow("kind-3 a script") << u"made.tcl"_s << u"made.tcl \u2013 Script"_s;
    QTest::newRow("kind-4 a setting") << u"fonts"_s << u"Fonts \u2013 Setting"_s;
    QTest::newRow("kind-5 by the folder") << u"top "_s + QDir::tempPath() << u"top.v \u2013 File"_s;
}

void tst_FindStory::theLocatorKnowsMore()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, first);
    Story::write(story->session() + u"/Scripts/made.tcl"_s, "set a 1");
    const DialogVisits visits({inLocator([&](QDialog *dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit *>(), typed);
        const auto *list = dialog->findChild<QListView *>();
        const QString shown = list->model()->index(0, 0).data().toString();
        QVERIFY2(shown.startsWith(first), qPrintable(shown));
    })});
    Q_EMIT story->find<QMenu>("scriptMenu")->aboutToShow();
    story->press(Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(visits.areDone());
}

void tst_FindStory::theLocatorHasNothing()
{
    const DialogVisits visits({inLocator([](QDialog *dialog) {
        auto *text = dialog->findChild<QLineEdit *>();
        QTest::keyClicks(text, u"no such name"_s);
        QTest::keyClick(text, Qt::Key_Return);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(text, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    })});
    story->press(Qt::Key_K, Qt::ControlModifier);
    QTRY_VERIFY(visits.areDone());
    QCOMPARE(place(), QString());
}

void tst_FindStory::manyNamesAreFiltered()
{
    QList<LocatorModel::Entry> entries;
    for (int i = 0; i < 100'000; ++i) {
        const QString name = u"file%1.v"_s.arg(i);
        entries.append({LocatorModel::File, name, u"/designs/some/folder"_s, name});
    }
    LocatorModel model;
    model.setEntries(entries);
    QCOMPARE(model.rowCount(), int(LocatorModel::mostRows));
    model.filter(u"99999"_s);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.entry(0).name, u"file99999.v"_s);
}

void tst_FindStory::aTextIsFoundInFiles()
{
    CommandJournal::instance()->clear();
    find(u"sum"_s);
    QCOMPARE(results(),
             (QStringList {u"adder.v"_s, u"3: wire sum;|"_s, u"top.v"_s, u"2: adder a(sum);|"_s}));
    QCOMPARE(story->find<QLabel>("findNote")->text(), u"2 in 2 of 2 files"_s);
    auto *tree = story->find<QTreeWidget>("findResults");
    tree->setFocus();
    tree->setCurrentItem(tree->topLevelItem(1)->child(0));
    QTest::keyClick(tree, Qt::Key_Return);
    QCOMPARE(place(), u"top.v:2:9"_s);
    find(u"no such text"_s);
    QCOMPARE(results(), QStringList());
    QCOMPARE(story->find<QLabel>("findNote")->text(), u"0 in 0 of 2 files"_s);
    // What only looks is in no journal.
    QCOMPARE(CommandJournal::instance()->text(), QString());
}

void tst_FindStory::caseIsAChoice()
{
    auto *box = story->find<QAbstractButton>("findCase");
    box->setChecked(false);
    find(u"SUM"_s);
    box->setChecked(true);
    QCOMPARE(results(),
             (QStringList {u"adder.v"_s, u"2: wire Sum;|"_s, u"3: wire sum;|"_s, u"top.v"_s,
                           u"2: adder a(sum);|"_s}));
}

void tst_FindStory::whatIsTypedIsFound()
{
    story->window().openFiles({story->path(u"top.v"_s)});
    auto *page = qobject_cast<TextPage *>(area()->currentPage());
    QVERIFY(page);
    QTest::keyClicks(page->textEdit(), u"// unsaved "_s);
    find(u"unsaved"_s);
    QCOMPARE(results(), (QStringList {u"top.v"_s, u"1: // unsaved module top;|"_s}));
}

void tst_FindStory::otherTextsAreReplaced()
{
    story->window().openFiles({story->path(u"top.v"_s)});
    find(u"sum"_s);
    QTest::keyClicks(field("findReplacement"), u"total"_s);
    QCOMPARE(results(),
             (QStringList {u"adder.v"_s, u"3: wire sum;|wire total;"_s, u"top.v"_s,
                           u"2: adder a(sum);|adder a(total);"_s}));
    // Nothing is changed before the button is pressed.
    QVERIFY(!Story::read(story->path(u"adder.v"_s)).contains("total"));
    QTest::mouseClick(story->find<QPushButton>("findReplace"), Qt::LeftButton);
    field("findReplacement")->clear();
    QCOMPARE(story->find<QLabel>("findNote")->text(), u"2 replaced"_s);
    QCOMPARE(Story::read(story->path(u"adder.v"_s)),
             QByteArray("module adder;\r\nwire Sum;\r\n\twire total;\r\n"));
    // A page is changed where the user sees it, and can take it back.
    QCOMPARE(Story::read(story->path(u"top.v"_s)), QByteArray("module top;\nadder a(sum);\n"));
    const auto *page = qobject_cast<TextPage *>(area()->currentPage());
    QCOMPARE(page->textEdit()->toPlainText(), u"module top;\nadder a(total);\n"_s);
    page->textEdit()->undo();
    QCOMPARE(page->textEdit()->toPlainText(), u"module top;\nadder a(sum);\n"_s);
}

void tst_FindStory::marksWithinATextAreCharacters()
{
    const QByteArray mark = "\xef\xbb\xbf";
    Story::write(story->path(u"top.v"_s), mark + "sum;\n" + mark + "adder a(sum);\n");
    find(u"sum"_s);
    QTest::keyClicks(field("findReplacement"), u"total"_s);
    QTest::mouseClick(story->find<QPushButton>("findReplace"), Qt::LeftButton);
    field("findReplacement")->clear();
    QCOMPARE(story->find<QLabel>("findNote")->text(), u"3 replaced"_s);
    QCOMPARE(Story::read(story->path(u"top.v"_s)), mark + "total;\n" + mark + "adder a(total);\n");
}

void tst_FindStory::aFileThatChangedIsLeftAlone()
{
    find(u"sum"_s);
    QTest::keyClicks(field("findReplacement"), u"total"_s);
    Story::write(story->path(u"adder.v"_s), "another\ntext\naltogether\n");
    const QString path = story->path(u"adder.v"_s);
    const DialogVisits visits({DialogVisits::answer(
        u"Not Replaced\n\""_s + path + u"\" has changed since it was searched."_s, u"OK"_s)});
    QTest::mouseClick(story->find<QPushButton>("findReplace"), Qt::LeftButton);
    QTRY_VERIFY(visits.areDone());
    field("findReplacement")->clear();
    QCOMPARE(story->find<QLabel>("findNote")->text(), u"1 replaced"_s);
    QCOMPARE(Story::read(path), QByteArray("another\ntext\naltogether\n"));
    QCOMPARE(Story::read(story->path(u"top.v"_s)), QByteArray("module top;\nadder a(total);\n"));
}

// As many lines as grep finds.
void tst_FindStory::tenThousandFilesAreSearched()
{
    constexpr int count = 10'000;
    const QString folder = story->path(u"many"_s);
    QDir().mkpath(folder);
    QStringList files;
    const QByteArray line = "  assign some_signal = another_signal & enable;\n";
    for (int i = 0; i < count; ++i) {
        files.append(folder + u"/file%1.v"_s.arg(i));
        Story::write(files.last(),
                     line.repeated(40) + (i % 10 == 0 ? "wire wanted;\n" : "") + line.repeated(40));
    }
    FileSearch search;
    qsizetype found = 0;
    connect(&search, &FileSearch::found, this,
            [&found](const QList<textmatching::Match> &matches) { found += matches.size(); });
    const QSignalSpy ended(&search, &FileSearch::ended);
    QElapsedTimer timer;
    timer.start();
    search.start(files, {}, {u"wanted"_s, true});
    QTRY_COMPARE(ended.size(), 1);
    const qint64 ours = timer.restart();
    QProcess grep;
    grep.start(u"grep"_s, {u"-r"_s, u"-n"_s, u"wanted"_s, folder});
    QVERIFY(grep.waitForFinished(patient(60'000)));
    const qint64 greps = timer.elapsed();
    if (qEnvironmentVariableIsSet("MORVALEN_TELL_TIMES"))
        qInfo("search %lld ms, grep %lld ms", ours, greps);
    QCOMPARE(found, grep.readAllStandardOutput().count('\n'));
    QCOMPARE(found, qsizetype(count / 10));
}

TEST_CLASS(tst_FindStory)
#include "tst_FindStory.moc"
