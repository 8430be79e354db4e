// What users set in the preferences, and what is remembered because of it.

#include "app/editor/EditorSettings.h"
#include "app/MainWindow.h"
#include "app/session/ConsoleHistory.h"
#include "app/session/preferences.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/BuildSettings.h>
#include <Qtilities/atomicfile.h>
#include <Qtilities/ProjectManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QSettings>
#include <QSpinBox>
#include <QTabWidget>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildSettings;
using Qtilities::ProjectManagement::ProjectManager;

class tst_PreferencesStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }

    void nothingIsSetByCancelling();
    void theConsoleGetsAFont();
    void theEditorsGetAFont();
    void placesAreSet();
    void buildsAreSet();
    void editingIsSet();
    void coloursAreChosen();
    void defaultsComeBack();
    void theHistoryIsKept();
    void twoProcessesShareTheHistory();
    void theHistoryHasALimit();
    void theHistoryIsForgotten();
    void theLayoutIsForgotten();

private:
    // Opens the preferences at a page and presses a button after the visit.
    void prefer(int page, const std::function<void(QDialog *)> &visit, const QString &button) const;
    QVariant setting(const QString &key) const
    {
        return QSettings(story->session() + u"/settings.ini"_s, QSettings::IniFormat).value(key);
    }
    QByteArray history() const { return Story::read(ConsoleHistory::fileName()); }
    static void click(QDialog *dialog, const char *box)
    {
        auto *found = dialog->findChild<QCheckBox *>(QString::fromLatin1(box));
        QVERIFY(found);
        QTest::keyClick(found, Qt::Key_Space);
    }

    std::unique_ptr<Story> story;
};

void tst_PreferencesStory::prefer(int page, const std::function<void(QDialog *)> &visit,
                                  const QString &button) const
{
    const DialogVisits visits({[&](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Preferences"_s);
        dialog->findChild<QTabWidget *>()->setCurrentIndex(page);
        visit(dialog);
        DialogVisits::press(dialog, button);
    }});
    story->press(Qt::Key_Comma, Qt::ControlModifier);
    QVERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
}

void tst_PreferencesStory::nothingIsSetByCancelling()
{
    const QByteArray before = Story::read(story->session() + u"/settings.ini"_s);
    prefer(
        1, [](QDialog *dialog) { click(dialog, "rememberHistory"); }, u"Cancel"_s);
    QCOMPARE(Story::read(story->session() + u"/settings.ini"_s), before);
    QVERIFY(!preferences::remembers(preferences::ConsoleHistory));
}

void tst_PreferencesStory::theConsoleGetsAFont()
{
    story->type(u"set x 1"_s);
    const QString text = story->console().toPlainText();
    const int usual = story->console().currentFont().pointSize();
    prefer(
        0,
        [&](QDialog *dialog) {
            auto *group = dialog->findChild<QGroupBox *>(u"consoleFont"_s);
            group->setChecked(true);
            group->findChild<QSpinBox *>()->setValue(usual + 7);
        },
        u"OK"_s);
    QCOMPARE(story->console().currentFont().pointSize(), usual + 7);
    QCOMPARE(story->console().toPlainText(), text);
    QVERIFY(setting(u"Console/font"_s).isValid());
    prefer(
        0,
        [](QDialog *dialog) {
            dialog->findChild<QGroupBox *>(u"consoleFont"_s)->setChecked(false);
        },
        u"OK"_s);
    QCOMPARE(story->console().currentFont().pointSize(), usual);
    QCOMPARE(story->console().currentFont().family(), u"Courier"_s);
    QVERIFY(!setting(u"Console/font"_s).isValid());
}

void tst_PreferencesStory::theEditorsGetAFont()
{
    const QFont usual = EditorSettings::defaultFont();
    prefer(
        0,
        [&](QDialog *dialog) {
            auto *group = dialog->findChild<QGroupBox *>(u"editorFont"_s);
            group->setChecked(true);
            group->findChild<QSpinBox *>()->setValue(21);
        },
        u"OK"_s);
    QCOMPARE(EditorSettings::instance()->font().pointSize(), 21);
    prefer(
        0,
        [](QDialog *dialog) { dialog->findChild<QGroupBox *>(u"editorFont"_s)->setChecked(false); },
        u"OK"_s);
    QCOMPARE(EditorSettings::instance()->font(), usual);
    QCOMPARE(EditorSettings::instance()->parent(), qApp);
}

