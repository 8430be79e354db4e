#include "designs/backup.h"

#include "design/Design.h"
#include "session/sessionsettings.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// The number of the process keeps those apart who share a session.
QString newFile(const QString &folder, const QString &name)
{
    const QString time = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    const QString stem = u"%1/%2-%3-%4"_s.arg(folder, name, time,
                                              QString::number(QCoreApplication::applicationPid()));
    QString path = stem + u".xml"_s;
    for (int i = 2; QFileInfo::exists(path); ++i)
        path = u"%1-%2.xml"_s.arg(stem).arg(i);
    return path;
}

} // namespace

QString backUp(Design &design, QString *error)
{
    const QString folder = sessionFolder(u"Backups"_s);
    if (!QDir().mkpath(folder)) {
        *error = u"The folder \"%1\" cannot be made"_s.arg(folder);
        return {};
    }
    // A name that was read from a file may hold anything.
    const QString path = newFile(folder, design.name().replace(u'/', u'_'));
    return design.saveCopy(path, error) ? path : QString();
}

} // namespace MorvalenCore
