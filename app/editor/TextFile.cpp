#include "app/editor/TextFile.h"

#include "app/editor/FileWatch.h"

#include <Qtilities/atomicfile.h>

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTimer>

#include <cerrno>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::KnownFile;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Core::writeFileAtomically;

namespace {

// A program that replaces a file does it in several steps; they are looked at together.
constexpr int settleMilliseconds = 50;

// Why a file was not read, in a few words without a full stop.
QString whyNotRead(const QString &path, const Status &status)
{
    if (path.isEmpty())
        return qt_error_string(ENOENT);
    const QFileInfo info(path);
    return info.exists() && !info.isFile() && !info.isDir()
        ? TextFile::tr("it is a device or a pipe")
        : status.text();
}

bool hasLineBeyond(const QString &text, qsizetype limit)
{
    qsizetype start = 0;
    while (text.size() - start > limit) {
        const qsizetype end = QStringView(text).sliced(start, limit + 1).lastIndexOf(u'\n');
        if (end < 0)
            return true;
        start += end + 1;
    }
    return false;
}

} // namespace

TextFile::TextFile(const QString &path, QObject *parent)
    : QObject(parent),
      file(path),
      watch(FileWatch::shared()),
      touchTimer(new QTimer(this))
{
    watch->add(path);
    touchTimer->setSingleShot(true);
    touchTimer->setInterval(settleMilliseconds);
    connect(watch.get(), &FileWatch::fileTouched, this, [this](const QString &touchedPath) {
        if (touchedPath == file.path())
            touch(Trust::Nothing);
    });
    connect(watch.get(), &FileWatch::folderTouched, this, [this](const QString &folder) {
        if (folder == QFileInfo(file.path()).path())
            touch(Trust::Stamp);
    });
    connect(touchTimer, &QTimer::timeout, this,
            [this] { Q_EMIT touched(std::exchange(pending, Trust::Stamp)); });
}

TextFile::~TextFile() { watch->remove(file.path()); }

Result<TextFile::Contents> TextFile::load() const
{
    const Result<KnownFile::Content> read = file.read(sizeLimit + 1);
    if (!read.isOk())
        return cannotOpen(whyNotRead(path(), read.status()));
    Contents contents {read.value(), {}, {}};
    if (contents.content.bytes.size() > sizeLimit)
        return cannotOpen(
            tr("it is larger than %1").arg(QLocale().formattedDataSize(sizeLimit, 0)));
    if (const Status isText = TextCoding::check(contents.content.bytes); !isText.isOk())
        return cannotOpen(isText.text());
    QString text;
    contents.coding = TextCoding::of(contents.content.bytes, &text);
    contents.lines = lineends::split(text);
    if (hasLineBeyond(contents.lines.text, lineLimit))
        return cannotOpen(tr("it has a line of more than %L1 characters").arg(lineLimit));
    return contents;
}

Status TextFile::cannotOpen(const QString &reason) const
{
    return Status::io(tr("Cannot open \"%1\": %2").arg(path(), reason));
}

Result<lineends::Lines> TextFile::read()
{
    const Result<Contents> loaded = load();
    if (!loaded.isOk())
        return loaded.status();
    const Contents &contents = loaded.value();
    theCoding = contents.coding;
    ends = lineends::name(contents.lines);
    file.know(contents.content, KnownFile::Keep::Hash);
    return contents.lines;
}

Result<QString> TextFile::textOnDisk() const
{
    const Result<Contents> loaded = load();
    if (!loaded.isOk())
        return loaded.status();
    return loaded.value().lines.text;
}

Status TextFile::write(const QString &text)
{
    const Result<QByteArray> bytes = encode(text);
    const Status status =
        bytes.isOk() ? writeFileAtomically(path(), bytes.value()) : bytes.status();
    if (status.isOk())
        file.knowWritten(bytes.value());
    return status;
}

Status TextFile::writeCopy(const QString &copy, const QString &text) const
{
    const Result<QByteArray> bytes = encode(text);
    return bytes.isOk() ? writeFileAtomically(copy, bytes.value()) : bytes.status();
}

TextFile::Disk TextFile::look(Trust trust)
{
    // What replaces the file between the two would not be watched the other way round.
    if (KnownFile::stampOf(path()).exists())
        watch->renew(path());
    return file.look(trust);
}

void TextFile::accept()
{
    const Result<KnownFile::Content> content = file.read(sizeLimit + 1);
    if (content.isOk() && content.value().bytes.size() <= sizeLimit)
        file.know(content.value(), KnownFile::Keep::Hash);
}

bool TextFile::isWritable() const
{
    return ::access(QFile::encodeName(path()).constData(), W_OK) == 0;
}

QString TextFile::form() const { return theCoding.name() + u", "_s + ends; }

void TextFile::touch(Trust trust)
{
    if (trust == Trust::Nothing)
        pending = Trust::Nothing;
    touchTimer->start();
}

Result<QByteArray> TextFile::encode(const QString &text) const
{
    qsizetype place = 0;
    const std::optional<QByteArray> bytes = theCoding.encode(text, &place);
    if (bytes)
        return *bytes;
    return Status::unsupported(
        tr("Cannot write \"%1\": line %2 holds \"%3\", and the file is Latin-1, since it "
           "was not valid UTF-8")
            .arg(path())
            .arg(QStringView(text).first(place).count(u'\n') + 1)
            .arg(text.sliced(place, text[place].isHighSurrogate() ? 2 : 1)));
}
