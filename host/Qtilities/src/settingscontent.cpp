#include "settingscontent.h"

#include <Qtilities/Descriptor.h>
#include <Qtilities/regularfile.h>

#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <atomic>
#include <cerrno>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

// Half a character would let no expression match the text around it.
char16_t escaped(const QString &digits, int base)
{
    char16_t value = 0;
    for (const QChar digit : digits)
        value = char16_t(value * base + QStringView(&digit, 1).toInt(nullptr, 16));
    return QChar::isSurrogate(value) ? char16_t(QChar::ReplacementCharacter) : value;
}

// What a backslash in front of another character stands for: most are dropped.
QString escaped(QChar character)
{
    if (u"\"?'\\"_s.contains(character))
        return character;
    return u"abfnrtv"_s.contains(character) ? u" "_s : QString();
}

// As values are to QSettings once their quotes and escapes are off.
QString withoutEscapes(const QByteArray &content)
{
    static const QRegularExpression escapes(
        uR"("|\\(?:\r\n|\n\r|\r|\n)|\\x([0-9a-fA-F]+)|\\([0-7]+)|\\(.))"_s);
    const QString text = QString::fromLatin1(content);
    QString plain;
    qsizetype end = 0;
    for (const QRegularExpressionMatch &match : escapes.globalMatch(text)) {
        plain += QStringView(text).sliced(end, match.capturedStart() - end);
        if (match.hasCaptured(1))
            plain += escaped(match.captured(1), 16);
        else if (match.hasCaptured(2))
            plain += escaped(match.captured(2), 8);
        else if (match.hasCaptured(3))
            plain += escaped(match.captured(3).front());
        end = match.capturedEnd();
    }
    return plain += QStringView(text).sliced(end);
}

// Values of any type are read as they were streamed, with sizes that are believed: 20 bytes make
// QSettings ask for gigabytes. None of the settings is of such a type. A text that begins like one
// is written with another "@" in front.
bool hasStreamedValues(const QByteArray &content)
{
    static const QRegularExpression streamed(u"[=,]\\s*@(Variant|DateTime)\\("_s);
    return streamed.match(withoutEscapes(content)).hasMatch();
}

// QSettings keeps what it has read, and takes a file of the same name, size and time for the one it
// knows; this one has a time of its own.
Descriptor inMemory(const QByteArray &bytes)
{
    static std::atomic<time_t> second = 0;
    Descriptor memory(::memfd_create("settings", MFD_CLOEXEC));
    const timespec times[] = {{0, UTIME_OMIT}, {++second, 0}};
    const bool isDone = memory && memory.write(bytes) && ::futimens(memory.get(), times) == 0;
    return isDone ? std::move(memory) : Descriptor();
}

Status put(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(content) != content.size())
        return Status::io(u"Cannot write \"%1\": %2"_s.arg(fileName, file.errorString()));
    return {};
}

// A line that begins with "=" has an empty one.
QStringList keysOf(const QSettings &settings)
{
    QStringList keys = settings.allKeys();
    keys.removeAll(QString());
    return keys;
}

// QSettings asks for "/a" as for "a", which may be there, too.
bool canBeAskedFor(const QString &key, const QSettings &settings)
{
    return !key.startsWith(u'/') && !key.endsWith(u'/') && !key.contains(u"//"_s)
        && settings.contains(key);
}

Status edit(const QString &copy, const SettingsChanges &changes, QStringList *keys)
{
    QSettings settings(copy, QSettings::IniFormat);
    for (const auto &[key, value] : changes) {
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
    }
    settings.sync();
    *keys = keysOf(settings);
    return settings.status() == QSettings::NoError ? Status()
                                                   : Status::io(u"Cannot write \"%1\""_s.arg(copy));
}

} // namespace

// Zeros are escaped in settings, so that one tells of something else, and so do keys that nobody
// can ask for, such as "/a", which QSettings gives other names when it writes. Groups are read only
// when they are asked for.
Result<SettingsContent> parseSettings(const QByteArray &bytes)
{
    const Status malformed = Status::malformed(u"it holds something else"_s);
    if (bytes.contains('\0') || hasStreamedValues(bytes))
        return malformed;
    const Descriptor memory = inMemory(bytes);
    const QString name = u"/proc/self/fd/%1"_s.arg(memory.get());
    if (!memory || !QFile::exists(name))
        return Status::io(qt_error_string(errno));
    const QSettings settings(name, QSettings::IniFormat);
    SettingsContent content {bytes, {}};
    for (const QString &key : keysOf(settings)) {
        if (!canBeAskedFor(key, settings))
            return malformed;
        content.values.insert(key, settings.value(key));
    }
    return settings.status() == QSettings::NoError ? content : Result<SettingsContent>(malformed);
}

// On a full disk QSettings replaces its file by as much as there was room for, and says nothing. So
// it works on a copy, and what it wrote is read again.
Result<SettingsContent> changeSettings(const QByteArray &bytes, const SettingsChanges &changes)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        return Status::io(folder.errorString());
    const QString copy = folder.filePath(u"settings.ini"_s);
    QStringList keys;
    Status status = put(copy, bytes);
    if (status.isOk())
        status = edit(copy, changes, &keys);
    if (!status.isOk())
        return status;
    const Result<QByteArray> written = readRegularFile(copy);
    if (!written.isOk())
        return written.status();
    Result<SettingsContent> content = parseSettings(written.value());
    const bool isWhole = written.value().isEmpty() || written.value().endsWith('\n');
    if (!isWhole || !content.isOk() || content.value().values.keys() != keys)
        return Status::io(u"Cannot write \"%1\": a part is missing"_s.arg(copy));
    return content;
}

} // namespace Qtilities::Core
