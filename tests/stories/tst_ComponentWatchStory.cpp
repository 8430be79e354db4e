// Another program, or another window, writes the component files of open designs.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/TreeRow.h"
#include "app/DesignsMode.h"
#include "app/editor/NoticeBar.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/patience.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>

#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

class tst_ComponentWatchStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { story = std::make_unique<Story>(); }
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

    void designsWithoutChangesFollow();
    void aDesignWithChangesAsks_data();
    void aDesignWithChangesAsks();
    void aFileThatIsNoGoodIsToldOf();
    void aFileThatIsReplacedIsFollowedToo();
    void nothingIsReadWhileACommandRuns();
    void theStateOfFilesFollows();

private:
    QString component(const QString &name) const
    {
        return story->session() + u"/Designs/"_s + name + u"/component.xml"_s;
    }
    // What another program makes of a component: another description.
    static void change(const QString &file, const QByteArray &description);
    NoticeBar *notice() const { return story->window().designTree()->findChild<NoticeBar *>(); }
    void press(const QString &button);

    std::unique_ptr<Story> story;
};

void tst_ComponentWatchStory::init()
{
    story->window().activateMode(105);
    story->type(u"designs new fifo; designs new uart"_s);
    story->type(u"design set description before; design save"_s);
    story->window().activateMode(DesignsMode::id);
    QVERIFY(Story::activeDesign() && !Story::activeDesign()->isModified());
}

void tst_ComponentWatchStory::cleanup()
{
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), true);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QDir(story->session() + u"/Designs"_s).removeRecursively());
    QVERIFY(QDir(story->session()).mkdir(u"Designs"_s));
    QTRY_VERIFY(notice()->isHidden());
}

void tst_ComponentWatchStory::change(const QString &file, const QByteArray &description)
{
    QByteArray bytes = Story::read(file);
    QVERIFY(bytes.contains(">before<"));
    Story::write(file, bytes.replace(">before<", ">" + description + "<"));
}

void tst_ComponentWatchStory::press(const QString &button)
{
    for (auto *candidate : notice()->findChildren<QPushButton *>()) {
        if (candidate->isVisible() && candidate->text().remove(u'&') == button)
            return QTest::mouseClick(candidate, Qt::LeftButton);
    }
    QFAIL(qPrintable(u"no button "_s + button));
}

void tst_ComponentWatchStory::designsWithoutChangesFollow()
{
    change(component(u"uart"_s), "theirs");
    QTRY_COMPARE(Story::activeDesign()->description(), u"theirs"_s);
    QVERIFY(!Story::activeDesign()->isModified());
    QVERIFY(notice()->isHidden());
}

void tst_ComponentWatchStory::aDesignWithChangesAsks_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("modified");
    QTest::addColumn<QByteArray>("onDisk");
    QTest::newRow("asks-1 reload") << u"Reload"_s << u"theirs"_s << false << QByteArray("theirs");
    QTest::newRow("asks-2 overwrite") << u"Overwrite"_s << u"mine"_s << false << QByteArray("mine");
    QTest::newRow("asks-3 a copy")
        << u"Save a Copy..."_s << u"mine"_s << true << QByteArray("theirs");
    QTest::newRow("asks-4 the difference")
        << u"Show Difference"_s << u"mine"_s << true << QByteArray("theirs");
}

