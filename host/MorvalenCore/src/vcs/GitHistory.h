#pragma once

#include <QString>

#include <atomic>

namespace MorvalenCore {

// What Git knows of one path. Reads the repository, never writes to it; looked up anew each time.
struct GitHistory
{
    // "Git", or empty when no commit that the current branch comes from holds the path.
    QString systemName;
    // The abbreviated id of the last commit that touched the path; "-1" when there is none.
    QString revision = QStringLiteral("-1");

    // The history of a file or folder, which need not be on disk any more. The path is absolute.
    // May be called from any thread. Gives up, as if there were no commit, once *cancelled (which
    // may be null) is set.
    static GitHistory of(const QString &path, const std::atomic_bool *cancelled = nullptr);
};

} // namespace MorvalenCore
