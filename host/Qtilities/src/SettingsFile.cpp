#include <Qtilities/KnownFile.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/regularfile.h>
#include <Qtilities/SettingsFile.h>

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QRegularExpression>
#include <QSettings>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

using Stamp = KnownFile::Stamp;

// What was found to be in order already, since settings are asked for often.
class SecuredFiles
{
public:
    bool contains(const QString &fileName, const Stamp &stamp)
    {
        const QMutexLocker lock(&mutex);
        return stamps.value(fileName) == stamp;
    }
    void add(const QString &fileName, const Stamp &stamp)
    {
        const QMutexLocker lock(&mutex);
        stamps.insert(fileName, stamp);
    }

private:
    QMutex mutex;
    QHash<QString, Stamp> stamps;
};

char16_t escaped(const QString &digits, int base)
{
    char16_t value = 0;
    for (const QChar digit : digits)
        value = char16_t(value * base + QStringView(&digit, 1).toInt(nullptr, 16));
    return value;
}

// As values are to QSettings once their quotes and escapes are off.
QString withoutEscapes(const QByteArray &content)
{
    static const QRegularExpression escapes(uR"("|\\\r?\n|\\x([0-9a-fA-F]+)|\\([0-7]+)|\\(.))"_s);
    const QString text = QString::fromLatin1(content);
    QString plain;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &match : escapes.globalMatch(text)) {
        plain += QStringView(text).sliced(end, match.capturedStart() - end);
        if (match.hasCaptured(1))
            plain += escaped(match.captured(1), 16);
        else if (match.hasCaptured(2))
            plain += escaped(match.captured(2), 8);
        else
            plain += match.captured(3);
        end = match.capturedEnd();
    }
    return plain += QStringView(text).sliced(end);
}

// Values of any type are read as they were streamed, with sizes that are believed: 20 bytes make
// QSettings ask for gigabytes. None of the settings is of such a type.
bool hasStreamedValues(const QByteArray &content)
{
    const QString plain = withoutEscapes(content);
    return plain.contains(u"@Variant("_s) || plain.contains(u"@DateTime("_s);
}

// QSettings escapes zeros, so that one tells of something else. It reads groups only when they are
// asked for.
bool isOfSettings(const QString &fileName, const QByteArray &content)
{
    if (hasStreamedValues(content))
        return false;
    const QSettings settings(fileName, QSettings::IniFormat);
    static_cast<void>(settings.allKeys());
    return !content.contains('\0') && settings.status() == QSettings::NoError;
}

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

// QSettings would write over a file that it could not read.
Status secure(const QString &fileName)
{
    static SecuredFiles secured;
    const Stamp stamp = KnownFile::stampOf(fileName);
    if (!stamp.exists() || secured.contains(fileName, stamp))
        return {};
    const Result<QByteArray> content = readRegularFile(fileName);
    if (!content.isOk()) {
        return content.status().withText(u"The settings file \"%1\" cannot be read: %2"_s.arg(
            fileName, content.status().text()));
    }
    if (!isOfSettings(fileName, content.value()))
        return putAside(fileName);
    secured.add(fileName, stamp);
    return {};
}

} // namespace

SettingsFile::SettingsFile() : SettingsFile(CoreGui::QtilitiesApplication::settingsFileName()) { }

SettingsFile::SettingsFile(const QString &fileName) : opened(secure(fileName))
{
    if (opened.isOk())
        settings.emplace(fileName, QSettings::IniFormat);
}

QVariant SettingsFile::value(const QString &key, const QVariant &usually) const
{
    return settings ? settings->value(key, usually) : usually;
}

QStringList SettingsFile::keys(const QString &group) const
{
    if (!settings)
        return {};
    settings->beginGroup(group);
    const QStringList names = settings->allKeys();
    settings->endGroup();
    return names;
}

void SettingsFile::set(const QString &key, const QVariant &value)
{
    if (settings && value.isValid())
        settings->setValue(key, value);
    else
        remove(key);
}

void SettingsFile::remove(const QString &keyOrGroup)
{
    if (settings)
        settings->remove(keyOrGroup);
}

bool SettingsFile::isWritten()
{
    if (!settings)
        return false;
    settings->sync();
    return settings->status() == QSettings::NoError && settings->isWritable();
}

} // namespace Qtilities::Core
