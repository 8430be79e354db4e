#include "console/RecordedScript.h"

#include <QFile>
#include <QTextStream>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

// Anything but a file, such as a pipe that nobody reads, would keep the console waiting.
bool openWithoutWaiting(QFile &file, QIODevice::OpenModeFlag mode)
{
    const QByteArray name = QFile::encodeName(file.fileName());
    struct stat status = {};
    const bool isThere = ::stat(name.constData(), &status) == 0;
    if (isThere && !S_ISREG(status.st_mode))
        return false;
    const int flags = mode == QIODevice::ReadOnly ? O_RDONLY : O_WRONLY | O_CREAT;
    const int descriptor =
        ::open(name.constData(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return false;
    if (!file.open(descriptor, mode, QFileDevice::AutoCloseHandle))
        return false;
    // It may be another one by now.
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

int RecordedScript::save(const QString &fileName) const
{
    QFile file(fileName);
    if (!openWithoutWaiting(file, QIODevice::WriteOnly) || !file.resize(0))
        return -1;
    QTextStream stream(&file);
    for (const QString &command : commands)
        stream << command << u'\n';
    stream.flush();
    return stream.status() == QTextStream::Ok && file.flush() ? 0 : -1;
}

int RecordedScript::load(const QString &fileName, const std::function<void(const QString &)> &run)
{
    QFile file(fileName);
    if (!openWithoutWaiting(file, QIODevice::ReadOnly))
        return -1;
    QTextStream stream(&file);
    for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine())
        run(line);
    return 0;
}
