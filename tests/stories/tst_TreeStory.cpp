// The tree of designs beside both modes, and what is selected, found and built there.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/DesignsMode.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

class tst_TreeStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void cleanup();

    void aDesignOfTheConsoleShowsAtOnce();
    void newDesignsAreSelectedUnlessTheUserGoesOn();
    void theFilterFindsByPathAndCategory();
    void theBuildSaysWhatItBuilds();

private:
    DesignTreeView *view() const { return story->window().designTree()->treeView(); }
    QStringList shownDesigns() const;
    QString selected() const;
    IDesign *design(const QString &name) const;

    std::unique_ptr<Story> story;
};

void tst_TreeStory::cleanup()
{
    story->find<QLineEdit>("designFilter")->clear();
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QTRY_COMPARE(view()->model()->rowCount(), 0);
    story->window().activateMode(105);
}

QStringList tst_TreeStory::shownDesigns() const
{
    QStringList names;
    for (int row = 0; row < view()->model()->rowCount(); ++row)
        names.append(view()->model()->index(row, 0).data().toString());
    return names;
}

QString tst_TreeStory::selected() const
{
    const QModelIndexList rows = view()->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.first().data().toString() : QString();
}

IDesign *tst_TreeStory::design(const QString &name) const
{
    return DesignManager::instance()->design(u"local.global.%1.1.0"_s.arg(name));
}

void tst_TreeStory::aDesignOfTheConsoleShowsAtOnce()
{
    auto *dock = story->find<QDockWidget>("treeDock");
    QVERIFY(dock && dock->isVisible());
    story->type(u"designs new uart"_s);
    QTRY_COMPARE(shownDesigns(), QStringList(u"uart"_s));
    QVERIFY(view()->isVisible());
    QVERIFY(story->console().isVisible());
    // The same dock stays in the other mode.
    story->window().activateMode(DesignsMode::id);
    QVERIFY(view()->isVisible());
    QVERIFY(dock->isAncestorOf(view()));
    QVERIFY(view()->hasFocus());
}

void tst_TreeStory::newDesignsAreSelectedUnlessTheUserGoesOn()
{
    story->type(u"designs new uart"_s);
    QTRY_COMPARE(selected(), u"uart"_s);
    story->type(u"for {set i 0} {$i < 30} {incr i} {designs new d$i}"_s);
    QTRY_COMPARE(selected(), u"d29"_s);
    QVERIFY(view()->viewport()->rect().intersects(view()->visualRect(view()->currentIndex())));
    // A design comes, and before it shows the user goes to another row.
    story->type(u"designs new last"_s);
    view()->setCurrentIndex(view()->model()->index(0, 0));
    QTRY_COMPARE(shownDesigns().last(), u"last"_s);
    QCOMPARE(selected(), u"uart"_s);
}

void tst_TreeStory::theFilterFindsByPathAndCategory()
{
    story->type(u"designs new uart {Hardware Design}"_s);
    story->type(u"foreach f {rtl/a.v rtl/b.vhd documents/notes.txt} {files add $f}"_s);
    story->type(u"morvalen property WIDTH 8 -type int -category Sizes::Bus"_s);
    QTRY_COMPARE(view()->model()->rowCount(), 1);
    const auto found = [this](const QString &text) {
        auto *filter = story->find<QLineEdit>("designFilter");
        filter->clear();
        QTest::keyClicks(filter, text);
        QTest::keyClick(filter, Qt::Key_Return);
        QCoreApplication::processEvents();
        QStringList names;
        const QAbstractItemModel *model = view()->model();
        QModelIndexList rows {{}};
        while (!rows.isEmpty()) {
            const QModelIndex row = rows.takeFirst();
            if (row.isValid() && !model->hasChildren(row))
                names.append(row.data().toString());
            for (int below = 0; below < model->rowCount(row); ++below)
                rows.append(model->index(below, 0, row));
        }
        return names;
    };
    QTRY_COMPARE(found(u"rtl/"_s), QStringList({u"a.v"_s, u"b.vhd"_s}));
    QTRY_COMPARE(found(u"hdl::vhdl"_s), QStringList({u"b.vhd"_s}));
    QTRY_COMPARE(found(u"hdl a."_s), QStringList({u"a.v"_s}));
    QTRY_COMPARE(found(u"sizes"_s), QStringList({u"WIDTH"_s}));
    QTRY_COMPARE(found(u"nothing"_s), QStringList());
}

void tst_TreeStory::theBuildSaysWhatItBuilds()
{
    for (const QString &name : {u"uart"_s, u"fifo"_s}) {
        story->type(u"designs new "_s + name);
        story->type(u"morvalen configuration add Main; morvalen step add Main touch -command {touch $(OUTPUTS)} -outputs made"_s);
    }
    QTRY_COMPARE(shownDesigns(), QStringList({u"uart"_s, u"fifo"_s}));
    QTRY_COMPARE(story->action("buildOutdated")->text(), u"&Build \"Main\" of \"fifo\""_s);
    view()->setFocus();
    view()->setCurrentIndex(view()->model()->index(0, 0));
    QCOMPARE(story->action("buildOutdated")->text(), u"&Build \"Main\" of \"uart\""_s);
    QCOMPARE(Story::activeDesign()->name(), u"fifo"_s);
    story->press(Qt::Key_F7);
    QTRY_VERIFY(QFileInfo::exists(design(u"uart"_s)->workingFolderPath() + u"/made"_s));
    QVERIFY(!QFileInfo::exists(design(u"fifo"_s)->workingFolderPath() + u"/made"_s));
}

TEST_CLASS(tst_TreeStory)
#include "tst_TreeStory.moc"
