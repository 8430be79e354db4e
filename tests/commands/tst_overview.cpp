#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

class tst_overview : public CommandTest
{
    Q_OBJECT

    // The whole report with these values of the rows that vary.
    static QByteArray report(const QByteArray &project, const QByteArray &design,
                             const QByteArray &file, const QByteArray &folder,
                             const QByteArray &property, const QByteArray &configuration)
    {
        return "Active Design                       - " + design
            + "\nActive Design Build Configuration   - " + configuration
            + "\nActive Design File                  - " + file
            + "\nActive Design Folder                - " + folder
            + "\nActive Design Property              - " + property
            + "\nActive Project                      - " + project
            + "\nApplication Directory               - "
            + QCoreApplication::applicationDirPath().toUtf8()
            + "\nApplication Session Path            - /the session"
              "\nApplication Session UDP Port        - 4711"
              "\nApplication Version                 - 9.8.7\n";
    }

    static QByteArray noDesign(const QByteArray &project)
    {
        return report(project, "No active design", "No active design file",
                      "No active design folder", "No active design property",
                      "No active build configuration");
    }

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setApplicationVersion(u"9.8.7"_s);
        QtilitiesApplication::setApplicationSessionPath(u"/the session"_s);
    }

    void overview_data()
    {
        const QByteArray noProject = "No open project";
        const QByteArray noBuild = "No active build configuration";
        const auto oneOfEach = [](FakeHost &host) {
            FakeDesign *design = host.activeDesign(u"uart %1"_s);
            design->filesActive = {design->file(u"/wf/rtl/a %1.v"_s)};
            design->foldersActive = {design->folder(u"/wf/rtl"_s)};
            design->propertiesActive = {design->property(u"WIDTH"_s)};
            design->configurationActive = design->configuration(u"fast"_s);
        };
        const auto twoOfEach = [](FakeHost &host) {
            FakeDesign *design = host.activeDesign();
            design->filesActive = {design->file(u"/a"_s), design->file(u"/b"_s)};
            design->foldersActive = {design->folder(u"/a"_s), design->folder(u"/b"_s)};
            design->propertiesActive = {design->property(u"a"_s), design->property(u"b"_s)};
        };
        addRows({
            {"overview-1 nothing is open", "overview", TCL_OK, noDesign(noProject), ""},
            {"overview-2 further words are ignored", "overview a b c", TCL_OK, noDesign(noProject),
             ""},
            {"overview-3 a project", "overview", TCL_OK, noDesign("p %1"), "",
             [](FakeHost &host) {
                 host.projects.open = true;
                 host.projects.name = u"p %1"_s;
             }},
            {"overview-4 an active design that is gone", "overview", TCL_OK, noDesign(noProject),
             "", [](FakeHost &host) { host.designs.active = {nullptr}; }},
            {"overview-5 no active items are counted too", "overview", TCL_OK,
             report(noProject, "uart", "0 active files", "0 active folders", "0 active properties",
                    noBuild),
             "", [](FakeHost &host) { host.activeDesign(); }},
            {"overview-6 one active item of each kind", "overview", TCL_OK,
             report(noProject, "uart %1", "/wf/rtl/a %1.v", "/wf/rtl", "WIDTH", "fast"), "",
             oneOfEach},
            {"overview-7 two active items of each kind", "overview", TCL_OK,
             report(noProject, "uart", "2 active files", "2 active folders", "2 active properties",
                    noBuild),
             "", twoOfEach},
            {"overview-8 one active item of each kind, all gone", "overview", TCL_OK,
             report(noProject, "uart", "No active design file", "No active design folder",
                    "No active design property", noBuild),
             "",
             [](FakeHost &host) {
                 FakeDesign *design = host.activeDesign();
                 design->filesActive = {nullptr};
                 design->foldersActive = {nullptr};
                 design->propertiesActive = {nullptr};
             }},
            {"overview-9 the first of two active designs", "overview", TCL_OK,
             report(noProject, "second", "0 active files", "0 active folders",
                    "0 active properties", noBuild),
             "",
             [](FakeHost &host) {
                 FakeDesign *other = host.activeDesign(u"first"_s);
                 host.activeDesign(u"second"_s);
                 host.designs.active.append(other);
             }},
        });
    }
    void overview() { runRow(); }
};

TEST_CLASS(tst_overview)
#include "tst_overview.moc"
