// What a screen reader says of the dialogs and of the pages of the editor.

#include "app/builds/buildpages.h"
#include "app/designs/DesignDialog.h"
#include "app/designs/PropertyDialog.h"
#include "app/designs/SharedPropertiesDialog.h"
#include "app/designs/TreeRow.h"
#include "app/DesignsMode.h"
#include "app/editor/DifferenceDialog.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/file/NewDesignDialog.h"
#include "app/find/Locator.h"
#include "app/keeping/KeptTexts.h"
#include "app/keeping/KeptTextsDialog.h"
#include "app/MainWindow.h"
#include "app/messages/ReportDialog.h"
#include "app/preferences/PreferencesDialog.h"
#include "console/QtclConsole.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/spokennames.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/IDesign.h>

#include <QDirIterator>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

class tst_DialogNamesStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void everyControlHasAName_data();
    void everyControlHasAName();
    void everyDialogIsLookedAt();
    void theQuestionForANameHasNames();
    void thePageOfABuildHasNames();

private:
    std::unique_ptr<Story> story;
};

namespace {

using Make = QDialog *(*)();

TreeRow designRow() { return {RowKind::Design, Story::activeDesign()->objectBase(), {}, {}, true}; }

TreeRow fileRow()
{
    IDesign *design = Story::activeDesign();
    return {
        RowKind::File, design->objectBase(), {}, design->filesUnderNode({}, true).first(), false};
}

const std::pair<const char *, Make> dialogs[] = {
    {"DesignDialog", []() -> QDialog * { return new DesignDialog(designRow()); }},
    {"DifferenceDialog",
     []() -> QDialog * { return new DifferenceDialog(u"top.v"_s, u"a"_s, u"b"_s); }},
    {"KeptTextsDialog",
     []() -> QDialog * {
         return new KeptTextsDialog({{u"/designs/uart/top.v"_s, "base", u"text"_s, 0, {}}});
     }},
    {"Locator", []() -> QDialog * { return new Locator; }},
    {"NewDesignDialog", []() -> QDialog * { return new NewDesignDialog; }},
    {"PreferencesDialog", []() -> QDialog * { return new PreferencesDialog; }},
    {"PropertyDialog",
     []() -> QDialog * { return new PropertyDialog(PropertyDialog::DesignProperty); }},
    {"ReportDialog", []() -> QDialog * { return new ReportDialog(u"Clean"_s, u"nothing"_s); }},
    {"SharedPropertiesDialog", []() -> QDialog * { return new SharedPropertiesDialog(fileRow()); }},
};

} // namespace

void tst_DialogNamesStory::initTestCase()
{
    story = std::make_unique<Story>();
    story->type(u"designs new uart; files add top.v; morvalen configuration add sim"_s);
    QVERIFY(Story::activeDesign());
}

void tst_DialogNamesStory::cleanupTestCase() { story.reset(); }

void tst_DialogNamesStory::everyControlHasAName_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const auto &[name, make] : dialogs)
        QTest::newRow(name) << number++;
}

void tst_DialogNamesStory::everyControlHasAName()
{
    QFETCH(const int, number);
    const std::unique_ptr<QDialog> dialog(dialogs[number].second());
    dialog->show();
    QCOMPARE(withoutNames(dialog.get()), QString());
}

void tst_DialogNamesStory::everyDialogIsLookedAt()
{
    static const QRegularExpression derived(uR"(class (\w+) : public QDialog\b)"_s);
    QStringList classes;
    QDirIterator headers(QStringLiteral(SOURCE_DIR "/app"), {u"*.h"_s}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        const QString source = QString::fromUtf8(Story::read(headers.next()));
        for (auto found = derived.globalMatch(source); found.hasNext();)
            classes.append(found.next().captured(1));
    }
    classes.sort();
    QStringList looked;
    for (const auto &[name, make] : dialogs)
        looked.append(QString::fromLatin1(name));
    QCOMPARE(looked, classes);
}

void tst_DialogNamesStory::theQuestionForANameHasNames()
{
    DialogVisits visits({[](QDialog *dialog) {
        QCOMPARE(withoutNames(dialog), QString());
        dialog->reject();
    }});
    story->action("newScript")->trigger();
    QTRY_VERIFY(visits.areDone());
}

void tst_DialogNamesStory::thePageOfABuildHasNames()
{
    EditorArea *area = story->window().designsMode()->editorArea();
    story->window().activateMode(DesignsMode::id);
    buildpages::show(area, Story::activeDesign()->id(u"."_s), u"sim"_s);
    QVERIFY(area->currentPage());
    QCOMPARE(withoutNames(area), QString());
    area->closeAll();
}

TEST_CLASS(tst_DialogNamesStory)
#include "tst_DialogNamesStory.moc"
