// The example of a host with designs of its own: what the commands answer on those of
// JsonDesign.cpp, and what the file of JsonDesignManager.cpp holds.

#include "tests/patience.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_HostExample : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void answersTheCommands_data();
    void answersTheCommands();
    void keepsItsDesignsInTheFile();
    void refusesAFileThatIsNone();

private:
    struct Answer
    {
        int status = -1;
        QString output;
        QString errors;
    };
    Answer run(const QStringList &commands) const;
    QByteArray fileContents() const;
    QString path(const QString &name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
};

namespace {

const QStringList twoDesigns {u"designs new uart {Custom Design} Flat global acme"_s,
                              u"designs new fifo {Custom Design} Flat global acme"_s};

} // namespace

tst_HostExample::Answer tst_HostExample::run(const QStringList &commands) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder->path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(PROGRAM), QStringList {folder->path()} + commands);
    if (!process.waitForFinished(patient(30'000)) || process.exitStatus() != QProcess::NormalExit)
        return {};
    const auto text = [this](const QByteArray &bytes) {
        return QString::fromUtf8(bytes).replace(folder->path(), u"SHELF"_s).trimmed();
    };
    return {process.exitCode(), text(process.readAllStandardOutput()),
            text(process.readAllStandardError())};
}

QByteArray tst_HostExample::fileContents() const
{
    QFile file(path(u"designs.json"_s));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_HostExample::answersTheCommands_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("log");
    const auto row = [](const char *name, const char *command, int status, const char *answer,
                        const char *log = "") {
        QTest::newRow(name) << QString::fromUtf8(command) << status << QString::fromUtf8(answer)
                            << QString::fromUtf8(log);
    };
    row("host-designs-1 list", "designs list", 0, "\"acme.global.uart\" \"acme.global.fifo\"");
    row("host-designs-2 another of the same id",
        "designs new uart {Custom Design} Flat global acme", 1,
        "Failed to attach new design \"uart\" to the design manager",
        "Error: The design \"uart\" is open already");
    row("host-designs-3 close", "designs close acme.global.fifo; designs list", 0,
        "\"acme.global.uart\"");
    row("host-design-1 rename", "design set name spi; design get name", 0, "spi");
    row("host-design-2 not to another's id", "design set name uart; design get name", 0, "fifo",
        "Warning: Another design is \"uart\" already");
    row("host-design-3 what it has not", "design set author me", 0,
        "Successfully changed \"author\" on active design",
        "Warning: The author of the design cannot be changed");
    row("host-files-1 by a relative path",
        "files add a.v; files set_active a.v; sfile get actual_path", 0, "SHELF/a.v");
    row("host-files-2 twice", "files add a.v; files add a.v", 1,
        "Failed to add file \"a.v\" to design \"fifo\": The design has the file \"a.v\" already");
    row("host-files-3 remove", "files add a.v; files remove a.v; files list", 0,
        "No files found in design \"fifo\"");
    row("host-folders-1", "folders add x", 1,
        "Failed to add folder \"x\" to design \"fifo\": The design cannot have other folders");
    row("host-properties-1", "properties set w int 1; properties set_active w; sproperty get name",
        0, "w");
    row("host-properties-2 cannot be renamed",
        "properties set w int 1; properties set_active w; sproperty set name v; sproperty get name",
        0, "w", "Warning: The item \"w\" cannot be renamed to \"v\"");
    row("host-builds-1", "build run", 1,
        "Failed to find active build configuration in design \"fifo\"");
}

void tst_HostExample::answersTheCommands()
{
    QFETCH(const QString, command);
    QCOMPARE(run(twoDesigns).status, 0);
    const Answer answer = run({u"designs set_active acme.global.fifo"_s, u"set x {}"_s, command});
    QTEST(answer.output.section(u'\n', 2), "answer");
    QTEST(answer.status, "status");
    QTEST(answer.errors, "log");
}

void tst_HostExample::keepsItsDesignsInTheFile()
{
    QCOMPARE(run(twoDesigns).status, 0);
    QCOMPARE(run({u"files add rtl/uart.v"_s, u"properties set width int 8"_s,
                  u"designs close acme.global.fifo"_s})
                 .status,
             0);
    QCOMPARE(run({u"designs close acme.global.fifo true"_s, u"design save"_s}).status, 0);
    QCOMPARE(fileContents(),
             QByteArray("[\n    {\n        \"files\": [\n            \"rtl/uart.v\"\n        ],\n"
                        "        \"library\": \"global\",\n        \"name\": \"uart\",\n"
                        "        \"properties\": {\n            \"width\": 8\n        },\n"
                        "        \"vendor\": \"acme\"\n    }\n]\n"));
}

void tst_HostExample::refusesAFileThatIsNone()
{
    QFile file(path(u"designs.json"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{");
    file.close();
    const Answer answer = run({u"designs list"_s});
    QCOMPARE(answer.status, 1);
    QCOMPARE(answer.output, QString());
    QCOMPARE(answer.errors, u"Error: \"SHELF/designs.json\" is no array of designs"_s);
    QCOMPARE(fileContents(), QByteArray("{"));
}

QTEST_GUILESS_MAIN(tst_HostExample)
#include "tst_HostExample.moc"
