#include "tests/TestClass.h"

#include "SessionFixture.h"

#include <MorvalenCore/DesignConstructor.h>
#include <Qtilities/Status.h>

#include <QTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignConstructor;
using MorvalenCore::DesignStructureManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

namespace {

using Attempt = std::function<Status(SessionFixture &session, IDesign &design)>;

} // namespace

Q_DECLARE_METATYPE(Attempt)

// What operations answer that were refused: the kind, the sentence, and not a word in the log.
class tst_Refusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areValues_data();
    void areValues();
    void ofReadOnlyDesigns_data();
    void ofReadOnlyDesigns();
    void ofAFileThatChangedOnDisk();
    void ofABuildThatFails();
};

void tst_Refusals::areValues_data()
{
    QTest::addColumn<Attempt>("attempt");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("sentence");
    const auto add = [](const char *name, const Attempt &attempt, const QString &kind,
                        const QString &sentence) {
        QTest::newRow(name) << attempt << kind << sentence;
    };
    add(
        "values-1 a name that cannot be",
        [](SessionFixture &session, IDesign &) {
            return session.manager()->tryDesignName(u"1x"_s);
        },
        u"invalid_argument"_s,
        u"The design name \"1x\" begins with \"1\" instead of a letter or \"_\""_s);
    add(
        "values-2 a name that is taken",
        [](SessionFixture &session, IDesign &) {
            return session.manager()->tryDesignName(u"uart"_s);
        },
        u"already_exists"_s, u"A design named \"uart\" is open already"_s);
    add(
        "values-3 a design that is open",
        [](SessionFixture &session, IDesign &design) {
            return session.manager()->tryAttachDesign(&design, true);
        },
        u"already_exists"_s, u"The design \"uart\" is open already"_s);
    add(
        "values-4 a file without a name",
        [](SessionFixture &session, IDesign &) {
            return session.manager()->tryParseDesignFromFile({}).status();
        },
        u"invalid_argument"_s, u"No file is named to open a design from"_s);
    add(
        "values-5 a file that is not there",
        [](SessionFixture &session, IDesign &) {
            return session.manager()->tryParseDesignFromFile(u"/none/c.xml"_s).status();
        },
        u"not_found"_s, u"/none/c.xml:1: The file cannot be read: No such file or directory."_s);
    add(
        "values-6 a design that is not open",
        [](SessionFixture &session, IDesign &) {
            return session.manager()->tryCloseDesign(u"none"_s, false);
        },
        u"not_found"_s, u"No design with the id \"none\" is open"_s);
    add(
        "values-7 a structure that there is not",
        [](SessionFixture &, IDesign &design) { return design.trySetStructureId(u"Round"_s); },
        u"not_found"_s, u"There is no design structure \"Round\""_s);
    add(
        "values-8 a file that is there already",
        [](SessionFixture &session, IDesign &design) {
            return session.manager()->tryParseDesignToFile(&design, u"/dev/null"_s, false);
        },
        u"already_exists"_s, u"\"/dev/null\" is there already"_s);
    add(
        "values-9 a file without a path",
        [](SessionFixture &, IDesign &design) { return design.tryAddFile({}, {}, true).status(); },
        u"invalid_argument"_s, u"The path of a file cannot be empty"_s);
    add(
        "values-10 a file to remove that the design does not have",
        [](SessionFixture &, IDesign &design) { return design.tryRemoveFile(u"/none.v"_s); },
        u"not_found"_s, u"The design \"uart\" does not have \"/none.v\""_s);
    add(
        "values-11 a working folder besides",
        [](SessionFixture &session, IDesign &design) {
            return design.tryAssignPhysicalWorkingFolderPath(session.path(u"other"_s));
        },
        u"already_exists"_s, QString());
    add(
        "values-12 a working folder for nothing",
        [](SessionFixture &, IDesign &) {
            return DesignConstructor::tryAssignPhysicalWorkingFolderToDesign(nullptr, {});
        },
        u"invalid_argument"_s, u"There is no design to assign a working folder to"_s);
    add(
        "values-13 a build configuration without a name",
        [](SessionFixture &, IDesign &design) {
            return design.tryAddBuildConfiguration({}).status();
        },
        u"invalid_argument"_s, u"The name of a build configuration cannot be empty"_s);
    add(
        "values-14 a build configuration that there is not",
        [](SessionFixture &, IDesign &design) {
            return design.tryRemoveBuildConfiguration(u"none"_s);
        },
        u"not_found"_s, u"The design \"uart\" has no build configuration \"none\" of its own"_s);
    add(
        "values-15 a default for a type that there is not",
        [](SessionFixture &, IDesign &) {
            return DesignStructureManager::instance()->trySetDefaultStructureNameForDesignType(
                u"Odd Design"_s, u"Flat"_s);
        },
        u"not_found"_s, u"There is no design type \"Odd Design\""_s);
    add(
        "values-16 a default that there is not",
        [](SessionFixture &, IDesign &) {
            return DesignStructureManager::instance()->trySetDefaultStructureNameForDesignType(
                u"Custom Design"_s, u"Round"_s);
        },
        u"not_found"_s, u"There is no design structure \"Round\""_s);
}

