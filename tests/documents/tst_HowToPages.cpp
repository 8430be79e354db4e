// What the pages about how things are done tell to type, typed.

#include "tests/needed.h"
#include "tests/process/Program.h"
#include "tests/TestClass.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include <optional>

using namespace Qt::Literals::StringLiterals;

class tst_HowToPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { program.reset(); }

    void frontPage();
    void continuousIntegrationIsCalledAsItSays_data();
    void continuousIntegrationIsCalledAsItSays();
    void continuousIntegrationSaysWhatFails();
    void continuousIntegrationByMake();
    void releases();
    void startupScript();
    void startupScriptWithAServer();
    void versionControl();
    void plainScripts();
    void plainScriptsBuild();
    void commandsOfBuilds();
    void buildsInTheComponentFile();
    void hostOfYourOwn();

private:
    // Two designs with a file and a step, below ip/.
    void makeRepository() const;
    Ended shell(const QString &command) const { return program->runShell(command); }
    QString path(const QString &name) const { return program->path(name); }

    std::optional<Program> program;
};

namespace {

QString page(const QString &name)
{
    return QString::fromUtf8(Program::read(QStringLiteral(SOURCE_DIR "/") + name));
}

// The blocks of a page that are marked as of that language.
QStringList blocks(const QString &name, const QString &language)
{
    const QRegularExpression block(u"^```%1\\n(.*?)^```$"_s.arg(language),
                                   QRegularExpression::MultilineOption
                                       | QRegularExpression::DotMatchesEverythingOption);
    QStringList found;
    for (const QRegularExpressionMatch &match : block.globalMatch(page(name)))
        found.append(match.captured(1));
    return found;
}

QStringList captures(const QString &text, const QString &pattern)
{
    const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
    QStringList all;
    for (const QRegularExpressionMatch &match : expression.globalMatch(text))
        all.append(match.captured(1));
    return all;
}

const QString ciPage = u"docs/ci.md"_s;
const QString plainPage = u"docs/from-plain-scripts.md"_s;

QByteArray componentOf(const QString &name)
{
    QString text = blocks(plainPage, u"xml"_s).value(0);
    return text.replace(u">uart<"_s, u'>' + name + u'<').toUtf8();
}

const Ended well {0, "", ""};

} // namespace

// The programs are found as those that are installed.
void tst_HowToPages::init()
{
    program.emplace();
    const auto installed = [this](const QString &name, const QString &file) {
        QFile script(
            program->write(u"bin/"_s + name, "#!/bin/sh\nexec \"" + file.toUtf8() + "\" \"$@\"\n"));
        script.setPermissions(script.permissions() | QFile::ExeOwner);
    };
    installed(u"morvalen"_s, QStringLiteral(PROGRAM));
    installed(u"example_host"_s, QStringLiteral(EXAMPLE_HOST));
    QProcessEnvironment &environment = program->environment;
    environment.insert(u"PATH"_s, path(u"bin"_s) + u':' + environment.value(u"PATH"_s));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    for (const char *folder : {"CI_PROJECT_DIR", "RUNNER_TEMP", "WORKSPACE_TMP"})
        environment.insert(QString::fromLatin1(folder), path(u"."_s));
}

void tst_HowToPages::makeRepository() const
{
    for (const QString &name : {u"a"_s, u"b"_s}) {
        const QString folder = u"ip/"_s + name + u'/';
        program->write(folder + u"component.xml"_s, componentOf(name));
        program->write(folder + u"rtl/x.v"_s, "module x; endmodule\n");
        QCOMPARE(program->runScript("designs add ip/" + name.toUtf8()
                                    + "/component.xml\n"
                                      "files add rtl/x.v\n"
                                      "morvalen configuration add copy\n"
                                      "morvalen step add copy copy -command {cp $(INPUTS) "
                                      "$(OUTPUTS)} -inputs rtl/x.v -outputs x.copy\n"
                                      "design save\n"),
                 well);
    }
    const QStringList scripts = blocks(ciPage, u"tcl"_s);
    QCOMPARE(scripts.size(), 3);
    program->write(u"ci/check.tcl"_s, scripts.at(0).toUtf8());
    program->write(u"ci/build.tcl"_s, scripts.at(1).toUtf8());
    program->write(u"ci/release.tcl"_s, scripts.at(2).toUtf8());
}

