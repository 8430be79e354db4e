// A session folder that another version of the program has left: what is known of it is taken, what
// is not is left alone, and nothing is asked or said.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"
#include "app/MainWindow.h"
#include "app/OpenThings.h"
#include "app/session/preferences.h"
#include "tests/process/builds/buildcomponent.h"
#include "tests/stories/DialogVisits.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/Logger.h>

#include <QDir>
#include <QDockWidget>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::Logging::Logger;

class tst_OlderSessionStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { story.reset(); }

    void whatIsKnownIsTaken();
    void whatIsUnknownStays();
    void aLaterFormIsLeftAlone();

private:
    QString path(const QString &name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    QStringList said;
    std::unique_ptr<Story> story;
};

// A window without what came later, with what was dropped, and of docks that there are no more.
void tst_OlderSessionStory::initTestCase()
{
    for (const QString &name : {u"session/Logs"_s, u"session/Scripts"_s, u"uart"_s})
        QVERIFY(QDir(folder.path()).mkpath(name));
    Story::write(path(u"uart/component.xml"_s), buildComponent(step("touch", "true", "", "a")));
    Story::write(path(u"notes.txt"_s), "one\ntwo\n");
    QJsonObject window {
        {u"version"_s, 1},
        {u"designs"_s, QJsonArray {path(u"uart/component.xml"_s)}},
        {u"pages"_s, QJsonArray {QJsonObject {{u"key"_s, path(u"notes.txt"_s)}, {u"zoom"_s, 3}}}},
        {u"toolBar"_s, QJsonObject {{u"shown"_s, true}}},
        {u"folded"_s, u"not a list"_s}};
    Story::write(path(u"session/window.json"_s), QJsonDocument(window).toJson());
    Story::write(path(u"session/settings.ini"_s),
                 "[Window]\nstate=@ByteArray(of docks that there are no more)\n"
                 "geometry=@ByteArray(none)\n\n[Dropped]\nchoice=7\n\n"
                 "[Appearance]\ntheme=purple\n");
    Story::write(path(u"session/Logs/20200101-000000.tcl"_s), "designs new before\n");
    connect(Logger::instance(), &Logger::messageLogged, this,
            [this](const QString &, Logger::MessageType type, const QString &text) {
                if (type == Logger::Warning || type == Logger::Error)
                    said.append(text);
            });
    story = std::make_unique<Story>(QByteArray(), folder.path());
}

void tst_OlderSessionStory::whatIsKnownIsTaken()
{
    const DialogVisits nothingIsAsked;
    story->window().reopen();
    QCOMPARE(DesignManager::instance()->openDesignIds().size(), 1);
    const EditorArea *area = story->window().designsMode()->editorArea();
    QCOMPARE(area->pages().size(), 1);
    QCOMPARE(area->pages().first()->title(), u"notes.txt"_s);
    QVERIFY(story->find<QDockWidget>("treeDock")->isVisible());
    QVERIFY(story->window().height() > 100);
    QCOMPARE(preferences::theme(), preferences::Theme::Desktop);
    QCOMPARE(said.join(u'\n'), QString());
    QVERIFY2(nothingIsAsked.areDone(), qPrintable(nothingIsAsked.unexpected.join(u'\n')));
}

void tst_OlderSessionStory::whatIsUnknownStays()
{
    preferences::setTheme(preferences::Theme::Light);
    const QByteArray settings = Story::read(path(u"session/settings.ini"_s));
    QVERIFY2(settings.contains("[Dropped]\nchoice=7\n"), settings);
    QVERIFY2(settings.contains("theme=light"), settings);
    QCOMPARE(Story::read(path(u"session/Logs/20200101-000000.tcl"_s)),
             QByteArray("designs new before\n"));
}

void tst_OlderSessionStory::aLaterFormIsLeftAlone()
{
    DesignManager::instance()->closeDesigns(DesignManager::instance()->openDesignIds(), false);
    EditorArea *area = story->window().designsMode()->editorArea();
    QVERIFY(area->closeAll());
    Story::write(OpenThings::fileName(),
                 "{\"version\": 99, \"designs\": [\"/designs/uart/component.xml\"]}");
    const DialogVisits nothingIsAsked;
    story->window().reopen();
    QVERIFY(DesignManager::instance()->openDesignIds().isEmpty());
    QVERIFY(nothingIsAsked.areDone());
}

TEST_CLASS(tst_OlderSessionStory)
#include "tst_OlderSessionStory.moc"
