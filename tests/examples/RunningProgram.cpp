#include "tests/examples/RunningProgram.h"
#include "tests/patience.h"

#include <QDir>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patience = patient(60'000);

} // namespace

RunningProgram::RunningProgram(bool withWindow)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    if (withWindow)
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"HOME"_s, folder.path());
    environment.insert(u"PWD"_s, folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder.path());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder.path());
}

RunningProgram::~RunningProgram()
{
    process.kill();
    process.waitForFinished(patient(30'000));
}

void RunningProgram::start(const QStringList &words)
{
    process.start(QStringLiteral(PROGRAM),
                  QStringList {u"--session"_s, path(u"session"_s)} + words);
    process.closeWriteChannel();
}

void RunningProgram::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!QFileInfo(file).dir().mkpath(u"."_s) || !file.open(QIODevice::WriteOnly)
        || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

QByteArray RunningProgram::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray RunningProgram::nextLine()
{
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(patience))
            return {};
    }
    QByteArray line = process.readLine();
    line.chop(1);
    return line;
}

int RunningProgram::status()
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(patience))
        return -1;
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}