void tst_HowToPages::frontPage()
{
    // The folder of the call is that of the sources.
    QVERIFY(QFile::link(QStringLiteral(SOURCE_DIR "/examples"), path(u"examples"_s)));
    program->write(u"release.tcl"_s, "puts $argv\n");
    const QStringList calls = captures(page(u"README.md"_s), u"^    (morvalen -[^#\\n]*)"_s);
    QCOMPARE(calls.size(), 3);
    QCOMPARE(shell(calls.at(0)), (Ended {0, "1.2\n", ""}));
    const Ended listed = shell(calls.at(1));
    QVERIFY2(listed.status == 0 && listed.out.contains("/uart/rtl/uart.v\""), listed.err);
    QCOMPARE(shell(u"echo 'puts 42' | "_s + calls.at(2)), (Ended {0, "42\n", ""}));

    const QStringList typed = captures(page(u"README.md"_s), u"^    morvalen > (.*)$"_s);
    QCOMPARE(typed.size(), 4);
    const Ended run = program->runCommands(typed);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QByteArray());
}

void tst_HowToPages::continuousIntegrationIsCalledAsItSays_data()
{
    QTest::addColumn<QString>("call");
    const QStringList calls = captures(page(ciPage), u"(morvalen --session [^'\\n]*)"_s);
    for (const QString &call : calls)
        QTest::newRow(qPrintable(call)) << call;
    QCOMPARE(calls.size(), 6);
}

void tst_HowToPages::continuousIntegrationIsCalledAsItSays()
{
    QFETCH(const QString, call);
    makeRepository();
    QCOMPARE(shell(call), well);
    const bool builds = call.contains(u"build.tcl"_s);
    for (const QString &name : {u"a"_s, u"b"_s})
        QCOMPARE(QFile::exists(path(u"ip/%1/build/copy/build.log"_s.arg(name))), builds);
}

void tst_HowToPages::continuousIntegrationSaysWhatFails()
{
    makeRepository();
    QVERIFY(QFile::remove(path(u"ip/b/rtl/x.v"_s)));
    const QByteArray missing =
        "ip/b/component.xml: " + path(u"ip/b/rtl/x.v"_s).toUtf8() + " is missing\n";
    QCOMPARE(shell(u"morvalen --batch ci/check.tcl ip/*/component.xml"_s),
             (Ended {1, missing, ""}));
    const Ended built = shell(u"morvalen --batch ci/build.tcl ip/*/component.xml"_s);
    QCOMPARE(built.status, 1);
    QCOMPARE(built.out, QByteArray("Completed  acme.ip.a.1.0\nFailed  acme.ip.b.1.0\n"));
}

void tst_HowToPages::continuousIntegrationByMake()
{
    NEEDS_TOOL("make", "make");
    makeRepository();
    program->write(u"Makefile"_s, blocks(ciPage, u"make"_s).value(0).toUtf8());
    QCOMPARE(shell(u"make -s check"_s), well);
}

void tst_HowToPages::releases()
{
    makeRepository();
    QCOMPARE(shell(u"morvalen --batch ci/release.tcl 2.0 ip/*/component.xml"_s), well);
    for (const QString &name : {u"a"_s, u"b"_s}) {
        QVERIFY(Program::read(path(u"ip/%1/component.xml"_s.arg(name)))
                    .contains("<ipxact:version>2.0</ipxact:version>"));
    }
}

void tst_HowToPages::startupScript()
{
    makeRepository();
    program->write(u"session/Scripts/startup.tcl"_s,
                   blocks(u"docs/startup-script.md"_s, u"tcl"_s).value(0).toUtf8());
    QCOMPARE(program->runCommands({u"open_all ip"_s, u"lsort [designs list]"_s}),
             (Ended {0, "acme.ip.a.1.0 acme.ip.b.1.0\n", ""}));
    const QString again =
        captures(page(u"docs/startup-script.md"_s), u"`(source \\[[^`]*)`"_s).value(0);
    QCOMPARE(program->runCommands({again}), well);
}

// Somebody has the port: this very script, if nobody else.
void tst_HowToPages::startupScriptWithAServer()
{
    const QByteArray script = blocks(u"docs/startup-script.md"_s, u"tcl"_s).value(1).toUtf8();
    const Ended run = program->run(
        {u"--log-level"_s, u"info"_s, u"--batch"_s,
         program->write(u"server.tcl"_s, "catch {socket -server answer 8015}\n" + script)});
    QCOMPARE(run.status, 0);
    QVERIFY2(run.err.contains("another session answers on port 8015"), run.err);
}

