#include "tests/app/builds/ConfigurationPageTest.h"
#include "tests/TestClass.h"

#include <QSignalSpy>
#include <QTableWidget>

// What a user does with a build configuration.
class tst_BuildConfigurationPage : public ConfigurationPageTest
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheConfiguration();
    void savesWhatIsTyped();
    void savesAnotherName();
    void addsAndRemovesSteps();
    void movesSteps();
    void changesMacros();
    void putsAStepInAPool();
    void keepsWhatIsNotTouched();
    void showsStepsOfFilesWithTheReason();
};

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
    QVERIFY2(page->save().toErrorText(&error), qPrintable(error));
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
    QVERIFY(page->save().toErrorText(&error));
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
    QVERIFY(page->save().toErrorText(&error));
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
    QVERIFY(page->save().toErrorText(&error));
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
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(inTheFile(u"Debug"_s).steps, (QList<BuildStep> {debug.steps[1], debug.steps[0]}));
    click("moveStepDown");
    QVERIFY(page->save().toErrorText(&error));
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
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(inTheFile(u"Debug"_s).macros,
             (QList<BuildMacro> {{u"FLAGS"_s, u"-g  -O0"_s}, {u"CC"_s, u"cc"_s}}));

    table->setCurrentCell(1, 0);
    click("removeMacro");
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(inTheFile(u"Debug"_s).macros, (QList<BuildMacro> {{u"FLAGS"_s, u"-g  -O0"_s}}));
}

void tst_BuildConfigurationPage::putsAStepInAPool()
{
    const BuildDescription before {
        u"Debug"_s, {}, {}, {{u"one"_s, u"x"_s, {}, {u"o"_s}, u"licence"_s}}};
    QVERIFY(configuration->setDescription(before, &error));
    auto *pool = child<QLineEdit>("stepPool");
    QCOMPARE(pool->text(), u"licence"_s);
    pool->selectAll();
    QTest::keyClicks(pool, u" big memory "_s);
    QVERIFY(page->isModified());
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(configuration->description().steps[0].pool, u"big memory"_s);
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
    QVERIFY(page->save().toErrorText(&error));
    BuildDescription wanted = odd;
    wanted.steps[0].outputs = QStringList(u"p"_s);
    QCOMPARE(configuration->description(), wanted);
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
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(design->activeBuildConfiguration()->stepNamesInOrder(-1),
             QStringList({u"own"_s, u"a.o"_s}));
}

TEST_CLASS(tst_BuildConfigurationPage)
#include "tst_BuildConfigurationPage.moc"
