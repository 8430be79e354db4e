#include "app/find/textmatching.h"

#include <Qtilities/utf8text.h>

#include <QFile>

#include <algorithm>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace textmatching {

namespace {

// What is looked at to tell text from other files.
constexpr qsizetype headBytes = 8192;
constexpr qsizetype longestShown = 1000;
constexpr qint64 largestFile = 256 * 1024 * 1024;

bool isText(QByteArrayView bytes)
{
    const qsizetype head = std::min(bytes.size(), headBytes);
    return std::memchr(bytes.data(), 0, size_t(head)) == nullptr;
}

bool isAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

QByteArray lowered(QByteArrayView bytes)
{
    QByteArray result(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), result.begin(),
                   [](char byte) { return byte >= 'A' && byte <= 'Z' ? char(byte + 32) : byte; });
    return result;
}

// Walks through the bytes and tells of each match once, with the line that it is in.
class Walk
{
public:
    Walk(const QString &filePath, QByteArrayView itsBytes, qsizetype most)
        : path(filePath),
          bytes(itsBytes),
          limit(most)
    {
    }

    void find(QByteArrayView in, const QByteArray &wanted)
    {
        const char *const begin = in.data();
        const char *const end = begin + in.size();
        const char *at = begin;
        while (matches.size() < limit) {
            at = static_cast<const char *>(
                memmem(at, size_t(end - at), wanted.constData(), size_t(wanted.size())));
            if (!at)
                return;
            add(at - begin, wanted.size());
            at += wanted.size();
        }
    }

    QList<Match> matches;

private:
    void add(qsizetype start, qsizetype length)
    {
        line += int(std::count(bytes.begin() + counted, bytes.begin() + start, '\n'));
        counted = start;
        const qsizetype before = bytes.first(start).lastIndexOf('\n') + 1;
        qsizetype after = bytes.indexOf('\n', start + length);
        if (after < 0)
            after = bytes.size();
        if (after > before && bytes[after - 1] == '\r')
            --after;
        // Only the file's own mark is no character of its text.
        const auto text = [this](qsizetype from, qsizetype to) {
            const QByteArrayView piece = bytes.sliced(from, to - from);
            return from == 0 ? QString::fromUtf8(piece) : Qtilities::Core::textOfUtf8(piece);
        };
        matches.append({path, line, int(text(before, start).size()) + 1,
                        int(text(start, start + length).size()),
                        text(before, std::min(after, before + longestShown))});
    }

    const QString &path;
    QByteArrayView bytes;
    qsizetype limit;
    qsizetype counted = 0;
    int line = 1;
};

// Of a regular file; of anything else nothing, without waiting. A search opens many.
QByteArray contentsOf(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return {};
    struct stat state;
    QByteArray bytes;
    if (::fstat(file, &state) == 0 && S_ISREG(state.st_mode) && state.st_size <= largestFile) {
        bytes.resize(qsizetype(state.st_size));
        qsizetype done = 0;
        ssize_t count = 1;
        while (done < bytes.size() && count > 0) {
            count = ::read(file, bytes.data() + done, size_t(bytes.size() - done));
            done += count > 0 ? count : 0;
        }
        bytes.truncate(done);
    }
    ::close(file);
    return bytes;
}

// Letters beyond ASCII have cases that only Unicode knows.
QList<Match> inText(const QString &path, const QString &text, const Pattern &pattern,
                    qsizetype most)
{
    QList<Match> matches;
    int number = 0;
    for (const QStringView line : QStringView(text).tokenize(u'\n')) {
        ++number;
        qsizetype at = line.indexOf(pattern.text, 0, Qt::CaseInsensitive);
        for (; at >= 0 && matches.size() < most;
             at = line.indexOf(pattern.text, at + pattern.text.size(), Qt::CaseInsensitive))
            matches.append({path, number, int(at) + 1, int(pattern.text.size()),
                            line.first(std::min(line.size(), longestShown)).toString()});
    }
    return matches;
}

} // namespace

QList<Match> inBytes(const QString &path, QByteArrayView bytes, const Pattern &pattern,
                     qsizetype most)
{
    const QByteArray wanted = pattern.text.toUtf8();
    if (wanted.isEmpty() || bytes.isEmpty() || !isText(bytes))
        return {};
    if (!pattern.hasCase && !isAscii(wanted))
        return inText(path, QString::fromUtf8(bytes), pattern, most);
    Walk walk(path, bytes, most);
    if (pattern.hasCase)
        walk.find(bytes, wanted);
    else
        walk.find(lowered(bytes), lowered(wanted));
    return walk.matches;
}

QList<Match> inFile(const QString &path, const Pattern &pattern, qsizetype most)
{
    const QByteArray bytes = contentsOf(path);
    return inBytes(path, bytes, pattern, most);
}

} // namespace textmatching
