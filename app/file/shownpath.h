#pragma once

#include <QDir>

// A path as people read it, with a tilde for the home folder.
inline QString shownPath(const QString &path)
{
    const QString home = QDir::homePath() + QLatin1Char('/');
    const bool atHome = path.startsWith(home);
    return QDir::toNativeSeparators(atHome ? QLatin1String("~/") + path.sliced(home.size()) : path);
}