void tst_HowToPages::versionControl()
{
    NEEDS_TOOL("git", "git");
    makeRepository();
    QCOMPARE(shell(u"git init -q ip && cd ip && git add . && git -c user.name=n -c user.email=e "
                   "commit -q -m one"_s),
             well);
    program->write(u"ip/a/rtl/new.v"_s, "");
    const QByteArray script = "designs add ip/a/component.xml\nfiles add rtl/new.v\n"
        + blocks(u"docs/version-control.md"_s, u"tcl"_s).value(0).toUtf8() + "morvalen reload "
        + "-discard\nputs [llength [morvalen files]]\n";
    QCOMPARE(program->runScript(script),
             (Ended {0, path(u"ip/a/rtl/new.v"_s).toUtf8() + "\n1\n", ""}));
}

void tst_HowToPages::plainScripts()
{
    program->write(u"uart/component.xml"_s, componentOf(u"uart"_s));
    program->write(u"uart/rtl/uart.v"_s, "module uart; endmodule\n");
    program->write(u"uart/tb/uart_tb.v"_s, "module tb; initial $finish; endmodule\n");
    const QStringList scripts = blocks(plainPage, u"tcl"_s);
    QCOMPARE(scripts.size(), 2);
    const QByteArray script = scripts.join(QString()).toUtf8()
        + "foreach file [morvalen files] {puts [file tail $file]}; puts [build steps list]\n";
    QCOMPARE(program->runScript(script),
             (Ended {0, "uart.v\nuart_tb.v\n\"compile\" \"run\"\n", ""}));
}

void tst_HowToPages::plainScriptsBuild()
{
    NEEDS_TOOL("iverilog", "iverilog");
    plainScripts();
    QCOMPARE(program->runScript("designs add uart/component.xml\nputs [build run]\n"),
             (Ended {0, "Build configuration completed successfully\n", ""}));
    QVERIFY(QFile::exists(path(u"uart/sim.log"_s)));
}

void tst_HowToPages::commandsOfBuilds()
{
    makeRepository();
    const QStringList typed = captures(page(u"docs/builds.md"_s), u"^    (.*?)  +[a-z].*$"_s);
    QCOMPARE(typed.size(), 7);
    QStringList commands {u"designs add ip/a/component.xml"_s,
                          u"morvalen configuration add Release"_s};
    QCOMPARE(program->runCommands(commands + typed).status, 0);
}

// The step wants a node for headers.
void tst_HowToPages::buildsInTheComponentFile()
{
    QByteArray component = componentOf(u"uart"_s);
    const QByteArray extension = blocks(u"docs/builds.md"_s, u"xml"_s).value(0).toUtf8();
    component.replace("</ipxact:component>",
                      "<ipxact:fileSets><ipxact:fileSet><ipxact:name>headers</ipxact:name>"
                      "</ipxact:fileSet></ipxact:fileSets>\n<ipxact:vendorExtensions>\n"
                          + extension + "</ipxact:vendorExtensions>\n</ipxact:component>");
    program->write(u"uart/component.xml"_s, component);
    program->write(u"uart/sources/main.c"_s, "int main(void) { return 0; }\n");
    QCOMPARE(program->runScript("designs add uart/component.xml\nputs [builds list]\n"
                                "puts [build steps list]\nputs [build run]\n"),
             (Ended {0, "\"Debug\"\n\"compile main\"\nBuild configuration completed successfully\n",
                     ""}));
    QVERIFY(QFile::exists(path(u"uart/build/debug/main.o"_s)));
}

void tst_HowToPages::hostOfYourOwn()
{
    const QString call = blocks(u"docs/own-host.md"_s, u"sh"_s).value(0).section(u'\n', 0, 0);
    QVERIFY(call.startsWith(u"example_host ~/shelf "_s));
    QVERIFY(QDir(path(u"home"_s)).mkdir(u"shelf"_s));
    const Ended run = shell(u"QT_QPA_PLATFORM=offscreen "_s + call);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out.count("Successfully"), 3);
    QVERIFY(QFile::exists(path(u"home/shelf/designs.json"_s)));
}

GUILESS_TEST_CLASS(tst_HowToPages)
#include "tst_HowToPages.moc"
