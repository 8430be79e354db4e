// Build configurations from their rows in the tree and on their page.

#include "app/builds/BuildProgress.h"
#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/journal/CommandJournal.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/needed.h"
#include "tests/patience.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/JournalReplay.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>

#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTableWidget>
#include <QUrl>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

// In a function that says whether it has come to its end.
#define QVERIFY_OR_END(expression) \
    do { \
        if (!QTest::qVerify(expression, #expression, "", __FILE__, __LINE__)) \
            return true; \
    } while (false)

// Stands for the desktop's.
class FileManager : public QObject
{
    Q_OBJECT

public:
    FileManager() { QDesktopServices::setUrlHandler(u"file"_s, this, "show"); }
    ~FileManager() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
    Q_INVOKABLE void show(const QUrl &folder) { shown.append(folder); }
    QList<QUrl> shown;
};

class tst_ConfigurationsStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void theGroupMakesConfigurations();
    void aConfigurationIsDuplicatedRenamedAndRemoved();
    void allStepsRunAndTheFolderOpens();
    void namesAreMarkedWhileTyping();
    void thePageGoesBackAndForth();
    void aFolderThatHasVanishedIsTold();
    void runningStepsAreShownWithTheirTime();
    void runningStepsOfJointBuildsAreShown();
    void closingWhileABuildRunsAndATextIsUnsaved();

private:
    DesignTreeView *view() const { return story->window().designTree()->treeView(); }
    EditorArea *area() const { return story->window().designsMode()->editorArea(); }
    IDesign *design() const
    {
        return DesignManager::instance()->design(u"local.global.uart.1.0"_s);
    }
    QAction *entryOf(const QString &rowText, const QString &entry);
    void choose(const QString &rowText, const QString &entry,
                const QList<DialogVisits::Visit> &visits = {});
    static DialogVisits::Visit name(const QString &suggested, const QString &text);
    QString problems() const;
    // Saves, and runs the journal since the design was made.
    void replay();
    // Builds, and does something meanwhile, again until it says that it has come to its end.
    void whileItRuns(const std::function<bool()> &visit) { whileItRuns(QString(), visit); }
    // By a command, or by F7 where there is none.
    void whileItRuns(const QString &command, const std::function<bool()> &visit);

    std::unique_ptr<Story> story;
};

void tst_ConfigurationsStory::init()
{
    JournalReplay::begin(story.get());
    story->type(u"designs new uart"_s);
    story->type(u"morvalen configuration add sim; morvalen macro set sim TOP 1; "
                "morvalen step add sim touch -command {touch $(OUTPUTS)} -outputs made"_s);
    story->window().activateMode(DesignsMode::id);
    QTRY_VERIFY(story->row(u"sim"_s).isValid());
}

void tst_ConfigurationsStory::cleanup()
{
    {
        DialogVisits discard({[](QDialog *dialog) { DialogVisits::press(dialog, u"Discard"_s); }});
        area()->closeAll();
    }
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QTRY_COMPARE(view()->model()->rowCount(), 0);
    QVERIFY(QDir(story->session() + u"/Designs/uart"_s).removeRecursively());
    story->window().activateMode(105);
}

QAction *tst_ConfigurationsStory::entryOf(const QString &rowText, const QString &entry)
{
    if (!QTest::qWaitFor([&] { return story->row(rowText).isValid(); }, patient()))
        return nullptr;
    view()->setFocus();
    view()->selectionModel()->setCurrentIndex(
        story->row(rowText), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    story->press(Qt::Key_F10, Qt::ShiftModifier);
    const QWidget *menu = QApplication::activePopupWidget();
    for (QAction *action : menu ? menu->actions() : QList<QAction *>()) {
        if (action->text().remove(u'&') == entry)
            return action;
    }
    return nullptr;
}

void tst_ConfigurationsStory::choose(const QString &rowText, const QString &entry,
                                     const QList<DialogVisits::Visit> &visits)
{
    DialogVisits made(visits);
    QAction *action = entryOf(rowText, entry);
    QVERIFY2(action && action->isEnabled(), qPrintable(entry));
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    QTRY_VERIFY2(made.areDone(), qPrintable(entry + made.unexpected.join(u'\n')));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    story->window().activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &story->window());
}

DialogVisits::Visit tst_ConfigurationsStory::name(const QString &suggested, const QString &text)
{
    return [suggested, text](QDialog *dialog) {
        auto *line = dialog->findChild<QLineEdit *>();
        QCOMPARE(line->text(), suggested);
        line->selectAll();
        QTest::keyClicks(line, text);
        QTest::keyClick(dialog, Qt::Key_Return);
    };
}

void tst_ConfigurationsStory::replay()
{
    story->type(u"design save"_s);
    JournalReplay::compare(*story);
}

QString tst_ConfigurationsStory::problems() const
{
    const auto *label = area()->findChild<QLabel *>(u"configurationProblems"_s);
    return label && label->isVisible() ? label->text() : QString();
}

void tst_ConfigurationsStory::theGroupMakesConfigurations()
{
    choose(u"Build Configurations"_s, u"New Configuration..."_s, {name(QString(), u"lint"_s)});
    QCOMPARE(design()->buildConfigurationNames(), (QStringList {u"sim"_s, u"lint"_s}));
    QTRY_VERIFY(area()->currentPage());
    QCOMPARE(area()->currentPage()->title(), u"lint"_s);
    choose(u"lint"_s, u"Rename..."_s, {name(u"lint"_s, u"a [b] $c {d"_s)});
    choose(u"sim"_s, u"Duplicate..."_s, {name(u"sim copy"_s, u"back\\slash \"q\""_s)});
    QCOMPARE(design()->buildConfigurationNames(),
             (QStringList {u"sim"_s, u"a [b] $c {d"_s, u"back\\slash \"q\""_s}));
    replay();
}

void tst_ConfigurationsStory::aConfigurationIsDuplicatedRenamedAndRemoved()
{
    choose(u"sim"_s, u"Duplicate..."_s, {name(u"sim copy"_s, u"second one"_s)});
    BuildConfiguration *copy = design()->buildConfiguration(u"second one"_s);
    QVERIFY(copy);
    const auto original = design()->buildConfiguration(u"sim"_s)->description();
    QVERIFY(copy->description().steps == original.steps);
    QVERIFY(copy->description().macros == original.macros);
    QCOMPARE(copy->description().targetPath, QString());
    choose(u"second one"_s, u"Rename..."_s, {name(u"second one"_s, u"other"_s)});
    QCOMPARE(design()->buildConfigurationNames(), (QStringList {u"sim"_s, u"other"_s}));
    // A name that is taken.
    choose(u"other"_s, u"Rename..."_s, {name(u"other"_s, u"sim"_s), [](QDialog *dialog) {
                                            DialogVisits::press(dialog, u"OK"_s);
                                        }});
    QCOMPARE(design()->buildConfigurationNames(), (QStringList {u"sim"_s, u"other"_s}));
    choose(u"other"_s, u"Remove..."_s,
           {DialogVisits::answer(u"Remove Build Configuration\nRemove the build configuration "
                                 "\"other\" from the design \"uart\"?"_s,
                                 u"Remove"_s)});
    QCOMPARE(design()->buildConfigurationNames(), QStringList {u"sim"_s});
    const QStringList entries = CommandJournal::instance()->entries().last(4);
    QCOMPARE(entries.at(2),
             u"morvalen configuration rename {second one} other -design local.global.uart.1.0"_s);
    QCOMPARE(entries.at(3), u"morvalen configuration remove other -design local.global.uart.1.0"_s);
    replay();
}

void tst_ConfigurationsStory::allStepsRunAndTheFolderOpens()
{
    NEEDS_TOOL("ninja", "ninja-build");
    QAction *open = entryOf(u"sim"_s, u"Open Folder"_s);
    QVERIFY(open && !open->isEnabled());
    story->closeMenus();
    choose(u"sim"_s, u"Run All Steps"_s);
    const QString made = design()->workingFolderPath() + u"/made"_s;
    QTRY_VERIFY(QFileInfo::exists(made));
    QTRY_VERIFY(BuildMonitor::instance()->running().isEmpty());
    // There is no desktop here.
    choose(u"sim"_s, u"Open Folder"_s);
    const QString folder = design()->workingFolderPath() + u"/build/sim"_s;
    QCOMPARE(story->window().statusBar()->currentMessage(),
             u"No program of the desktop shows \"%1\""_s.arg(folder));
    FileManager manager;
    choose(u"sim"_s, u"Open Folder"_s);
    QCOMPARE(manager.shown, QList<QUrl> {QUrl::fromLocalFile(folder)});
}

void tst_ConfigurationsStory::namesAreMarkedWhileTyping()
{
    choose(u"sim"_s, u"Edit..."_s);
    auto *table = area()->findChild<QTableWidget *>(u"macroTable"_s);
    QVERIFY(table);
    QCOMPARE(problems(), QString());
    QTest::mouseClick(area()->findChild<QWidget *>(u"addMacro"_s), Qt::LeftButton);
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, u"TO"_s);
    QCOMPARE(problems(), QString());
    QTest::keyClicks(field, u"P"_s);
    QCOMPARE(problems(), u"Two macros have the name \"TOP\"."_s);
    QCOMPARE(field->text(), u"TOP"_s);
    QTest::keyClick(field, Qt::Key_Backspace);
    QCOMPARE(problems(), QString());
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Backspace);
    QCOMPARE(problems(), u"A macro has no name."_s);
    QTest::keyClicks(field, u"TOP"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(table->item(0, 0)->toolTip(), u"Two macros have the name \"TOP\"."_s);
    QVERIFY(!table->item(1, 0)->icon().isNull());
    QTest::mouseClick(area()->findChild<QWidget *>(u"removeMacro"_s), Qt::LeftButton);
    QCOMPARE(problems(), QString());
    QVERIFY(table->item(0, 0)->icon().isNull());
    QTest::mouseClick(area()->findChild<QWidget *>(u"addStep"_s), Qt::LeftButton);
    auto *step = area()->findChild<QLineEdit *>(u"stepName"_s);
    QTRY_COMPARE(QApplication::focusWidget(), step);
    QTest::keyClicks(step, u"touch"_s);
    QCOMPARE(problems(), u"Two steps have the name \"touch\"."_s);
    step->selectAll();
    QTest::keyClick(step, Qt::Key_Delete);
    QCOMPARE(problems(), u"A step has no name."_s);
}

