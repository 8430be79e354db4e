#include "app/editor/diskfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace diskfile {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(diskfile)
};

qint64 nanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

Stamp stampOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim),
            nanoseconds(status.st_ctim)};
}

QString whyNotRegular(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        return Texts::tr("it is a folder");
    return S_ISREG(status.st_mode) ? QString() : Texts::tr("it is a device or a pipe");
}

Content refused(const QString &refusal) { return {{}, {}, refusal}; }

Content readOpened(QFile &file, qint64 limit)
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return refused(qt_error_string(errno));
    // It may be another one than the one that was looked at before it was opened.
    const QString irregular = whyNotRegular(status);
    if (!irregular.isEmpty())
        return refused(irregular);
    Content content {{}, stampOf(status), {}};
    // Some regular files, those of the kernel, have a size of 0 and contents.
    if (status.st_size <= limit)
        content.bytes = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError)
        return refused(file.errorString());
    if (status.st_size > limit || content.bytes.size() > limit)
        return refused(
            Texts::tr("it is larger than %1").arg(QLocale().formattedDataSize(limit, 0)));
    return content;
}

} // namespace

Stamp stamp(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return stampOf(status);
}

Content read(const QString &path, qint64 limit)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (path.contains(QChar()))
        return refused(Texts::tr("that is not the name of a file"));
    if (::stat(name.constData(), &status) != 0)
        return refused(qt_error_string(errno));
    const QString irregular = whyNotRegular(status);
    if (!irregular.isEmpty())
        return refused(irregular);
    // A pipe that came in the meantime would wait for its other end without O_NONBLOCK.
    const int descriptor = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return refused(qt_error_string(errno));
    QFile file;
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                   QFileDevice::AutoCloseHandle))
        return refused(file.errorString());
    return readOpened(file, limit);
}

} // namespace diskfile
