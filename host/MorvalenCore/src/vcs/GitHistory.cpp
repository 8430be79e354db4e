#include "vcs/GitHistory.h"

#include "log/hostlog.h"
#include "vcs/gitfolder.h"
#include "vcs/gitlibrary.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// The path with its folder resolved, since the repository knows its own place without links. The
// last part stays: a link can be under version control itself.
QString resolved(const QString &path)
{
    QString folder = QFileInfo(path).path();
    QString rest = QFileInfo(path).fileName();
    while (!QFileInfo::exists(folder) && folder != u"/"_s) {
        rest = QFileInfo(folder).fileName() + u'/' + rest;
        folder = QFileInfo(folder).path();
    }
    return QDir::cleanPath(QFileInfo(folder).canonicalFilePath() + u'/' + rest);
}

// Null, with the reason in the log once, when it cannot be had.
LastCommit *lastCommit()
{
    static LastCommit *const function = []() -> LastCommit * {
        const auto opened = openGitLibrary(libraryFolder());
        if (opened.isOk())
            return opened.value();
        logWarning(opened.status().text());
        return nullptr;
    }();
    return function;
}

} // namespace

GitHistory GitHistory::of(const QString &path, const std::atomic_bool *cancelled)
{
    if (path.isEmpty())
        return {};
    const QString place = resolved(path);
    const QString git = gitFolderAround(place);
    QString id;
    if (git.isEmpty() || !lastCommit() || !lastCommit()(git, place, cancelled, &id))
        return {};
    return {u"Git"_s, id};
}

} // namespace MorvalenCore
