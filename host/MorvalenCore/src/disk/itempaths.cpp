#include "disk/itempaths.h"

#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

const QRegularExpression &variable()
{
    static const QRegularExpression pattern(
        uR"(\$\{(\w+)\}|\$\((\w+)\)|\$([A-Za-z_]\w*)|%([A-Za-z_]\w*)%)"_s);
    return pattern;
}

bool mayHoldVariable(const QString &text) { return text.contains(u'$') || text.contains(u'%'); }

bool beginsWithVariable(const QString &text)
{
    return mayHoldVariable(text) && variable().match(text).capturedStart() == 0;
}

bool beginsWithDrive(const QString &path)
{
    return path.size() > 2 && path[0].unicode() < 128 && path[0].isLetter() && path[1] == u':'
        && path[2] == u'/';
}

bool isShare(const QString &text) { return text.startsWith(u"\\\\"_s) || text.startsWith(u"//"_s); }

Result<QString> expanded(const QString &text)
{
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QString path;
    qsizetype end = 0;
    for (auto found = variable().globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QString name = match.captured(match.lastCapturedIndex());
        if (!environment.contains(name))
            return Status::notFound(
                u"\"%1\" names the environment variable \"%2\", which is not set"_s.arg(text,
                                                                                        name));
        path += text.mid(end, match.capturedStart() - end) + environment.value(name);
        end = match.capturedEnd();
    }
    path += text.mid(end);
    return path.replace(u'\\', u'/');
}

// Whether cleaning would leave it as it is, as nearly all paths of designs are: it has no empty
// part, no "." and no "..", but for what stands before the root.
bool isClean(QStringView path)
{
    qsizetype from = path.startsWith(u'/') ? 1 : 0;
    for (qsizetype end = from; from <= path.size(); ++end) {
        if (end < path.size() && path[end] != u'/')
            continue;
        if (end == from || (path[from] == u'.' && end - from <= 2 && path[end - 1] == u'.'))
            return false;
        from = end + 1;
    }
    return true;
}

// Whether that stands for a path of the folder just as it is.
bool isPlain(const QString &text)
{
    return !text.startsWith(u'/') && !text.contains(u'\\') && !mayHoldVariable(text)
        && !beginsWithDrive(text) && isClean(text);
}

// What stands for "one folder up" behind a variable depends on its value.
QString cleaned(const QString &path)
{
    if (isClean(path))
        return path;
    if (!mayHoldVariable(path) || !variable().match(path).hasMatch()) {
        QString clean = QDir::cleanPath(path);
        // Above the root is the root.
        while (clean.startsWith("/../"_L1))
            clean.remove(0, 3);
        return clean == "/.."_L1 ? u"/"_s : clean;
    }
    QStringList parts = path.split(u'/', Qt::SkipEmptyParts);
    parts.removeAll(u"."_s);
    return (path.startsWith(u'/') ? u"/"_s : QString()) + parts.join(u'/');
}

} // namespace

QString actualItemPath(const QString &text, const QString &folder)
{
    if (text.isEmpty())
        return {};
    if (isPlain(text) && isClean(folder))
        return folder % u'/' % text;
    QString path = text;
    path.replace(u'\\', u'/');
    if (text.startsWith(u"\\\\"_s))
        return u'/' + cleaned(path.mid(1));
    if (path.startsWith(u'/') || beginsWithDrive(path) || beginsWithVariable(path))
        return cleaned(path);
    return cleaned(folder + u'/' + path);
}

QString storedItemPath(const QString &text, const QString &folder)
{
    if (!text.startsWith(u'/') || isShare(text))
        return text;
    const QString path = cleaned(text);
    return path.startsWith(folder + u'/') ? path.mid(folder.size() + 1) : text;
}

Result<QString> tryPathOnDisk(const QString &actualPath, const QString &folder)
{
    if (beginsWithDrive(actualPath) || isShare(actualPath))
        return Status::invalidArgument(u"\"%1\" is not a path of this system"_s.arg(actualPath));
    const QDir place(folder);
    // What is there under the very text is meant.
    const Result<QString> path = mayHoldVariable(actualPath) && !place.exists(actualPath)
        ? expanded(actualPath)
        : Result<QString>(actualPath);
    if (!path.isOk())
        return path;
    if (path.value().isEmpty())
        return Status(Status::Kind::InvalidArgument, QString());
    return QDir::cleanPath(place.absoluteFilePath(path.value()));
}

QString pathOnDisk(const QString &actualPath, const QString &folder)
{
    return tryPathOnDisk(actualPath, folder).valueOr({});
}

} // namespace MorvalenCore
