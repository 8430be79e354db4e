#include "app/builds/BuildConfigurationPage.h"
#include "tests/host/MorvalenCore/SessionFixture.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace MorvalenCore;
using MorvalenCore::Interfaces::IDesign;

namespace {

const BuildDescription debug {
    u"Debug"_s,
    {},
    {{u"CC"_s, u"cc"_s}},
    {{u"compile"_s, u"$(CC) -c $(INPUTS)"_s, {u"a.c"_s}, {u"a.o"_s}},
     {u"link"_s, u"ld $(INPUTS)"_s, {u"a.o"_s}, {u"a"_s}}},
};

} // namespace

// The editor of build configurations, on a real design.
class tst_BuildConfigurationPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsTheConfiguration();
    void savesWhatIsTyped();
    void savesAnotherName();
    void addsAndRemovesSteps();
    void movesSteps();
    void changesMacros();
    void keepsWhatIsNotTouched();
    void followsAScript();
    void asksInAConflict_data();
    void asksInAConflict();
    void refusesWhatTheDesignRefuses();
    void isReadOnlyForAReadOnlyDesign();
    void showsStepsOfFilesWithTheReason();
    void goesWithItsConfiguration();
    void addsTheConfigurationAgain();
    void keepsChangesOfAClosedDesign();
    void staysModifiedWhenTheFileCannotBeWritten();

private:
    void showPage(const QString &name);
    template <typename T>
    T *child(const char *name) const
    {
        return page->findChild<T *>(QLatin1StringView(name));
    }
    void type(QWidget *field, const QString &text) const
    {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, text);
    }
    void click(const char *name) const
    {
        QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton);
    }
    void clickStep(int row) const
    {
        auto *view = child<QTableView>("stepTable");
        const QRect cell = view->visualRect(view->model()->index(row, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.center());
    }
    QString notice() const
    {
        const auto *bar = child<QWidget>("notice");
        QString text;
        for (const QLabel *label : bar->findChildren<QLabel *>())
            text += label->text();
        return bar->isVisible() ? text : QString();
    }
    void answer(const QString &text) const
    {
        for (QPushButton *button : child<QWidget>("notice")->findChildren<QPushButton *>()) {
            if (button->text() == text)
                QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    // What another program would read.
    BuildDescription inTheFile(const QString &name);

    std::unique_ptr<SessionFixture> session;
    IDesign *design = nullptr;
    BuildConfiguration *configuration = nullptr;
    QPointer<BuildConfigurationPage> page;
    QString error;
};

void tst_BuildConfigurationPage::init()
{
    session = std::make_unique<SessionFixture>();
    design = session->create(u"d"_s);
    configuration = design->addBuildConfiguration(u"Debug"_s, &error);
    QVERIFY(configuration && configuration->setDescription(debug, &error));
    QVERIFY(design->saveToComponentFile(&error));
    error.clear();
    showPage(u"Debug"_s);
}

void tst_BuildConfigurationPage::cleanup()
{
    delete page;
    session.reset();
}

void tst_BuildConfigurationPage::showPage(const QString &name)
{
    delete page;
    page = BuildConfigurationPage::create(design, name);
    QVERIFY(page);
    page->resize(800, 800);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page));
}

BuildDescription tst_BuildConfigurationPage::inTheFile(const QString &name)
{
    const QString copy = session->path(u"copy/component.xml"_s);
    QByteArray bytes = SessionFixture::read(design->componentFileName());
    SessionFixture::write(copy, bytes.replace("<ipxact:name>d<", "<ipxact:name>copy<"));
    const IDesign *opened = session->open(copy);
    const BuildConfiguration *found = opened ? opened->buildConfiguration(name) : nullptr;
    const BuildDescription description = found ? found->description() : BuildDescription();
    if (opened)
        SessionFixture::manager()->closeDesign(opened->id(u"."_s), false);
    return description;
}

void tst_BuildConfigurationPage::showsTheConfiguration()
{
    QCOMPARE(page->title(), u"Debug"_s);
    QCOMPARE(page->toolTipText(), u"Build configuration \"Debug\" of the design \"d\""_s);
    QCOMPARE(page->key(), design->componentFileName() + u"#build=Debug"_s);
    QVERIFY(!page->isModified());
    QCOMPARE(child<QLineEdit>("configurationName")->text(), u"Debug"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->text(), QString());
    QCOMPARE(child<QLineEdit>("targetPath")->placeholderText(), u"build/Debug"_s);
    QCOMPARE(child<QTableView>("stepTable")->model()->rowCount(), 2);
    QCOMPARE(child<QLineEdit>("stepName")->text(), u"compile"_s);
    clickStep(1);
    QCOMPARE(child<QLineEdit>("stepName")->text(), u"link"_s);
    QCOMPARE(child<QPlainTextEdit>("stepCommand")->toPlainText(), u"ld $(INPUTS)"_s);
    QCOMPARE(child<QPlainTextEdit>("stepInputs")->toPlainText(), u"a.o"_s);
    QCOMPARE(child<QPlainTextEdit>("stepOutputs")->toPlainText(), u"a"_s);
    QVERIFY(!page->isModified());
    QCOMPARE(BuildConfigurationPage::create(design, u"Nothing"_s), nullptr);
}

