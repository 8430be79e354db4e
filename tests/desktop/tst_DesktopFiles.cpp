#include "tests/desktop/Command.h"
#include "tests/needed.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

// The files that desktops and distributions read.
class tst_DesktopFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theDesktopEntryIsValid();
    void theMetainfoIsValid();
    void theMimeTypesAreValid();
    void filesHaveTheirTypes_data();
    void filesHaveTheirTypes();
    void filesWithoutASuffixAreKnownByTheirContent_data();
    void filesWithoutASuffixAreKnownByTheirContent();
    void everyFileNamesTheSameTypes();
    void iconsHaveTheirSizes_data();
    void iconsHaveTheirSizes();
    void everyListHasTheVersion();
    void packagesAreBuiltWithWhatBuildsNeed();

private:
    QTemporaryDir data;
};

namespace {

const QString desktop = QStringLiteral(SOURCE_DIR) + u"/desktop/"_s;

QStringList captures(const QString &text, const QString &pattern)
{
    QStringList found;
    for (const auto &match :
         QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text))
        found << match.captured(1);
    return found;
}

} // namespace

// The project's types are the user's own, before anybody looks for a type.
void tst_DesktopFiles::initTestCase()
{
    QVERIFY(QDir(data.path()).mkpath(u"mime/packages"_s));
    QVERIFY(QFile::copy(desktop + u"morvalen-mime.xml"_s,
                        data.filePath(u"mime/packages/morvalen.xml"_s)));
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
}

void tst_DesktopFiles::theDesktopEntryIsValid()
{
    NEEDS_TOOL("desktop-file-validate", "desktop-file-utils");
    const Command run = Command::run(u"desktop-file-validate"_s, {desktop + u"morvalen.desktop"_s});
    QCOMPARE(run.output + run.error, QString());
    QCOMPARE(run.status, 0);
}

void tst_DesktopFiles::theMetainfoIsValid()
{
    NEEDS_TOOL("appstreamcli", "appstream");
    const Command run = Command::run(
        u"appstreamcli"_s,
        {u"validate"_s, u"--no-net"_s, u"--strict"_s, u"--no-color"_s,
         QStringLiteral(BINARY_DIR) + u"/desktop/org.morvalen.morvalen.metainfo.xml"_s});
    // Version 1.0 wants a tag that 0.16 refuses, and a page on the web, which the project has not.
    static const QRegularExpression ofLaterVersions(
        u": (developer-name-tag-deprecated|developer-info-missing|url-homepage-missing)$"_s);
    const QStringList lines = (run.output + run.error).split(u'\n');
    const QStringList notes = lines.filter(ofLaterVersions);
    const QStringList issues = lines.filter(QRegularExpression(u"^[A-Z]: "_s));
    QVERIFY2(run.status == 0 || (!notes.isEmpty() && notes == issues),
             qPrintable(lines.join(u'\n')));
}

void tst_DesktopFiles::theMimeTypesAreValid()
{
    NEEDS_TOOL("update-mime-database", "shared-mime-info");
    const Command run = Command::run(u"update-mime-database"_s, {data.filePath(u"mime"_s)});
    QCOMPARE(run.output + run.error, QString());
    QCOMPARE(run.status, 0);
    QFile namespaces(data.filePath(u"mime/XMLnamespaces"_s));
    QVERIFY(namespaces.open(QIODevice::ReadOnly));
    QCOMPARE(namespaces.readAll().count(" component application/x-ipxact-component+xml\n"), 5);
}

void tst_DesktopFiles::filesHaveTheirTypes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");

    const QString component = u"application/x-ipxact-component+xml"_s;
    QTest::newRow("type-1 by the name of new ones")
        << u"component.xml"_s << QByteArray("<component/>") << component;
    QTest::newRow("type-2 somebody else's project")
        << u"build.xml"_s << QByteArray("<project name=\"demo\" default=\"all\"/>")
        << u"application/xml"_s;
}

void tst_DesktopFiles::filesHaveTheirTypes()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, type);
    QCOMPARE(QMimeDatabase().mimeTypeForFileNameAndData(name, content).name(), type);
}

