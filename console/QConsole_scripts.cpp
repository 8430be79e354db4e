#include "console/QConsole.h"

#include <QFile>
#include <QTextStream>

int QConsole::saveScript(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return -1;
    QTextStream stream(&file);
    for (const QString &command : std::as_const(recordedScript))
        stream << command << u'\n';
    stream.flush();
    return stream.status() == QTextStream::Ok && file.flush() ? 0 : -1;
}

int QConsole::loadScript(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    QTextStream stream(&file);
    for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine())
        execCommand(line, true, false, nullptr);
    return 0;
}
