// The story of a repository of designs: it is checked, built and released by scripts that a
// newcomer would write, with relative paths, called from another folder.

#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int designCount = 50;

QByteArray component(int number)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<ipxact:component xmlns:ipxact=\"http://www.accellera.org/XMLSchema/IPXACT/"
           "1685-2014\">\n"
           "  <ipxact:vendor>example.org</ipxact:vendor>\n"
           "  <ipxact:library>ip</ipxact:library>\n"
           "  <ipxact:name>block"
        + QByteArray::number(number)
        + "</ipxact:name>\n"
          "  <ipxact:version>1.0</ipxact:version>\n"
          "  <ipxact:fileSets>\n"
          "    <ipxact:fileSet>\n"
          "      <ipxact:name>rtl</ipxact:name>\n"
          "      <ipxact:file>\n"
          "        <ipxact:name>rtl/a block.v</ipxact:name>\n"
          "        <ipxact:fileType>verilogSource</ipxact:fileType>\n"
          "      </ipxact:file>\n"
          "    </ipxact:fileSet>\n"
          "  </ipxact:fileSets>\n"
          "  <ipxact:parameters>\n"
          "    <ipxact:parameter>\n"
          "      <ipxact:name>released</ipxact:name>\n"
          "      <ipxact:value>1969</ipxact:value>\n"
          "    </ipxact:parameter>\n"
          "  </ipxact:parameters>\n"
          "  <ipxact:vendorExtensions>\n"
          "    <mv:design xmlns:mv=\"urn:morvalen:host:1\">\n"
          "      <mv:author>Somebody</mv:author>\n"
          "      <mv:buildConfigurations>\n"
          "        <mv:buildConfiguration name=\"count\">\n"
          "          <mv:step name=\"count\">\n"
          "            <mv:command>wc -c $(INPUTS) &gt; $(OUTPUTS)</mv:command>\n"
          "            <mv:input>node:rtl</mv:input>\n"
          "            <mv:output>build/count/size</mv:output>\n"
          "          </mv:step>\n"
          "        </mv:buildConfiguration>\n"
          "      </mv:buildConfigurations>\n"
          "    </mv:design>\n"
          "  </ipxact:vendorExtensions>\n"
          "</ipxact:component>\n";
}

} // namespace

class tst_ContinuousIntegration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void check();
    void build();
    void release();

private:
    // The last line of what make says, without what make itself says.
    Ended make(const QString &target) const;
    QByteArray git(const QString &command) const;
    QString folderOf(int number) const { return u"repo/ip/block%1/"_s.arg(number); }

    std::unique_ptr<Program> program;
};

void tst_ContinuousIntegration::init()
{
    program = std::make_unique<Program>();
    for (int number = 1; number <= designCount; ++number) {
        program->write(folderOf(number) + u"component.xml"_s, component(number));
        program->write(folderOf(number) + u"rtl/a block.v"_s, "module block; endmodule\n");
    }
    for (const QString &name : {u"Makefile"_s, u"check.tcl"_s, u"build.tcl"_s, u"release.tcl"_s})
        program->write(u"repo/ci/"_s + name,
                       Program::read(QStringLiteral(SOURCE_DIR "/tests/process/ci/") + name));
    program->write(u"repo/.gitignore"_s, "build/\n");
    git(u"init -q"_s);
    git(u"add -A"_s);
    git(u"-c user.name=x -c user.email=x commit -q -m first"_s);
}

Ended tst_ContinuousIntegration::make(const QString &target) const
{
    return program->runShell(u"cd / && exec make -s --no-print-directory -C \"$1\" %1 "
                             "MORVALEN=\"$0 --session '$2'\""_s.arg(target),
                             {program->path(u"repo/ci"_s), program->session});
}

QByteArray tst_ContinuousIntegration::git(const QString &command) const
{
    return program->runShell(u"git -C \"$1\" %1"_s.arg(command), {program->path(u"repo"_s)}).out;
}

void tst_ContinuousIntegration::check()
{
    QCOMPARE(make(u"check"_s), (Ended {0, "50 components, 0 files missing\n", ""}));
    QVERIFY(QFile::remove(program->path(folderOf(7) + u"rtl/a block.v"_s)));
    const Ended ended = make(u"check"_s);
    QCOMPARE(ended.status, 2); // make's own, for a step that failed
    QCOMPARE(ended.out,
             QByteArray("../ip/block7/component.xml: a block.v is missing\n"
                        "50 components, 1 files missing\n"));
    QCOMPARE(git(u"status --short"_s), QByteArray(" D \"ip/block7/rtl/a block.v\"\n"));
}

void tst_ContinuousIntegration::build()
{
    Ended ended = make(u"build"_s);
    QCOMPARE(ended.out, QByteArray("50 of 50 built\n"));
    QCOMPARE(ended.status, 0);
    for (int number = 1; number <= designCount; ++number)
        QCOMPARE(Program::read(program->path(folderOf(number) + u"build/count/size"_s)),
                 QByteArray("24 rtl/a block.v\n"));
    QCOMPARE(git(u"status --short"_s), QByteArray());
    QVERIFY(QFile::remove(program->path(folderOf(7) + u"rtl/a block.v"_s)));
    ended = make(u"build"_s);
    QCOMPARE(ended.status, 2);
    QVERIFY2(ended.out.startsWith("example.org.ip.block7.1.0: Failed\n"), ended.out.constData());
}

void tst_ContinuousIntegration::release()
{
    QCOMPARE(make(u"release VERSION=1.1"_s), (Ended {0, "", ""}));
    QByteArray list;
    QStringList names;
    for (int number = 1; number <= designCount; ++number)
        names.append(u"block%1"_s.arg(number));
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        return a + u"/component.xml"_s < b + u"/component.xml"_s;
    });
    for (const QString &name : names)
        list += "example.org.ip." + name.toUtf8() + ".1.1\n";
    QCOMPARE(Program::read(program->path(u"repo/RELEASE"_s)), list);
    // Three lines of each file have changed, and nothing else.
    QCOMPARE(git(u"diff --shortstat"_s),
             QByteArray(" 50 files changed, 150 insertions(+), 150 deletions(-)\n"));
    QCOMPARE(git(u"ls-files --others"_s), QByteArray("RELEASE\n"));
}

GUILESS_TEST_CLASS(tst_ContinuousIntegration)
#include "tst_ContinuousIntegration.moc"