void tst_DesktopFiles::filesWithoutASuffixAreKnownByTheirContent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");

    const QString component = u"application/x-ipxact-component+xml"_s;
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    QTest::newRow("content-1 a component") << head
            + "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/"
              "1685-2014\"/>\n" << component;
    QTest::newRow("content-2 an older one, behind a licence")
        << head + "<!-- " + QByteArray(1500, 'x') + " -->\n<spirit:component/>\n"
        << component;
    QTest::newRow("content-3 a project")
        << head + "<project version=\"1\" name=\"x\">\n</project>\n"
        << u"application/x-morvalen-project+xml"_s;
    QTest::newRow("content-4 somebody else's project")
        << head + "<project name=\"demo\" default=\"all\"/>\n"
        << u"application/xml"_s;
    QTest::newRow("content-5 another document") << head + "<other/>\n" << u"application/xml"_s;
}

// A file that is called *.xml is XML to a desktop, whatever is in it.
void tst_DesktopFiles::filesWithoutASuffixAreKnownByTheirContent()
{
    QFETCH(const QByteArray, content);
    NEEDS_TOOL("update-mime-database", "shared-mime-info");
    NEEDS_TOOL("gio", "libglib2.0-bin");
    QCOMPARE(Command::run(u"update-mime-database"_s, {data.filePath(u"mime"_s)}).status, 0);
    QFile file(data.filePath(u"unnamed"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
    file.close();
    const Command run =
        Command::run(u"gio"_s, {u"info"_s, u"-a"_s, u"standard::content-type"_s, file.fileName()});
    QTEST(run.output.section(u"standard::content-type: "_s, 1).trimmed(), "type");
}

void tst_DesktopFiles::everyFileNamesTheSameTypes()
{
    const QStringList types =
        captures(projectText(u"desktop/morvalen-mime.xml"_s), u"<mime-type type=\"([^\"]*)\""_s);
    QCOMPARE(types.size(), 2);
    QCOMPARE(captures(projectText(u"desktop/morvalen.metainfo.xml.in"_s),
                      u"<mediatype>(.*)</mediatype>"_s),
             types);
    QCOMPARE(captures(projectText(u"desktop/morvalen.desktop"_s), u"^MimeType=(.*);$"_s),
             QStringList {types.join(u';')});
}

void tst_DesktopFiles::iconsHaveTheirSizes_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256})
        QTest::addRow("icon-%d", size) << size;
}

void tst_DesktopFiles::iconsHaveTheirSizes()
{
    QFETCH(const int, size);
    const QImage icon(desktop + u"icons/morvalen_%1.png"_s.arg(size));
    QCOMPARE(icon.size(), QSize(size, size));
    QVERIFY(icon.hasAlphaChannel());
}

void tst_DesktopFiles::everyListHasTheVersion()
{
    const QString version = QStringLiteral(VERSION);
    const QStringList changes = captures(projectText(u"CHANGELOG.md"_s), u"^## (.*)$"_s);
    QVERIFY(!changes.isEmpty());
    QCOMPARE(changes.first(), u"%1 (%2)"_s.arg(version, QStringLiteral(RELEASE_DATE)));
    const QStringList packages =
        captures(projectText(u"debian/changelog"_s), u"^morvalen \\((.*)\\) unstable"_s);
    QVERIFY(!packages.isEmpty());
    QCOMPARE(packages.first(), version);
}

// Compiler and fonts are there anyway, or are not needed to build a package.
void tst_DesktopFiles::packagesAreBuiltWithWhatBuildsNeed()
{
    QStringList builds = captures(projectText(u"scripts/prerequisites"_s), u"^build=\"([^\"]*)\""_s)
                             .value(0)
                             .split(QRegularExpression(u"\\s+"_s));
    builds.removeAll(u"g++"_s);
    builds.removeAll(u"fonts-dejavu-core"_s);
    builds.sort();
    const QString control = projectText(u"debian/control"_s);
    const QString depends =
        control.section(u"Build-Depends:\n"_s, 1).section(u"Standards-"_s, 0, 0);
    QStringList packages = captures(depends, u"^ ([^ ,]+)"_s);
    packages.removeAll(u"debhelper-compat"_s);
    QCOMPARE(packages, builds);
}

APPLESS_TEST_CLASS(tst_DesktopFiles)
#include "tst_DesktopFiles.moc"
