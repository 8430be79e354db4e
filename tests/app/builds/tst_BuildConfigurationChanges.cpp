#include "tests/app/builds/ConfigurationPageTest.h"
#include "tests/TestClass.h"

// What happens to a build configuration while a user edits it.
class tst_BuildConfigurationChanges : public ConfigurationPageTest
{
    Q_OBJECT

private Q_SLOTS:
    void followsAScript();
    void asksInAConflict_data();
    void asksInAConflict();
    void refusesWhatTheDesignRefuses();
    void isReadOnlyForAReadOnlyDesign();
    void goesWithItsConfiguration();
    void addsTheConfigurationAgain();
    void keepsChangesOfAClosedDesign();
    void staysModifiedWhenTheFileCannotBeWritten();
};

void tst_BuildConfigurationChanges::followsAScript()
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

void tst_BuildConfigurationChanges::asksInAConflict_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("targetPath");
    QTest::addColumn<QString>("command");
    QTest::newRow("conflict-1 theirs") << u"&Load Theirs"_s << u"theirs"_s << u"theirs too"_s;
    QTest::newRow("conflict-2 mine") << u"&Keep Mine"_s << u""_s << u"mine"_s;
}

void tst_BuildConfigurationChanges::asksInAConflict()
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
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, QString());
    QCOMPARE(configuration->description(), theirs);

    answer(button);
    QCOMPARE(notice(), QString());
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(configuration->description().targetPath, targetPath);
    QCOMPARE(configuration->description().steps[0].command, command);
    QVERIFY(!page->isModified());
}

void tst_BuildConfigurationChanges::refusesWhatTheDesignRefuses()
{
    QVERIFY(design->addBuildConfiguration(u"Other"_s, &error));
    type(child<QLineEdit>("configurationName"), u"Other"_s);
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, u"The design \"d\" has a build configuration \"Other\" already"_s);
    QVERIFY(page->isModified());
    QCOMPARE(child<QLineEdit>("configurationName")->text(), u"Other"_s);
    QCOMPARE(configuration->description(), debug);
}

void tst_BuildConfigurationChanges::isReadOnlyForAReadOnlyDesign()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    design->setReadOnly(true);
    QCOMPARE(notice(), u"The design \"d\" is read-only."_s);
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, u"The design \"d\" is read-only"_s);
    QTest::keyClicks(child<QLineEdit>("targetPath"), u"y"_s);
    QTest::keyClicks(child<QLineEdit>("stepName"), u"y"_s);
    QTest::keyClicks(child<QPlainTextEdit>("stepCommand"), u"y"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->text(), u"x"_s);
    for (const char *button : {"addStep", "removeStep", "moveStepUp", "addMacro", "removeMacro"})
        QVERIFY2(!child<QPushButton>(button)->isEnabled(), button);
    design->setReadOnly(false);
    QCOMPARE(notice(), QString());
    QVERIFY(page->save().toErrorText(&error));
    QCOMPARE(configuration->description().targetPath, u"x"_s);
    QCOMPARE(configuration->description().steps, debug.steps);
}

void tst_BuildConfigurationChanges::goesWithItsConfiguration()
{
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
    QTRY_VERIFY(!page);
}

void tst_BuildConfigurationChanges::addsTheConfigurationAgain()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    QVERIFY(design->removeBuildConfiguration(u"Debug"_s, &error));
    QTRY_COMPARE(notice(),
                 u"The build configuration is no longer in the design \"d\"; saving adds it "
                 u"again."_s);
    QVERIFY2(page->save().toErrorText(&error), qPrintable(error));
    BuildDescription wanted = debug;
    wanted.targetPath = u"x"_s;
    QCOMPARE(inTheFile(u"Debug"_s), wanted);
    QVERIFY(!page->isModified());
    QCOMPARE(notice(), QString());
}

void tst_BuildConfigurationChanges::keepsChangesOfAClosedDesign()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    QVERIFY(SessionFixture::manager()->closeDesign(design->id(u"."_s), false));
    QTRY_COMPARE(notice(), u"The design \"d\" is closed; your changes can no longer be saved."_s);
    QVERIFY(page->isModified());
    QVERIFY(!page->save().toErrorText(&error));
    QCOMPARE(error, u"The design \"d\" is closed"_s);
    QCOMPARE(child<QLineEdit>("targetPath")->text(), u"x"_s);
}

void tst_BuildConfigurationChanges::staysModifiedWhenTheFileCannotBeWritten()
{
    type(child<QLineEdit>("targetPath"), u"x"_s);
    const QString file = design->componentFileName();
    QVERIFY(QFile::rename(file, file + u".away"_s));
    QVERIFY(QDir().mkdir(file));
    QVERIFY(!page->save().toErrorText(&error));
    QVERIFY(!error.isEmpty());
    QVERIFY(page->isModified());
    QVERIFY(QDir().rmdir(file));
    QVERIFY(QFile::rename(file + u".away"_s, file));
    QVERIFY2(page->save().toErrorText(&error), qPrintable(error));
    QVERIFY(!page->isModified());
    QCOMPARE(inTheFile(u"Debug"_s).targetPath, u"x"_s);
}

TEST_CLASS(tst_BuildConfigurationChanges)
#include "tst_BuildConfigurationChanges.moc"