void tst_PreferencesStory::placesAreSet()
{
    const QString folder = story->path(u"my projects"_s);
    prefer(
        2,
        [&](QDialog *dialog) {
            QTest::keyClicks(dialog->findChild<QLineEdit *>(u"launcher"_s), u"nice -n 5"_s);
            auto *targets = dialog->findChild<QPlainTextEdit *>(u"targetFolders"_s);
            QTest::keyClicks(targets, u"/scratch, 1"_s);
            QTest::keyClick(targets, Qt::Key_Return);
            QTest::keyClick(targets, Qt::Key_Return);
            QTest::keyClicks(targets, u" /else "_s);
            QTest::keyClick(targets, Qt::Key_Return);
            QTest::keyClicks(targets, u"/scratch, 1"_s);
            QTest::keyClicks(dialog->findChild<QLineEdit *>(u"projectsPath"_s), folder);
        },
        u"OK"_s);
    QCOMPARE(setting(u"Builds/launcher"_s).toString(), u"nice -n 5"_s);
    QCOMPARE(setting(u"Builds/target_folders"_s).toStringList(),
             QStringList({u"/scratch, 1"_s, u"/else"_s}));
    QCOMPARE(ProjectManager::instance()->customProjectsPath(QString()), folder);
    int code = 1;
    QCOMPARE(story->console().interpretCommand(u"project projects_path"_s, &code), folder);
}

void tst_PreferencesStory::buildsAreSet()
{
    prefer(
        2,
        [](QDialog *dialog) {
            auto *jobs = dialog->findChild<QSpinBox *>(u"jobs"_s);
            QCOMPARE(jobs->text(), u"as many as fit this machine"_s);
            jobs->setFocus();
            jobs->selectAll();
            QTest::keyClicks(jobs, u"12"_s);
            QCOMPARE(jobs->value(), 12);
            click(dialog, "keepGoing");
            auto *pools = dialog->findChild<QPlainTextEdit *>(u"pools"_s);
            QTest::keyClicks(pools, u"big memory = 2"_s);
            QTest::keyClick(pools, Qt::Key_Return);
            QTest::keyClicks(pools, u"licence=none"_s);
        },
        u"OK"_s);
    QCOMPARE(setting(u"Builds/jobs"_s).toInt(), 12);
    // The one that is no number is not lost, and told of.
    QCOMPARE(setting(u"Pools/licence"_s).toString(), u"none"_s);
    QCOMPARE(BuildSettings::current().status().text(),
             u"The pool \"licence\" must have a number of steps, at least 1, not \"none\""_s);
    prefer(
        2,
        [](QDialog *dialog) {
            auto *pools = dialog->findChild<QPlainTextEdit *>(u"pools"_s);
            QCOMPARE(pools->toPlainText(), u"big memory=2\nlicence=none"_s);
            pools->setPlainText(u"big memory=2"_s);
        },
        u"OK"_s);
    const auto settings = BuildSettings::current();
    QVERIFY2(settings.isOk(), qPrintable(settings.status().text()));
    QCOMPARE(settings.value().jobs, std::optional(12));
    QVERIFY(settings.value().keepGoing);
    QCOMPARE(settings.value().pools, (QMap<QString, int> {{u"big memory"_s, 2}}));
    prefer(
        2, [](QDialog *dialog) { DialogVisits::press(dialog, u"Restore Defaults"_s); }, u"OK"_s);
    QVERIFY(BuildSettings::current().value() == BuildSettings());
}

void tst_PreferencesStory::editingIsSet()
{
    prefer(
        3,
        [](QDialog *dialog) {
            auto *width = dialog->findChild<QSpinBox *>(u"tabWidth"_s);
            QCOMPARE(width->text(), u"4 columns"_s);
            width->setFocus();
            width->selectAll();
            QTest::keyClicks(width, u"8"_s);
            click(dialog, "indentWithSpaces");
            click(dialog, "indentAsFile");
        },
        u"OK"_s);
    EditorSettings *settings = EditorSettings::instance();
    QCOMPARE(settings->indentation(), (Indentation {false, 8}));
    QVERIFY(!settings->followsText());
    prefer(
        3, [](QDialog *dialog) { DialogVisits::press(dialog, u"Restore Defaults"_s); }, u"OK"_s);
    QCOMPARE(settings->indentation(), Indentation());
    QVERIFY(settings->followsText());
    QVERIFY(!setting(u"Editor/tab_width"_s).isValid());
}

