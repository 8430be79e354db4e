#include "app/session/TemporarySession.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdlib>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

QString &madeFolder()
{
    static auto *const path = new QString;
    return *path;
}

// Removes no folder that is not empty.
void takeAway()
{
    QDir folder(madeFolder());
    QDir logs(folder.filePath(u"Logs"_s));
    for (const QString &log : logs.entryList({u"*.log"_s, u"journal-*.tcl"_s}, QDir::Files))
        logs.remove(log);
    folder.remove(u"settings.ini"_s);
    folder.remove(u"window.json"_s);
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        folder.rmdir(name);
    QDir().rmdir(madeFolder());
}

} // namespace

Result<QString> TemporarySession::make()
{
    QTemporaryDir folder(QDir::tempPath() + u"/morvalen-XXXXXX"_s);
    if (!folder.isValid())
        return Status::io(
            u"no temporary session folder can be made: %1"_s.arg(folder.errorString()));
    folder.setAutoRemove(false);
    madeFolder() = folder.path();
    std::atexit(takeAway);
    return folder.path();
}
