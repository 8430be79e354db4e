#include "app/keeping/KeptTexts.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/makefolder.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/utf8text.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QUuid>

#include <cerrno>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

constexpr int formatVersion = 1;
const QString suffix = u".kept"_s;

QString sessionFolder(const QString &name)
{
    return QtilitiesApplication::applicationSessionPath() + u'/' + name;
}

QByteArray hash(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

// A line about the text, and the text; the hash tells a whole file from a part of one.
QByteArray written(const KeptText &kept)
{
    const QByteArray text = kept.text.toUtf8();
    const QJsonObject head {
        {u"version"_s, formatVersion},
        {u"path"_s, kept.path},
        {u"base"_s, QString::fromLatin1(kept.base)},
        {u"cursor"_s, kept.cursor},
        {u"time"_s, kept.time.toString(Qt::ISODate)},
        {u"hash"_s, QString::fromLatin1(hash(text))},
    };
    return QJsonDocument(head).toJson(QJsonDocument::Compact) + '\n' + text;
}

std::optional<KeptText> readFrom(const QString &file)
{
    const auto content = Qtilities::Core::readRegularFile(file);
    if (!content.isOk())
        return std::nullopt;
    const QByteArray &bytes = content.value();
    const qsizetype end = bytes.indexOf('\n');
    const QJsonObject head = QJsonDocument::fromJson(bytes.first(qMax(end, 0))).object();
    const QByteArray text = bytes.sliced(end + 1);
    if (head.value(u"version"_s) != formatVersion
        || head.value(u"hash"_s).toString().toLatin1() != hash(text)
        || head.value(u"path"_s).toString().isEmpty())
        return std::nullopt;
    return KeptText {head.value(u"path"_s).toString(), head.value(u"base"_s).toString().toLatin1(),
                     Qtilities::Core::textOfUtf8(text), head.value(u"cursor"_s).toInt(),
                     QDateTime::fromString(head.value(u"time"_s).toString(), Qt::ISODate)};
}

} // namespace

// A folder of a process, locked while somebody has it.
class KeptTexts::Folder
{
public:
    explicit Folder(const QString &folderPath) : path(folderPath), lock(path + u"/lock"_s)
    {
        // Only the end of the process that has it makes a lock an old one.
        lock.setStaleLockTime(0);
    }

    // Without waiting.
    bool take() { return lock.tryLock(0); }
    // Why it could not be taken just now.
    static QString reason() { return qt_error_string(errno); }

    QString fileOf(const QString &textPath) const
    {
        return path + u'/' + QString::fromLatin1(hash(textPath.toUtf8())) + suffix;
    }

    QStringList files() const
    {
        return QDir(path).entryList({u'*' + suffix}, QDir::Files, QDir::Name);
    }

    // Takes away what is no text too, such as a temporary file that a killed write has left.
    void remove()
    {
        QDir folder(path);
        for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden)) {
            if (name != u"lock"_s)
                folder.remove(name);
        }
        lock.unlock();
        QDir().rmdir(path);
    }

    const QString path;

private:
    QLockFile lock;
};

KeptTexts::KeptTexts() = default;

KeptTexts::~KeptTexts() = default;

Status KeptTexts::prepare()
{
    if (own && QFileInfo::exists(own->path))
        return {};
    // The folder may have been cleared away by somebody.
    own.reset();
    const QString all = sessionFolder(u"Unsaved"_s);
    const QString path = all + u'/' + QString::number(QCoreApplication::applicationPid()) + u'-'
        + QUuid::createUuid().toString(QUuid::Id128);
    constexpr auto forOwnerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    const auto refused = [](const QString &folder, const QString &reason) {
        return Status::io(
            QCoreApplication::translate("KeptTexts", "The folder \"%1\" cannot be made: %2")
                .arg(folder, reason));
    };
    if (const Status made = Qtilities::Core::makeFolder(all); !made.isOk())
        return refused(all, made.text());
    if (QFile file(all); !file.setPermissions(forOwnerOnly))
        return refused(all, file.errorString());
    if (const Status made = Qtilities::Core::makeFolder(path); !made.isOk())
        return refused(path, made.text());
    auto folder = std::make_unique<Folder>(path);
    if (!folder->take())
        return refused(path, Folder::reason());
    own = std::move(folder);
    return {};
}

Status KeptTexts::keep(const KeptText &text)
{
    const Status prepared = prepare();
    return prepared.isOk()
        ? Qtilities::Core::writeFileAtomically(own->fileOf(text.path), written(text))
        : prepared;
}

bool KeptTexts::keeps(const QString &path) const { return own && QFile::exists(own->fileOf(path)); }

void KeptTexts::drop(const QString &path)
{
    if (own)
        QFile::remove(own->fileOf(path));
}

void KeptTexts::dropAll()
{
    if (own)
        own->remove();
    own.reset();
}

Result<QList<KeptText>> KeptTexts::takeLeft()
{
    QList<KeptText> texts;
    Status status;
    const QDir all(sessionFolder(u"Unsaved"_s));
    for (const QString &name : all.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        auto folder = std::make_unique<Folder>(all.filePath(name));
        if ((own && own->path == folder->path) || !folder->take())
            continue;
        for (const QString &file : folder->files()) {
            const QString path = folder->path + u'/' + file;
            if (const std::optional<KeptText> text = readFrom(path)) {
                texts.append(*text);
                continue;
            }
            const QString moved = sessionFolder(u"Backups"_s) + u'/' + name + u'-' + file;
            status.addWarning(
                QCoreApplication::translate("KeptTexts",
                                            "A text that was kept cannot be read; it is in \"%1\"")
                    .arg(QFile::rename(path, moved) ? moved : path));
        }
        if (folder->files().isEmpty())
            folder->remove();
        else
            left.push_back(std::move(folder));
    }
    return {texts, status};
}

void KeptTexts::removeLeft(const KeptText &text)
{
    for (const auto &folder : left) {
        const QString file = folder->fileOf(text.path);
        const std::optional<KeptText> there = readFrom(file);
        if (there && there->text == text.text && there->time == text.time)
            QFile::remove(file);
    }
}

void KeptTexts::leaveAgain()
{
    for (const auto &folder : left) {
        if (folder->files().isEmpty())
            folder->remove();
    }
    left.clear();
}
