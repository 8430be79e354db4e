#include <Qtilities/Descriptor.h>
#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>
#include <Qtilities/makefolder.h>

#include "logline.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Qtilities::Logging {

namespace {

using namespace Qt::Literals::StringLiterals;

// Whether a name is one that this class gives: day, second, process and number.
bool isLogName(std::string_view name)
{
    constexpr std::string_view start = "0000-00-00_000000_";
    constexpr std::string_view suffix = ".log";
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (name.size() < start.size() + suffix.size() || !name.ends_with(suffix)
        || !std::equal(start.begin(), start.end(), name.begin(),
                       [&](char form, char c) { return form == '0' ? isDigit(c) : c == form; }))
        return false;
    name = name.substr(start.size(), name.size() - start.size() - suffix.size());
    const std::size_t between = name.find('_');
    const auto areDigits = [&](std::string_view text) {
        return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
    };
    return between != name.npos && areDigits(name.substr(0, between))
        && areDigits(name.substr(between + 1));
}

// The files of this class in a folder, the oldest first. Those of one moment are in the order of
// their numbers. Every start of a program asks, so it is done without the many objects that QDir
// and QDateTime make for it.
std::vector<std::filesystem::path> logFiles(const QString &folder)
{
    namespace fs = std::filesystem;
    std::vector<std::pair<fs::file_time_type, fs::path>> files;
    std::error_code error;
    fs::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code vanished;
        if (!isLogName(entry->path().filename().native()) || entry->is_symlink(vanished)
            || !entry->is_regular_file(vanished))
            continue;
        const fs::file_time_type time = entry->last_write_time(vanished);
        if (!vanished)
            files.emplace_back(time, entry->path());
    }
    std::sort(files.begin(), files.end());
    std::vector<fs::path> paths;
    for (auto &[time, path] : files)
        paths.push_back(std::move(path));
    return paths;
}

// A full disk takes the beginning of a text first and gives its reason with the rest.
bool writeAll(QFile &file, QByteArrayView text)
{
    while (!text.isEmpty()) {
        const qint64 written = file.write(text.data(), text.size());
        if (written <= 0)
            return false;
        text = text.sliced(written);
    }
    return true;
}

} // namespace

FileLoggerEngine::FileLoggerEngine(const QString &name, const QString &folder, QObject *parent)
    : LoggerEngine(name, parent),
      folderPath(QDir(folder).absolutePath()),
      start(QDateTime::currentDateTime().toString(u"yyyy-MM-dd_HHmmss"_s))
{
}

FileLoggerEngine::~FileLoggerEngine() = default;

Core::Status FileLoggerEngine::open()
{
    const Core::Status made = Core::makeFolder(folderPath);
    if (startFile())
        return {};
    // Of a folder that is missing, the file can only say that it is.
    const bool isThere = made.isOk() || QFileInfo::exists(folderPath);
    return Core::Status::io(u"Cannot write the log file \"%1\": %2"_s.arg(
        file.fileName(), isThere ? file.errorString() : made.text()));
}

void FileLoggerEngine::setLimits(qint64 bytesOfAFile, int filesKept)
{
    maximumBytes = bytesOfAFile;
    maximumFiles = filesKept;
}

bool FileLoggerEngine::startFile()
{
    file.close();
    do {
        ++number;
        file.setFileName(folderPath + u'/' + start
                         + u"_%1_%2.log"_s.arg(QCoreApplication::applicationPid())
                               .arg(number, 4, 10, QChar(u'0')));
    } while (file.exists());
    if (!file.open(QIODevice::NewOnly | QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    // The lock tells other processes that the file is in use.
    ::flock(file.handle(), LOCK_EX | LOCK_NB);
    removeOldFiles();
    return true;
}

void FileLoggerEngine::removeOldFiles() const
{
    const auto files = logFiles(folderPath);
    qsizetype surplus = qsizetype(files.size()) - maximumFiles;
    for (auto path = files.begin(); path != files.end() && surplus > 0; ++path) {
        const auto old = Core::Descriptor::open(QByteArray::fromStdString(path->native()),
                                                O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        const bool unused = old && ::flock(old.get(), LOCK_EX | LOCK_NB) == 0;
        if (unused && ::unlink(path->c_str()) == 0)
            --surplus;
    }
}

void FileLoggerEngine::logMessage(int type, const QString &text)
{
    if (!file.isOpen())
        return;
    const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + u' ';
    const QByteArray entry = logEntry(time, type, text).toUtf8();
    const bool full = file.pos() > 0 && file.pos() + entry.size() > maximumBytes;
    if ((full && !startFile()) || !writeAll(file, entry))
        giveUp();
}

void FileLoggerEngine::giveUp()
{
    const QString reason = file.errorString();
    file.close();
    Logger::instance()->logMessage(
        QString(), Logger::Warning,
        u"Cannot write the log file \"%1\" any more: %2"_s.arg(file.fileName(), reason));
}

} // namespace Qtilities::Logging