void tst_PreferencesStory::coloursAreChosen()
{
    const QColor before = QApplication::palette().color(QPalette::Base);
    const auto choose = [this](int theme) {
        prefer(
            4,
            [theme](QDialog *dialog) {
                auto *box = dialog->findChild<QComboBox *>(u"theme"_s);
                box->setFocus();
                QTest::keyClick(box, Qt::Key_Home);
                for (int step = 0; step < theme; ++step)
                    QTest::keyClick(box, Qt::Key_Down);
            },
            u"OK"_s);
    };
    choose(2);
    QCOMPARE(setting(u"Appearance/theme"_s).toString(), u"dark"_s);
    QVERIFY(QApplication::palette().color(QPalette::Base).lightness() < 80);
    QTRY_VERIFY(story->window().palette().color(QPalette::Base).lightness() < 80);
    QVERIFY(story->window().palette().color(QPalette::Text).lightness() > 180);
    // The console's colours are made for white.
    QCOMPARE(story->console().palette().color(QPalette::Base), QColor(Qt::white));
    QCOMPARE(story->console().palette().color(QPalette::Text), QColor(Qt::black));
    choose(1);
    QTRY_VERIFY(story->window().palette().color(QPalette::Base).lightness() > 200);
    choose(0);
    QVERIFY(!setting(u"Appearance/theme"_s).isValid());
    QCOMPARE(QApplication::palette().color(QPalette::Base), before);
}

void tst_PreferencesStory::defaultsComeBack()
{
    prefer(
        2, [](QDialog *dialog) { DialogVisits::press(dialog, u"Restore Defaults"_s); }, u"OK"_s);
    QVERIFY(!setting(u"Builds/launcher"_s).isValid());
    QVERIFY(!setting(u"Builds/target_folders"_s).isValid());
    QCOMPARE(ProjectManager::instance()->customProjectsPath(QString()), QString());
}

void tst_PreferencesStory::theHistoryIsKept()
{
    story->type(u"set before 1"_s);
    QVERIFY(!QFileInfo::exists(ConsoleHistory::fileName()));
    prefer(
        1, [](QDialog *dialog) { click(dialog, "rememberHistory"); }, u"OK"_s);
    story->type(u"set after {a"_s);
    story->type(u"b}"_s);
    story->type(u"nonsense"_s);
    QTRY_COMPARE(history(), QByteArray("set after {a\\nb}\nnonsense\n"));
    QCOMPARE(QFileInfo(ConsoleHistory::fileName()).permissions()
                 & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
             QFile::Permissions());

    // The next run's console has it, and runs nothing of it.
    QConsole next(nullptr, QString());
    next.setPrompt(u"> "_s, true);
    const ConsoleHistory nextHistory(&next);
    QCOMPARE(next.toPlainText(), u"> "_s);
    QTest::keyClick(&next, Qt::Key_Up);
    QCOMPARE(next.getCurrentCommand(), u"nonsense"_s);
    QTest::keyClick(&next, Qt::Key_Up);
    QCOMPARE(next.getCurrentCommand(), u"set after {a\\nb}"_s);
    QCOMPARE(next.saveScript(story->path(u"script"_s)), 0);
    QCOMPARE(Story::read(story->path(u"script"_s)), QByteArray());
}

void tst_PreferencesStory::twoProcessesShareTheHistory()
{
    const QByteArray before = history();
    // Another process writes while a command of this one is not written yet.
    story->type(u"set mine 1"_s);
    QVERIFY(
        Qtilities::Core::writeFileAtomically(ConsoleHistory::fileName(), before + "set theirs 1\n")
            .isOk());
    QTRY_COMPARE(history(), before + "set theirs 1\nset mine 1\n");
}

void tst_PreferencesStory::theHistoryHasALimit()
{
    QByteArray many;
    for (int i = 0; i < ConsoleHistory::most; ++i)
        many += "set x " + QByteArray::number(i) + '\n';
    Story::write(ConsoleHistory::fileName(), many);
    story->type(u"set last 1"_s);
    QTRY_VERIFY(history().endsWith("set x 999\nset last 1\n"));
    QVERIFY(history().startsWith("set x 1\n"));
}

void tst_PreferencesStory::theHistoryIsForgotten()
{
    prefer(
        1, [](QDialog *dialog) { click(dialog, "rememberHistory"); }, u"OK"_s);
    QCOMPARE(history(), QByteArray());
    story->type(u"set secret 1"_s);
    QTest::qWait(0);
    story->window().prepareForEnd();
    QCOMPARE(history(), QByteArray());
}

void tst_PreferencesStory::theLayoutIsForgotten()
{
    story->window().prepareForEnd();
    QVERIFY(setting(u"Window/geometry"_s).isValid());
    prefer(
        1, [](QDialog *dialog) { click(dialog, "rememberLayout"); }, u"OK"_s);
    story->window().prepareForEnd();
    QVERIFY(!setting(u"Window/geometry"_s).isValid());
}

TEST_CLASS(tst_PreferencesStory)
#include "tst_PreferencesStory.moc"