void tst_BuildConfigurationPage::savesWhatIsTyped()
{
    QSignalSpy states(page, &EditorPage::stateChanged);
    type(child<QLineEdit>("targetPath"), u"out"_s);
    QVERIFY(page->isModified());
    QVERIFY(!states.isEmpty());
    clickStep(1);
    type(child<QLineEdit>("stepName"), u"bind"_s);
    type(child<QPlainTextEdit>("stepCommand"), u"ld -o a $(INPUTS)"_s);
    auto *inputs = child<QPlainTextEdit>("stepInputs");
    inputs->setFocus();
    QTest::keyClick(inputs, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(inputs, Qt::Key_Return);
    QTest::keyClicks(inputs, u"b c.o"_s);
    QCOMPARE(configuration->description(), debug);

    BuildDescription wanted = debug;
    wanted.targetPath = u"out"_s;
    wanted.steps[1] = {u"bind"_s, u"ld -o a $(INPUTS)"_s, {u"a.o"_s, u"b c.o"_s}, {u"a"_s}};
    QVERIFY2(page->save(&error), qPrintable(error));
    QVERIFY(!page->isModified());
    QCOMPARE(configuration->description(), wanted);
    QCOMPARE(inTheFile(u"Debug"_s), wanted);
    QCOMPARE(child<QLineEdit>("stepName")->text(), u"bind"_s);
}

void tst_BuildConfigurationPage::savesAnotherName()
{
    type(child<QLineEdit>("configurationName"), u"Release"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->placeholderText(), u"build/Release"_s);
    QCOMPARE(page->title(), u"Debug"_s);
    QVERIFY(page->save(&error));
    QCOMPARE(page->title(), u"Release"_s);
    QCOMPARE(page->key(), design->componentFileName() + u"#build=Release"_s);
    QCOMPARE(design->buildConfigurationNames(), QStringList(u"Release"_s));
    QCOMPARE(inTheFile(u"Release"_s).steps, debug.steps);
}

void tst_BuildConfigurationPage::addsAndRemovesSteps()
{
    clickStep(0);
    click("addStep");
    QVERIFY(child<QLineEdit>("stepName")->hasFocus());
    QTest::keyClicks(child<QLineEdit>("stepName"), u"check"_s);
    type(child<QPlainTextEdit>("stepCommand"), u"true"_s);
    QVERIFY(page->save(&error));
    BuildDescription wanted = debug;
    wanted.steps.insert(1, {u"check"_s, u"true"_s, {}, {}});
    QCOMPARE(inTheFile(u"Debug"_s), wanted);

    clickStep(0);
    click("removeStep");
    click("removeStep");
    QCOMPARE(child<QLineEdit>("stepName")->text(), u"link"_s);
    click("removeStep");
    QVERIFY(!child<QPushButton>("removeStep")->isEnabled());
    QVERIFY(!child<QPlainTextEdit>("stepCommand")->isEnabled());
    QVERIFY(page->save(&error));
    wanted.steps.clear();
    QCOMPARE(inTheFile(u"Debug"_s), wanted);
}

void tst_BuildConfigurationPage::movesSteps()
{
    clickStep(1);
    QVERIFY(!child<QPushButton>("moveStepDown")->isEnabled());
    click("moveStepUp");
    QVERIFY(!child<QPushButton>("moveStepUp")->isEnabled());
    QCOMPARE(child<QLineEdit>("stepName")->text(), u"link"_s);
    QVERIFY(page->save(&error));
    QCOMPARE(inTheFile(u"Debug"_s).steps, (QList<BuildStep> {debug.steps[1], debug.steps[0]}));
    click("moveStepDown");
    QVERIFY(page->save(&error));
    QCOMPARE(inTheFile(u"Debug"_s), debug);
}

void tst_BuildConfigurationPage::changesMacros()
{
    auto *table = child<QTableWidget>("macroTable");
    click("addMacro");
    QTest::keyClicks(QApplication::focusWidget(), u"FLAGS"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(table->hasFocus());
    QTest::keyClick(table, Qt::Key_Right);
    QTest::keyClick(table, Qt::Key_F2);
    // Saved while it is still being typed.
    QTest::keyClicks(QApplication::focusWidget(), u"-g  -O0"_s);
    QVERIFY(page->isModified());
    QVERIFY(page->save(&error));
    QCOMPARE(inTheFile(u"Debug"_s).macros,
             (QList<BuildMacro> {{u"FLAGS"_s, u"-g  -O0"_s}, {u"CC"_s, u"cc"_s}}));

    table->setCurrentCell(1, 0);
    click("removeMacro");
    QVERIFY(page->save(&error));
    QCOMPARE(inTheFile(u"Debug"_s).macros, (QList<BuildMacro> {{u"FLAGS"_s, u"-g  -O0"_s}}));
}

// Texts that the fields cannot show as they are.
void tst_BuildConfigurationPage::keepsWhatIsNotTouched()
{
    const BuildDescription odd {
        u"Debug"_s,
        u"a\u2028b"_s,
        {{u"M"_s, u"one\ntwo\u00a0three"_s}},
        {{u"s\ntep"_s, u"x\u00a0y\n\tz\n"_s, {u"a\nb"_s, u" c "_s}, {u"o"_s}}},
    };
    QVERIFY(configuration->setDescription(odd, &error));
    QVERIFY(!page->isModified());
    type(child<QPlainTextEdit>("stepOutputs"), u"p"_s);
    QVERIFY(page->save(&error));
    BuildDescription wanted = odd;
    wanted.steps[0].outputs = QStringList(u"p"_s);
    QCOMPARE(configuration->description(), wanted);
}

void tst_BuildConfigurationPage::followsAScript()
{
    BuildDescription changed = debug;
    changed.targetPath = u"elsewhere"_s;
    changed.steps[0].command = u"clang"_s;
    QVERIFY(configuration->setDescription(changed, &error));
    QCOMPARE(child<QLineEdit>("targetPath")->text(), u"elsewhere"_s);
    QCOMPARE(child<QPlainTextEdit>("stepCommand")->toPlainText(), u"clang"_s);
    QVERIFY(!page->isModified());
    QCOMPARE(notice(), QString());
}

void tst_BuildConfigurationPage::asksInAConflict_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("targetPath");
    QTest::addColumn<QString>("command");
    QTest::newRow("conflict-1 theirs") << u"&Load Theirs"_s << u"theirs"_s << u"theirs too"_s;
    QTest::newRow("conflict-2 mine") << u"&Keep Mine"_s << u""_s << u"mine"_s;
}

void tst_BuildConfigurationPage::asksInAConflict()
{
    QFETCH(const QString, button);
    QFETCH(const QString, targetPath);
    QFETCH(const QString, command);
    type(child<QPlainTextEdit>("stepCommand"), u"mine"_s);
    BuildDescription theirs = debug;
    theirs.targetPath = u"theirs"_s;
    theirs.steps[0].command = u"theirs too"_s;
    QVERIFY(configuration->setDescription(theirs, &error));
    QCOMPARE(notice(),
             u"The build configuration was changed elsewhere, and you have changed it here."_s);
    QCOMPARE(child<QPlainTextEdit>("stepCommand")->toPlainText(), u"mine"_s);
    QVERIFY(!page->save(&error));
    QCOMPARE(error, QString());
    QCOMPARE(configuration->description(), theirs);

    answer(button);
    QCOMPARE(notice(), QString());
    QVERIFY(page->save(&error));
    QCOMPARE(configuration->description().targetPath, targetPath);
    QCOMPARE(configuration->description().steps[0].command, command);
    QVERIFY(!page->isModified());
}

void tst_BuildConfigurationPage::refusesWhatTheDesignRefuses()
{
    QVERIFY(design->addBuildConfiguration(u"Other"_s, &error));
    type(child<QLineEdit>("configurationName"), u"Other"_s);
    QVERIFY(!page->save(&error));
    QCOMPARE(error, u"The design \"d\" has a build configuration \"Other\" already"_s);
    QVERIFY(page->isModified());
    QCOMPARE(child<QLineEdit>("configurationName")->text(), u"Other"_s);
    QCOMPARE(configuration->description(), debug);
}

void tst_BuildConfigurationPage::isReadOnlyForAReadOnlyDesign()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    design->setReadOnly(true);
    QCOMPARE(notice(), u"The design \"d\" is read-only."_s);
    QVERIFY(!page->save(&error));
    QCOMPARE(error, u"The design \"d\" is read-only"_s);
    QTest::keyClicks(child<QLineEdit>("targetPath"), u"y"_s);
    QTest::keyClicks(child<QLineEdit>("stepName"), u"y"_s);
    QTest::keyClicks(child<QPlainTextEdit>("stepCommand"), u"y"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->text(), u"x"_s);
    for (const char *button : {"addStep", "removeStep", "moveStepUp", "addMacro", "removeMacro"})
        QVERIFY2(!child<QPushButton>(button)->isEnabled(), button);
    design->setReadOnly(false);
    QCOMPARE(notice(), QString());
    QVERIFY(page->save(&error));
    QCOMPARE(configuration->description().targetPath, u"x"_s);
    QCOMPARE(configuration->description().steps, debug.steps);
}

