#include "app/editor/TextFile.h"

#include "app/editor/FileWatch.h"

#include <Qtilities/atomicfile.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

// A program that replaces a file does it in several steps; they are looked at together.
constexpr int settleMilliseconds = 50;

QByteArray hash(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
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
      thePath(path),
      watch(FileWatch::shared()),
      touchTimer(new QTimer(this))
{
    watch->add(thePath);
    touchTimer->setSingleShot(true);
    touchTimer->setInterval(settleMilliseconds);
    connect(watch.get(), &FileWatch::fileTouched, this, [this](const QString &touchedPath) {
        if (touchedPath == thePath)
            touch(Trust::Nothing);
    });
    connect(watch.get(), &FileWatch::folderTouched, this, [this](const QString &folder) {
        if (folder == QFileInfo(thePath).path())
            touch(Trust::Stamp);
    });
    connect(touchTimer, &QTimer::timeout, this,
            [this] { Q_EMIT touched(std::exchange(pending, Trust::Stamp)); });
}

TextFile::~TextFile() { watch->remove(thePath); }

std::optional<TextFile::Contents> TextFile::load(QString *error) const
{
    Contents contents {diskfile::read(thePath, sizeLimit), {}, {}};
    QString refusal = contents.content.refusal;
    if (refusal.isEmpty())
        refusal = TextCoding::whyNotText(contents.content.bytes);
    if (refusal.isEmpty()) {
        QString text;
        contents.coding = TextCoding::of(contents.content.bytes, &text);
        contents.lines = lineends::split(text);
        if (hasLineBeyond(contents.lines.text, lineLimit))
            refusal = tr("it has a line of more than %L1 characters").arg(lineLimit);
    }
    if (refusal.isEmpty())
        return contents;
    *error = tr("Cannot open \"%1\": %2").arg(thePath, refusal);
    return std::nullopt;
}

std::optional<lineends::Lines> TextFile::read(QString *error)
{
    const std::optional<Contents> contents = load(error);
    if (!contents)
        return std::nullopt;
    theCoding = contents->coding;
    ends = lineends::name(contents->lines);
    know(contents->content.bytes, contents->content.stamp);
    return contents->lines;
}

std::optional<QString> TextFile::textOnDisk(QString *error) const
{
    const std::optional<Contents> contents = load(error);
    return contents ? std::optional(contents->lines.text) : std::nullopt;
}

bool TextFile::write(const QString &text, QString *error)
{
    const std::optional<QByteArray> bytes = encode(text, error);
    if (!bytes || !Qtilities::Core::writeFileAtomically(thePath, *bytes, error))
        return false;
    // Another process may have written since.
    const diskfile::Content written = diskfile::read(thePath, sizeLimit);
    know(*bytes, written.bytes == *bytes ? written.stamp : diskfile::Stamp());
    return true;
}

bool TextFile::writeCopy(const QString &copy, const QString &text, QString *error) const
{
    const std::optional<QByteArray> bytes = encode(text, error);
    return bytes && Qtilities::Core::writeFileAtomically(copy, *bytes, error);
}

TextFile::Disk TextFile::look(Trust trust)
{
    const diskfile::Stamp now = diskfile::stamp(thePath);
    if (!now.exists())
        return Disk::Missing;
    watch->renew(thePath);
    if (trust == Trust::Stamp && now == knownStamp)
        return Disk::Same;
    const diskfile::Content content = diskfile::read(thePath, sizeLimit);
    if (!content.refusal.isEmpty() || hash(content.bytes) != knownHash)
        return Disk::Changed;
    knownStamp = content.stamp;
    return Disk::Same;
}

void TextFile::accept()
{
    const diskfile::Content content = diskfile::read(thePath, sizeLimit);
    if (content.refusal.isEmpty())
        know(content.bytes, content.stamp);
}

bool TextFile::isWritable() const
{
    return ::access(QFile::encodeName(thePath).constData(), W_OK) == 0;
}

QString TextFile::form() const { return theCoding.name() + u", "_s + ends; }

void TextFile::touch(Trust trust)
{
    if (trust == Trust::Nothing)
        pending = Trust::Nothing;
    touchTimer->start();
}

void TextFile::know(const QByteArray &bytes, const diskfile::Stamp &stamp)
{
    knownHash = hash(bytes);
    knownStamp = stamp;
}

std::optional<QByteArray> TextFile::encode(const QString &text, QString *error) const
{
    qsizetype place = 0;
    std::optional<QByteArray> bytes = theCoding.encode(text, &place);
    if (!bytes) {
        *error = tr("Cannot write \"%1\": line %2 holds \"%3\", and the file is Latin-1, since it "
                    "was not valid UTF-8")
                     .arg(thePath)
                     .arg(QStringView(text).first(place).count(u'\n') + 1)
                     .arg(text.sliced(place, text[place].isHighSurrogate() ? 2 : 1));
    }
    return bytes;
}