void tst_ConfigurationsStory::thePageGoesBackAndForth()
{
    choose(u"sim"_s, u"Edit..."_s);
    auto *target = area()->findChild<QLineEdit *>(u"targetPath"_s);
    target->setFocus();
    QTest::keyClicks(target, u"out"_s);
    QTest::mouseClick(area()->findChild<QWidget *>(u"addStep"_s), Qt::LeftButton);
    auto *step = area()->findChild<QLineEdit *>(u"stepName"_s);
    QTest::keyClicks(step, u"second"_s);
    auto *table = area()->findChild<QTableView *>(u"stepTable"_s);
    QCOMPARE(table->model()->rowCount(), 2);
    story->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table->model()->index(1, 0).data().toString(), u"new step"_s);
    story->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table->model()->rowCount(), 1);
    QCOMPARE(target->text(), u"out"_s);
    story->press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(target->text(), QString());
    QVERIFY(area()->modifiedPages().isEmpty());
    story->press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(target->text(), u"out"_s);
    QCOMPARE(area()->modifiedPages().size(), 1);
    // What was undone and saved is in the design.
    story->press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(design()->buildConfiguration(u"sim"_s)->description().targetPath, u"out"_s);
    QCOMPARE(design()->buildConfiguration(u"sim"_s)->description().steps.size(), 1);
    replay();
}

