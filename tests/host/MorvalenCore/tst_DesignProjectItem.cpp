#include "tests/host/MorvalenCore/SessionFixture.h"
#include "tests/TestClass.h"

#include <MorvalenCore/DesignProjectItem.h>
#include <Qtilities/ProjectManager.h>

#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignProjectItem;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::ProjectManagement::ProjectManager;

// Projects that hold designs on disk.
class tst_DesignProjectItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void savesTheOpenDesigns();
    void opensThemAgain();
    void opensThemWhenTheyWereMoved();
    void savesUnsavedDesignsWhenItCloses();
    void takesOverDesignsThatAreOpen();
    void refusesAMissingDesign();
    void bringsOldDesignsBackWhenOneIsMalformed();

private:
    static QStringList open() { return DesignManager::instance()->openDesignIds(); }
    static QString active()
    {
        const IDesign *const design = DesignManager::instance()->activeDesigns().value(0);
        return design ? design->id(u"."_s) : u"none"_s;
    }
    // The log since the last call, with the test's folder as DIR.
    QStringList logged()
    {
        return session->takeLog().replaceInStrings(session->path(QString()), u"DIR/"_s);
    }
    QString projectFile() const { return session->path(u"session/Projects/p.mvproject"_s); }

    std::optional<SessionFixture> session;
    std::optional<ProjectManager> projects;
    DesignProjectItem item;
};

void tst_DesignProjectItem::init()
{
    session.emplace();
    projects.emplace();
    QVERIFY(projects->addProjectItem(&item));
    QVERIFY(projects->newProject());
    QVERIFY(QDir().mkpath(session->path(u"session/Projects"_s)));
}

void tst_DesignProjectItem::cleanup()
{
    projects.reset();
    session.reset();
}

void tst_DesignProjectItem::savesTheOpenDesigns()
{
    QVERIFY(session->create(u"uart"_s));
    QVERIFY(session->create(u"spi"_s));
    DesignManager::instance()->setActiveDesign(u"local.global.uart.1.0"_s);

    QVERIFY(projects->saveProject(projectFile(), true));

    QCOMPARE(QString::fromUtf8(SessionFixture::read(projectFile())),
             uR"(<?xml version="1.0" encoding="UTF-8"?>
<project version="1" name="p">
    <designs>
        <entry path="../Designs/uart/component.xml" active="true"/>
        <entry path="../Designs/spi/component.xml"/>
    </designs>
</project>
)"_s);
}

void tst_DesignProjectItem::opensThemAgain()
{
    QVERIFY(session->create(u"uart"_s));
    QVERIFY(session->create(u"spi"_s));
    DesignManager::instance()->setActiveDesign(u"local.global.uart.1.0"_s);
    const QStringList before = open();
    QVERIFY(projects->saveProject(projectFile(), true));

    QVERIFY(projects->closeProject());
    QCOMPARE(open(), QStringList());
    QVERIFY(projects->openProject(projectFile()));

    QCOMPARE(open(), before);
    QCOMPARE(active(), u"local.global.uart.1.0"_s);
    QVERIFY(QFile::exists(session->designs(u"uart/component.xml"_s)));
}

void tst_DesignProjectItem::opensThemWhenTheyWereMoved()
{
    QVERIFY(session->create(u"uart"_s));
    QVERIFY(projects->saveProject(projectFile(), true));
    QVERIFY(projects->closeProject());
    QVERIFY(QDir().rename(session->path(u"session"_s), session->path(u"elsewhere"_s)));

    QVERIFY(projects->openProject(session->path(u"elsewhere/Projects/p.mvproject"_s)));

    QCOMPARE(open(), QStringList {u"local.global.uart.1.0"_s});
    QCOMPARE(DesignManager::instance()->design(open()[0])->workingFolderPath(),
             session->path(u"elsewhere/Designs/uart"_s));
}

void tst_DesignProjectItem::savesUnsavedDesignsWhenItCloses()
{
    IDesign *const design = session->create(u"uart"_s);
    QVERIFY(design);
    QVERIFY(projects->saveProject(projectFile(), true));
    design->setDescription(u"a change"_s);

    QVERIFY(projects->closeProject());
    QVERIFY(projects->openProject(projectFile()));

    QCOMPARE(DesignManager::instance()->design(open().value(0))->description(), u"a change"_s);
}

void tst_DesignProjectItem::takesOverDesignsThatAreOpen()
{
    QVERIFY(session->create(u"uart"_s));
    QVERIFY(projects->saveProject(projectFile(), true));
    QVERIFY(projects->closeProject());
    QVERIFY(session->create(u"spi"_s));
    QVERIFY(session->open(session->designs(u"uart/component.xml"_s)));

    QVERIFY(projects->openProject(projectFile()));
    QCOMPARE(open(), QStringList({u"local.global.spi.1.0"_s, u"local.global.uart.1.0"_s}));
    QVERIFY(projects->closeProject());

    QCOMPARE(open(), QStringList());
    QVERIFY(SessionFixture::read(projectFile()).contains("../Designs/spi/component.xml"));
}

void tst_DesignProjectItem::refusesAMissingDesign()
{
    QVERIFY(session->create(u"uart"_s));
    SessionFixture::write(projectFile(),
                          "<project version=\"1\">\n<designs>\n<entry path=\"no/c.xml\"/>\n"
                          "</designs>\n</project>");
    session->takeLog();

    QVERIFY(!projects->openProject(projectFile()));

    QCOMPARE(logged(),
             QStringList {u"Error: DIR/session/Projects/p.mvproject:3: There is no "
                          "component file \"DIR/session/Projects/no/c.xml\""_s});
    QCOMPARE(open(), QStringList {u"local.global.uart.1.0"_s});
    QCOMPARE(projects->currentProjectName(), u"New Project"_s);
}

void tst_DesignProjectItem::bringsOldDesignsBackWhenOneIsMalformed()
{
    QVERIFY(session->create(u"uart"_s));
    QVERIFY(session->create(u"spi"_s));
    DesignManager::instance()->setActiveDesign(u"local.global.uart.1.0"_s);
    const QStringList before = open();
    QVERIFY(projects->saveProject(session->path(u"session/Projects/old.mvproject"_s), true));
    SessionFixture::write(session->path(u"session/Projects/bad.xml"_s), "<component>\n");
    SessionFixture::write(projectFile(),
                          "<project version=\"1\"><designs>\n"
                          "<entry path=\"../Designs/spi/component.xml\"/>\n"
                          "<entry path=\"bad.xml\"/></designs></project>");
    session->takeLog();

    QVERIFY(!projects->openProject(projectFile()));

    const QStringList log = logged();
    QCOMPARE(log.size(), 2);
    QVERIFY2(log[0].startsWith(u"Error: DIR/session/Projects/bad.xml:2: "_s), qPrintable(log[0]));
    QCOMPARE(log[1],
             u"Error: DIR/session/Projects/p.mvproject:3: The design in "
             "\"DIR/session/Projects/bad.xml\" cannot be opened"_s);
    QCOMPARE(open(), before);
    QCOMPARE(active(), u"local.global.uart.1.0"_s);
    QCOMPARE(projects->currentProjectName(), u"old"_s);
}

GUILESS_TEST_CLASS(tst_DesignProjectItem)
#include "tst_DesignProjectItem.moc"
