// A first start in an empty session, and the first design: made in the dialog, filled from the
// console, saved with a key.

#include "app/DesignsMode.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "app/session/RecentFiles.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

class tst_FirstStepsStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        JournalReplay::begin();
        story = std::make_unique<Story>();
    }
    void cleanupTestCase() { story.reset(); }

    void theWindowIsEmpty();
    void theNameIsCheckedWhileItIsTyped_data();
    void theNameIsCheckedWhileItIsTyped();
    void theDialogMakesTheDesign();
    void anOpenDesignsNameIsRefused();
    void whatTheCommandRefusesTheDialogSays();
    void filesAreAddedAndSavedWithAKey();
    void aScriptRuns();
    void theJournalRunsAgain();

private:
    static QString text(const QDialog *dialog, const char *label)
    {
        return dialog->findChild<QLabel *>(QString::fromLatin1(label))->text();
    }
    static bool canCreate(const QDialog *dialog)
    {
        return dialog->findChild<QPushButton *>(u"create"_s)->isEnabled();
    }

    std::unique_ptr<Story> story;
};

void tst_FirstStepsStory::theWindowIsEmpty()
{
    QCOMPARE(story->window().windowTitle(), u"Morvalen"_s);
    QCOMPARE(QApplication::focusWidget(), &story->console());
    QVERIFY(story->console().toPlainText().endsWith(u"\nmorvalen > "_s));
    QAction *recent = story->entry('f', u"Open Recent"_s);
    QVERIFY(recent);
    QVERIFY(!story->action("closeDesign")->isEnabled());
    QVERIFY(!story->action("save")->isEnabled());
    QVERIFY(!story->action("saveAll")->isEnabled());
    story->closeMenus();
    QCOMPARE(QDir(story->session()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             (QStringList {u"Backups"_s, u"Designs"_s, u"Logs"_s, u"Projects"_s, u"Scripts"_s}));
    // A key with nothing to do says so.
    story->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(story->window().statusBar()->currentMessage(), u"There are no unsaved changes here"_s);
}

void tst_FirstStepsStory::theNameIsCheckedWhileItIsTyped_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("problem");
    QTest::newRow("name-1 none") << u""_s << u""_s;
    QTest::newRow("name-2 good") << u"_uart-1.0"_s << u""_s;
    QTest::newRow("name-3 a digit first")
        << u"7abc"_s
        << u"The design name \"7abc\" begins with \"7\" instead of a letter or \"_\""_s;
    QTest::newRow("name-4 a blank")
        << u"a b"_s
        << u"The design name \"a b\" holds \" \", which is no letter, digit, \"_\", \"-\" or \".\""_s;
    QTest::newRow("name-5 markup")
        << u"a<b>"_s
        << u"The design name \"a<b>\" holds \"<\", which is no letter, digit, \"_\", \"-\" or "
           "\".\""_s;
}

void tst_FirstStepsStory::theNameIsCheckedWhileItIsTyped()
{
    QFETCH(const QString, name);
    QFETCH(const QString, problem);
    const DialogVisits visits({[&](QDialog *dialog) {
        QTest::keyClicks(dialog->focusWidget(), name);
        QCOMPARE(text(dialog, "problem"), problem);
        QCOMPARE(canCreate(dialog), !name.isEmpty() && problem.isEmpty());
        if (!canCreate(dialog))
            QTest::keyClick(dialog, Qt::Key_Return);
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    }});
    story->press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList());
}