void tst_BuildConfigurationPage::showsStepsOfFilesWithTheReason()
{
    SessionFixture::write(
        session->path(u"soft/component.xml"_s),
        "<i:component xmlns:i=\"http://www.accellera.org/XMLSchema/IPXACT/1685-2014\"><i:vendor>v"
        "</i:vendor><i:library>l</i:library><i:name>soft</i:name><i:version>1</i:version>"
        "<i:fileSets><i:fileSet><i:name>s</i:name><i:file><i:name>a.c</i:name>"
        "<i:fileType>cSource</i:fileType><i:buildCommand><i:command>cc</i:command>"
        "<i:flags>-c</i:flags><i:targetName>a.o</i:targetName></i:buildCommand></i:file>"
        "</i:fileSet></i:fileSets></i:component>\n");
    design = session->open(session->path(u"soft/component.xml"_s));
    showPage(u"Default"_s);
    const QString reason =
        u"This step is the build command of the file \"%1\". It is part of the file's description "
        u"in the component file and cannot be changed here."_s.arg(session->path(u"soft/a.c"_s));
    const QAbstractItemModel *model = child<QTableView>("stepTable")->model();
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->index(0, 0).data(Qt::ToolTipRole).toString(), reason);
    clickStep(0);
    QCOMPARE(child<QLabel>("stepReason")->text(), reason);
    QTest::keyClicks(child<QPlainTextEdit>("stepCommand"), u"x"_s);
    QCOMPARE(child<QPlainTextEdit>("stepCommand")->toPlainText(), u"cc -c $(INPUTS)"_s);
    QVERIFY(!child<QPushButton>("removeStep")->isEnabled());

    click("addStep");
    QTest::keyClicks(child<QLineEdit>("stepName"), u"own"_s);
    QCOMPARE(model->index(0, 0).data().toString(), u"own"_s);
    QCOMPARE(model->index(1, 0).data().toString(), u"a.o"_s);
    QVERIFY(!child<QPushButton>("moveStepDown")->isEnabled());
    QVERIFY(page->save(&error));
    QCOMPARE(design->activeBuildConfiguration()->stepNamesInOrder(-1),
             QStringList({u"own"_s, u"a.o"_s}));
}

