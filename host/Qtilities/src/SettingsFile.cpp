#include "settingscontent.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/FolderMutex.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/SettingsFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

// What was read or written last, since settings are asked for often.
class KnownSettings
{
public:
    SettingsContent of(const QString &fileName)
    {
        const QMutexLocker lock(&mutex);
        return contents.value(fileName);
    }
    void add(const QString &fileName, const SettingsContent &content)
    {
        const QMutexLocker lock(&mutex);
        contents.insert(fileName, content);
    }

    static KnownSettings &instance()
    {
        static KnownSettings known;
        return known;
    }

private:
    QMutex mutex;
    QHash<QString, SettingsContent> contents;
};

Status putAside(const QString &fileName)
{
    QString aside = fileName + u".unreadable"_s;
    for (int i = 2; QFileInfo::exists(aside); ++i)
        aside = u"%1.unreadable-%2"_s.arg(fileName).arg(i);
    QFile file(fileName);
    if (!file.rename(aside))
        return Status::io(u"The settings file \"%1\" cannot be read, nor renamed: %2"_s.arg(
            fileName, file.errorString()));
    Status status;
    status.addWarning(
        u"The settings file \"%1\" cannot be read; it is kept as \"%2\""_s.arg(fileName, aside));
    return status;
}

Status unreadable(const QString &fileName, const Status &status)
{
    return status.withText(
        u"The settings file \"%1\" cannot be read: %2"_s.arg(fileName, status.text()));
}

// QSettings would write over a file that it could not read.
Result<SettingsContent> load(const QString &fileName)
{
    const Result<QByteArray> bytes = readRegularFile(fileName);
    if (!bytes.isOk() && bytes.status().kind() == Status::Kind::NotFound)
        return SettingsContent();
    if (!bytes.isOk())
        return unreadable(fileName, bytes.status());
    if (const SettingsContent known = KnownSettings::instance().of(fileName);
        known.bytes == bytes.value())
        return known;
    const Result<SettingsContent> content = parseSettings(bytes.value());
    if (content.isOk()) {
        KnownSettings::instance().add(fileName, content.value());
        return content;
    }
    if (content.status().kind() != Status::Kind::Malformed)
        return unreadable(fileName, content.status());
    const Status aside = putAside(fileName);
    return aside.isOk() ? Result<SettingsContent>(SettingsContent(), aside)
                        : Result<SettingsContent>(aside);
}

} // namespace

SettingsFile::SettingsFile() : SettingsFile(CoreGui::QtilitiesApplication::settingsFileName()) { }

SettingsFile::SettingsFile(const QString &fileName) : name(fileName)
{
    Result<SettingsContent> content = load(name);
    opened = content.status();
    values = std::move(content).valueOr({}).values;
}

QVariant SettingsFile::value(const QString &key, const QVariant &usually) const
{
    return values.value(key, usually);
}

QStringList SettingsFile::keys(const QString &group) const
{
    QStringList names;
    for (const QString &key : values.keys()) {
        if (key.startsWith(group + u'/'))
            names.append(key.sliced(group.size() + 1));
    }
    return names;
}

Status SettingsFile::write()
{
    const SettingsChanges wanted = std::exchange(changes, {});
    if (wanted.isEmpty())
        return {};
    QDir().mkpath(QFileInfo(name).path());
    const FolderMutex lock(QFileInfo(name).path());
    if (!lock.isTaken())
        return Status::busy(
            u"The settings file \"%1\" is being written by another program"_s.arg(name));
    const Result<SettingsContent> before = load(name);
    if (!before.isOk())
        return before.status();
    const Result<SettingsContent> after = changeSettings(before.value().bytes, wanted);
    if (!after.isOk())
        return after.status();
    Status written;
    if (after.value().bytes != before.value().bytes)
        written = writeFileAtomically(name, after.value().bytes);
    if (written.isOk()) {
        values = after.value().values;
        KnownSettings::instance().add(name, after.value());
    }
    return written.after(before.status());
}

} // namespace Qtilities::Core