void tst_FirstStepsStory::theDialogMakesTheDesign()
{
    const DialogVisits visits({[](QDialog *dialog) {
        const auto *structure = dialog->findChild<QComboBox *>(u"designStructure"_s);
        QCOMPARE(structure->currentText(), u"Flat"_s);
        QTest::keyClicks(dialog->focusWidget(), u"uart"_s);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        QTest::keyClicks(dialog->focusWidget(), u"Hardware"_s);
        QCOMPARE(structure->currentText(), u"Hardware"_s);
        auto *vendor = dialog->findChild<QLineEdit *>(u"designVendor"_s);
        QCOMPARE(vendor->text(), u"local"_s);
        vendor->selectAll();
        QTest::keyClicks(vendor, u"acme"_s);
        QTest::keyClick(vendor, Qt::Key_Return);
    }});
    story->press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    QCOMPARE(DesignManager::instance()->openDesignIds(), QStringList {u"acme.global.uart.1.0"_s});
    QCOMPARE(story->window().windowTitle(), u"uart \u2013 Morvalen"_s);
    QCOMPARE(Story::activeDesign()->designType(), u"Hardware Design"_s);
    const QString file = story->session() + u"/Designs/uart/component.xml"_s;
    QVERIFY(Story::read(file).contains("<ipxact:vendor>acme</ipxact:vendor>"));
    QVERIFY(QDir(story->session() + u"/Designs/uart/rtl"_s).exists());
    QTRY_COMPARE(RecentFiles::files(RecentFiles::Designs), QStringList {file});
    // What the window does is not what the user typed.
    story->type(u"history"_s);
    QVERIFY(!story->console().toPlainText().contains(u"designs new"_s));
}

void tst_FirstStepsStory::anOpenDesignsNameIsRefused()
{
    const DialogVisits visits({[](QDialog *dialog) {
        QTest::keyClicks(dialog->focusWidget(), u"uart"_s);
        QCOMPARE(text(dialog, "problem"), u"A design named \"uart\" is open already"_s);
        QVERIFY(!canCreate(dialog));
        dialog->reject();
    }});
    story->press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(visits.areDone());
}

void tst_FirstStepsStory::whatTheCommandRefusesTheDialogSays()
{
    const QString folder = story->session() + u"/Designs/taken"_s;
    QVERIFY(QDir().mkpath(folder));
    Story::write(folder + u"/notes.txt"_s, "mine");
    const DialogVisits visits({[&](QDialog *dialog) {
        QTest::keyClicks(dialog->focusWidget(), u"taken"_s);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        const QString said = text(dialog, "problem");
        QVERIFY2(said.startsWith(
                     u"Cannot assign a physical working folder path for the new design at path \""_s
                     + folder + u"\"\n"_s),
                 qPrintable(said));
        QVERIFY(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    }});
    story->press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(visits.areDone());
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
    QCOMPARE(Story::read(folder + u"/notes.txt"_s), QByteArray("mine"));
}

void tst_FirstStepsStory::filesAreAddedAndSavedWithAKey()
{
    const QString file = story->session() + u"/Designs/uart/component.xml"_s;
    story->type(u"files add rtl/uart.v"_s);
    QVERIFY(Story::activeDesign()->isModified());
    QVERIFY(!Story::read(file).contains("uart.v"));
    QAction *save = story->entry('f', u"Save \"uart\""_s);
    QVERIFY(save && save->isEnabled());
    story->closeMenus();
    story->press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(Story::read(file).contains("<ipxact:name>rtl/uart.v</ipxact:name>"));
    QVERIFY(!Story::activeDesign()->isModified());
}

void tst_FirstStepsStory::aScriptRuns()
{
    Story::write(story->session() + u"/Scripts/fill.tcl"_s,
                 "for {set i 0} {$i < 3} {incr i} {files add rtl/part$i.v}\ndesign save\n");
    QAction *fill = nullptr;
    QTRY_VERIFY((story->closeMenus(), fill = story->entry('s', u"fill.tcl"_s)));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    fill->trigger();
    story->closeMenus();
    const QByteArray component = Story::read(story->session() + u"/Designs/uart/component.xml"_s);
    for (const char *name : {"rtl/part0.v", "rtl/part1.v", "rtl/part2.v"})
        QVERIFY(component.contains(name));
    QCOMPARE(CommandJournal::instance()->entries().constLast(),
             u"source "_s + journal::quoted(story->session() + u"/Scripts/fill.tcl"_s));
}

// All of it, from the first key on.
void tst_FirstStepsStory::theJournalRunsAgain() { JournalReplay::compare(*story); }

TEST_CLASS(tst_FirstStepsStory)
#include "tst_FirstStepsStory.moc"