void tst_BuildConfigurationPage::goesWithItsConfiguration()
{
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
    QTRY_VERIFY(!page);
}

void tst_BuildConfigurationPage::addsTheConfigurationAgain()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
    QTRY_COMPARE(notice(),
                 u"The build configuration is no longer in the design \"d\"; saving adds it "
                 u"again."_s);
    QVERIFY2(page->save(&error), qPrintable(error));
    BuildDescription wanted = debug;
    wanted.targetPath = u"x"_s;
    QCOMPARE(inTheFile(u"Debug"_s), wanted);
    QVERIFY(!page->isModified());
    QCOMPARE(notice(), QString());
}

void tst_BuildConfigurationPage::keepsChangesOfAClosedDesign()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    QVERIFY(SessionFixture::manager()->closeDesign(design->id(u"."_s), false));
    QTRY_COMPARE(notice(), u"The design \"d\" is closed; your changes can no longer be saved."_s);
    QVERIFY(page->isModified());
    QVERIFY(!page->save(&error));
    QCOMPARE(error, u"The design \"d\" is closed"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->text(), u"x"_s);
}

void tst_BuildConfigurationPage::staysModifiedWhenTheFileCannotBeWritten()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    const QString file = design->componentFileName();
    QVERIFY(QFile::rename(file, file + u".away"_s));
    QVERIFY(QDir().mkdir(file));
    QVERIFY(!page->save(&error));
    QVERIFY(!error.isEmpty());
    QVERIFY(page->isModified());
    QVERIFY(QDir().rmdir(file));
    QVERIFY(QFile::rename(file + u".away"_s, file));
    QVERIFY2(page->save(&error), qPrintable(error));
    QVERIFY(!page->isModified());
    QCOMPARE(inTheFile(u"Debug"_s).targetPath, u"x"_s);
}

QTEST_MAIN(tst_BuildConfigurationPage)
#include "tst_BuildConfigurationPage.moc"