void tst_ConfigurationsStory::aFolderThatHasVanishedIsTold()
{
    const QString folder = design()->workingFolderPath();
    QVERIFY(design()->trySaveToComponentFile().isOk());
    QVERIFY(QDir(folder).removeRecursively());
    QStringList errors;
    const auto listening = connect(
        Qtilities::Logging::Logger::instance(), &Qtilities::Logging::Logger::messageLogged, this,
        [&errors](const QString &, auto, const QString &text) { errors.append(text); });
    view()->setFocus();
    story->press(Qt::Key_F7);
    const QString told =
        u"The build \"sim\" of design \"uart\" cannot be run: The folder \"%1\" is no longer there"_s
            .arg(folder);
    QTRY_VERIFY2(errors.contains(told), qPrintable(errors.join(u'\n')));
    disconnect(listening);
    QVERIFY(!QFileInfo::exists(folder));
}

// The run comes back only when it has ended; what happens meanwhile happens in its event loop.
void tst_ConfigurationsStory::whileItRuns(const QString &command,
                                          const std::function<bool()> &visit)
{
    QTimer watch;
    watch.callOnTimeout(&story->window(), [&] {
        if (BuildMonitor::instance()->running().isEmpty())
            return;
        watch.stop();
        if (!visit())
            watch.start();
    });
    watch.start(20);
    if (!command.isEmpty())
        story->window().activateMode(105);
    else
        view()->setFocus();
    if (!command.isEmpty())
        story->type(command);
    else
        story->press(Qt::Key_F7);
    QTRY_VERIFY_WITH_TIMEOUT(!watch.isActive(), patient(20'000));
    QTRY_VERIFY_WITH_TIMEOUT(BuildMonitor::instance()->running().isEmpty(), patient(20'000));
}

void tst_ConfigurationsStory::runningStepsAreShownWithTheirTime()
{
    NEEDS_TOOL("ninja", "ninja-build");
    story->type(u"morvalen step add sim wait -command {sleep 600; touch $(OUTPUTS)} -outputs late "
                "-inputs made"_s);
    choose(u"sim"_s, u"Edit..."_s);
    const auto *table = area()->findChild<QTableView *>(u"stepTable"_s);
    const auto state = [table](int row) {
        return table->model()->index(row, table->model()->columnCount() - 1).data().toString();
    };
    static const QRegularExpression shown(u"^wait \\([0-9]+ s\\)$"_s);
    static const QRegularExpression running(u"^Running, [0-9]+ s$"_s);
    whileItRuns([&] {
        const auto *step = story->find<QLabel>("buildStep");
        if (!shown.match(step->text()).hasMatch() || !running.match(state(1)).hasMatch()
            || state(0) != u"Ended"_s)
            return false;
        BuildMonitor::instance()->running().first()->cancel();
        return true;
    });
    QCOMPARE(state(0), u"Completed"_s);
    QVERIFY2(state(1) != u"Completed"_s, qPrintable(state(1)));
}

// The design whose build has more to do is the first one here; the one that began last is done at
// once.
void tst_ConfigurationsStory::runningStepsOfJointBuildsAreShown()
{
    NEEDS_TOOL("ninja", "ninja-build");
    story->type(u"morvalen step add sim wait -command {sleep 600; touch $(OUTPUTS)} -outputs late "
                "-inputs made"_s);
    story->type(u"designs new timer; morvalen configuration add sim; morvalen step add sim touch "
                "-command {touch $(OUTPUTS)} -outputs made"_s);
    static const QRegularExpression shown(u"^wait \\([0-9]+ s\\)$"_s);
    whileItRuns(u"morvalen build -all"_s, [&] {
        const auto running = BuildMonitor::instance()->running();
        const auto *step = story->find<QLabel>("buildStep");
        const auto *bar = story->find<BuildProgress>("buildProgress")->findChild<QProgressBar *>();
        if (running.size() != 2 || !shown.match(step->text()).hasMatch()
            || bar->text() != u"1 of 2"_s)
            return false;
        const auto *title = story->find<QLabel>("buildTitle");
        QVERIFY_OR_END(title->text() == u"uart: sim"_s);
        running.first()->cancel();
        return true;
    });
    DesignManager::instance()->closeDesigns({u"local.global.timer.1.0"_s}, true);
    QVERIFY(QDir(story->session() + u"/Designs/timer"_s).removeRecursively());
}

void tst_ConfigurationsStory::closingWhileABuildRunsAndATextIsUnsaved()
{
    NEEDS_TOOL("ninja", "ninja-build");
    const QString notes = story->path(u"notes.txt"_s);
    Story::write(notes, "old\n");
    story->type(u"morvalen step set sim touch -command {touch $(OUTPUTS); sleep 600}"_s);
    story->window().activateMode(DesignsMode::id);
    const auto press = [](const QString &button) {
        return [button](QDialog *dialog) { DialogVisits::press(dialog, button); };
    };
    std::unique_ptr<DialogVisits> last;
    whileItRuns([&] {
        story->window().openFiles({notes});
        QTest::keyClicks(area()->currentPage()->findChild<QPlainTextEdit *>(), u"new "_s);
        // Whoever thinks better of it has lost nothing.
        {
            const DialogVisits visits({press(u"Cancel"_s)});
            story->window().close();
            QVERIFY_OR_END(visits.areDone());
        }
        QVERIFY_OR_END(story->window().isVisible());
        QVERIFY_OR_END(BuildMonitor::instance()->running().size() == 1);
        // The build is ended, and then what is not saved is asked about, with a way back.
        const DialogVisits visits({press(u"Quit Anyway"_s)});
        story->window().close();
        QVERIFY_OR_END(visits.areDone());
        last = std::make_unique<DialogVisits>(QList<DialogVisits::Visit> {press(u"Cancel"_s)});
        return true;
    });
    QVERIFY(last);
    QTRY_VERIFY2(last->areDone(), qPrintable(last->unexpected.join(u'\n')));
    QVERIFY(story->window().isVisible());
    QVERIFY(BuildMonitor::instance()->running().isEmpty());
    QCOMPARE(area()->modifiedPages().size(), 1);
    QCOMPARE(Story::read(notes), QByteArray("old\n"));
}

TEST_CLASS(tst_ConfigurationsStory)
#include "tst_ConfigurationsStory.moc"