void tst_ComponentWatchStory::aDesignWithChangesAsks()
{
    QFETCH(const QString, button);
    QFETCH(const QString, description);
    QFETCH(const bool, modified);
    QFETCH(const QByteArray, onDisk);
    QVERIFY(Story::activeDesign()->trySetDescription(u"mine"_s).isOk());
    change(component(u"uart"_s), "theirs");
    QTRY_VERIFY(notice()->isVisible());
    QCOMPARE(notice()->text(),
             u"The design \"uart\" was changed on disk by another program, and has changes here "
             "that are not saved."_s);
    const QString copy = story->path(u"copy.xml"_s);
    {
        DialogVisits visits(button == u"Save a Copy..."_s
                                ? QList<DialogVisits::Visit> {DialogVisits::chooseFile(copy)}
                                : QList<DialogVisits::Visit>());
        press(button);
        QTRY_VERIFY2(visits.areDone(), qPrintable(visits.unexpected.join(u'\n')));
    }
    QCOMPARE(Story::activeDesign()->description(), description);
    QCOMPARE(Story::activeDesign()->isModified(), modified);
    QVERIFY(Story::read(component(u"uart"_s)).contains(">" + onDisk + "<"));
    QCOMPARE(notice()->isVisible(), modified);
    if (button == u"Save a Copy..."_s)
        QVERIFY(Story::read(copy).contains(">mine<"));
    if (button == u"Show Difference"_s) {
        auto *dialog = story->find<QDialog>("difference");
        QVERIFY(dialog);
        const QString text = dialog->findChild<QPlainTextEdit *>()->toPlainText();
        QVERIFY2(text.contains(u"theirs"_s) && text.contains(u"mine"_s), qPrintable(text));
        dialog->close();
    }
}

void tst_ComponentWatchStory::aFileThatIsNoGoodIsToldOf()
{
    const QByteArray good = Story::read(component(u"uart"_s));
    Story::write(component(u"uart"_s), "<broken");
    QTRY_VERIFY(notice()->isVisible());
    QVERIFY2(notice()->text().startsWith(u"The design \"uart\" was changed on disk by another "
                                         "program, and cannot be read again: "_s),
             qPrintable(notice()->text()));
    QCOMPARE(Story::activeDesign()->description(), u"before"_s);
    Story::write(component(u"uart"_s), good);
    QTRY_VERIFY(notice()->isHidden());
}

// As version control does it.
void tst_ComponentWatchStory::aFileThatIsReplacedIsFollowedToo()
{
    for (const QByteArray &text : {QByteArray("first"), QByteArray("second")}) {
        const QString next = component(u"uart"_s) + u".next"_s;
        QByteArray bytes = Story::read(component(u"uart"_s));
        bytes.replace(bytes.contains(">before<") ? ">before<" : ">first<", ">" + text + "<");
        QVERIFY(QFile::remove(component(u"uart"_s)));
        Story::write(next, bytes);
        QVERIFY(QFile::rename(next, component(u"uart"_s)));
        QTRY_COMPARE(Story::activeDesign()->description(), QString::fromUtf8(text));
    }
}

void tst_ComponentWatchStory::nothingIsReadWhileACommandRuns()
{
    story->window().activateMode(105);
    story->typeWaiting([&] {
        change(component(u"uart"_s), "theirs");
        QTest::qWait(600);
        QCOMPARE(Story::activeDesign()->description(), u"before"_s);
    });
    QTRY_COMPARE(Story::activeDesign()->description(), u"theirs"_s);
}

// Nobody leaves the window for it.
void tst_ComponentWatchStory::theStateOfFilesFollows()
{
    story->window().activateMode(105);
    story->type(u"files add late.v"_s);
    story->window().activateMode(DesignsMode::id);
    const QAbstractItemModel *model = story->window().designTree()->treeView()->model();
    const auto state = [&] {
        const auto found = model->match(model->index(0, 0), Qt::DisplayRole, u"late.v"_s, 1,
                                        Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QString() : found.first().siblingAtColumn(2).data().toString();
    };
    QTRY_VERIFY(state().contains(u"missing"_s, Qt::CaseInsensitive));
    // The look-up that is known is good for a while; a touched folder makes it old.
    QTest::qWait(400);
    const QString file = story->session() + u"/Designs/uart/late.v"_s;
    Story::write(file, "module late; endmodule\n");
    QTRY_VERIFY(!state().contains(u"missing"_s, Qt::CaseInsensitive));
    QVERIFY(QFile::remove(file));
    QTRY_VERIFY(state().contains(u"missing"_s, Qt::CaseInsensitive));
}

TEST_CLASS(tst_ComponentWatchStory)
#include "tst_ComponentWatchStory.moc"
