#include "tests/process/Program.h"
#include "tests/patience.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patience = patient(100'000);

} // namespace

char *toString(const Ended &ended)
{
    return qstrdup(("status " + QByteArray::number(ended.status) + "\n--- out\n" + ended.out
                    + "--- err\n" + ended.err + "---")
                       .constData());
}

Program::Program() : environment(QProcessEnvironment::systemEnvironment())
{
    session = path(u"session"_s);
    currentFolder = folder.path();
    QDir(folder.path()).mkdir(u"home"_s);
    environment.insert(u"HOME"_s, path(u"home"_s));
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_DATA_HOME",
                             "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
        environment.remove(QString::fromLatin1(name));
}

QString Program::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!QFileInfo(file).dir().mkpath(u"."_s) || !file.open(QIODevice::WriteOnly)
        || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray Program::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Ended Program::run(const QStringList &words, const QByteArray &input) const
{
    return runBare(QStringList {u"--session"_s, session} + words, input);
}

Ended Program::runScript(const QByteArray &script, const QStringList &arguments) const
{
    return run(QStringList {u"--batch"_s, write(u"script.tcl"_s, script)} + arguments);
}

Ended Program::runCommands(const QStringList &commands) const
{
    QStringList words;
    for (const QString &command : commands)
        words += {u"-c"_s, command};
    return run(words);
}

Ended Program::runBare(const QStringList &words, const QByteArray &input) const
{
    return start(QStringLiteral(PROGRAM), words, input);
}

Ended Program::runShell(const QString &command, const QStringList &words) const
{
    return start(u"/bin/sh"_s, QStringList {u"-c"_s, command, QStringLiteral(PROGRAM)} + words, {});
}

Ended Program::start(const QString &program, const QStringList &words,
                     const QByteArray &input) const
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(currentFolder);
    if (dropPrivileges && ::geteuid() == 0) {
        process.setChildProcessModifier([] {
            if (::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0) != 0
                || ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0) != 0)
                ::_exit(1);
        });
    }
    process.start(program, words);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(patience);
    if (!ended)
        process.kill();
    const bool normal = ended && process.exitStatus() == QProcess::NormalExit;
    return {normal ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}
