#include "console/RecordedScript.h"

#include <QFile>
#include <QTextStream>

int RecordedScript::save(const QString &fileName) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return -1;
    QTextStream stream(&file);
    for (const QString &command : commands)
        stream << command << u'\n';
    stream.flush();
    return stream.status() == QTextStream::Ok && file.flush() ? 0 : -1;
}

int RecordedScript::load(const QString &fileName, const std::function<void(const QString &)> &run)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    QTextStream stream(&file);
    for (QString line = stream.readLine(); !line.isNull(); line = stream.readLine())
        run(line);
    return 0;
}