void tst_Refusals::areValues()
{
    QFETCH(Attempt, attempt);
    QFETCH(QString, kind);
    QFETCH(QString, sentence);
    SessionFixture session;
    IDesign *const design = session.create(u"uart"_s);
    QVERIFY(design);
    session.takeLog();

    const Status status = attempt(session, *design);
    QCOMPARE(status.kindWord(), kind);
    if (sentence.isEmpty())
        sentence = u"The design \"uart\" has the working folder \"%1\" already"_s.arg(
            session.designs(u"uart"_s));
    QCOMPARE(status.text(), sentence);
    QCOMPARE(session.takeLog(), QStringList());
}

void tst_Refusals::ofReadOnlyDesigns_data()
{
    QTest::addColumn<Attempt>("attempt");
    const auto add = [](const char *name, const Attempt &attempt) {
        QTest::newRow(name) << attempt;
    };
    add("read-only-1 the name",
        [](SessionFixture &, IDesign &design) { return design.trySetName(u"x"_s); });
    add("read-only-2 the vendor",
        [](SessionFixture &, IDesign &design) { return design.trySetVendor(u"x"_s); });
    add("read-only-3 the description",
        [](SessionFixture &, IDesign &design) { return design.trySetDescription(u"x"_s); });
    add("read-only-4 a new file", [](SessionFixture &, IDesign &design) {
        return design.tryAddFile(u"x.v"_s, {}, true).status();
    });
    add("read-only-5 a file's removal",
        [](SessionFixture &, IDesign &design) { return design.tryRemoveFile(u"there.v"_s); });
    add("read-only-6 a file's path", [](SessionFixture &, IDesign &design) {
        return design.filesUnderNode({}, true).first()->trySetActualPath(u"x.v"_s);
    });
    add("read-only-7 a file's category", [](SessionFixture &, IDesign &design) {
        return design.filesUnderNode({}, true).first()->trySetCategory(
            Qtilities::Core::QtilitiesCategory::fromString(u"x"_s, u"::"_s));
    });
    add("read-only-8 a file on disk", [](SessionFixture &, IDesign &design) {
        return design.filesUnderNode({}, true).first()->tryRemoveFromComputer(true);
    });
    add("read-only-9 a new property", [](SessionFixture &, IDesign &design) {
        return design.tryAddProperty(u"x"_s, {}, 1, false).status();
    });
    add("read-only-10 a new build configuration", [](SessionFixture &, IDesign &design) {
        return design.tryAddBuildConfiguration(u"x"_s).status();
    });
    add("read-only-11 a target path", [](SessionFixture &, IDesign &design) {
        return design.activeBuildConfiguration()->trySetTargetPath(u"x"_s);
    });
}

void tst_Refusals::ofReadOnlyDesigns()
{
    QFETCH(Attempt, attempt);
    SessionFixture session;
    IDesign *const design = session.create(u"uart"_s);
    QVERIFY(design);
    QVERIFY(design->tryAddFile(u"there.v"_s, {}, true).isOk());
    QVERIFY(design->tryAddBuildConfiguration(u"run"_s).isOk());
    QVERIFY(design->trySetReadOnly(true).isOk());
    session.takeLog();

    const Status status = attempt(session, *design);
    QCOMPARE(status.kindWord(), u"read_only"_s);
    QCOMPARE(status.text(), u"The design \"uart\" is read-only"_s);
    QCOMPARE(session.takeLog(), QStringList());
    QVERIFY(design->trySetReadOnly(false).isOk());
}

void tst_Refusals::ofAFileThatChangedOnDisk()
{
    SessionFixture session;
    IDesign *const design = session.create(u"uart"_s);
    QVERIFY(design);
    QVERIFY(design->trySetDescription(u"mine"_s).isOk());
    const QString file = design->componentFileName();
    session.write(file, session.read(file) + "\n");
    session.takeLog();

    const Status saved = design->trySaveToComponentFile();
    QCOMPARE(saved.kindWord(), u"conflict"_s);
    QCOMPARE(
        saved.text(),
        u"The file %1 has changed on disk since it was read; it is not overwritten."_s.arg(file));
    QCOMPARE(session.takeLog(), QStringList());

    // Closing keeps the changes elsewhere and remarks on it.
    const Status closed = session.manager()->tryCloseDesign(design->id(u"."_s), false);
    QVERIFY(closed.isOk());
    QCOMPARE(closed.remarks().size(), 2);
    QCOMPARE(closed.remarks().first(), (Status::Remark {true, saved.text()}));
    QVERIFY(
        closed.remarks().last().text.startsWith(u"The changes of the design \"uart\" are in \""_s));
    QCOMPARE(session.takeLog(), QStringList());
}

void tst_Refusals::ofABuildThatFails()
{
    SessionFixture session;
    IDesign *const design = session.create(u"uart"_s);
    QVERIFY(design);
    BuildConfiguration *const run = design->tryAddBuildConfiguration(u"run"_s).valueOr(nullptr);
    QVERIFY(run);
    QVERIFY(run->trySetDescription({u"run"_s, {}, {}, {{u"fail"_s, u"false"_s, {}, {}}}}).isOk());
    session.takeLog();

    const Status ended = run->tryRun(true, false);
    QCOMPARE(ended.kindWord(), u"failed"_s);
    QCOMPARE(ended.text(), u"The build \"run\" of design \"uart\" failed in \"fail\""_s);
    QVERIFY(!session.takeLog().contains(u"Error: "_s + ended.text()));

    QVERIFY(!run->run(true, false));
    QVERIFY(session.takeLog().contains(u"Error: "_s + ended.text()));
}

TEST_CLASS(tst_Refusals)
#include "tst_Refusals.moc"
