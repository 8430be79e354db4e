#pragma once

#include <QtGlobal>

#include <atomic>

QT_FORWARD_DECLARE_CLASS(QString)

// What Git's own library is asked. It brings sixteen others along, whose loading would be a fifth
// of the start of every script: so what calls it is a shared library, MorvalenGit, that is opened
// when a repository is looked into for the first time. It offers this one function.
extern "C" {

// Finds the last commit of the current branch that touched a path, and gives its abbreviated id.
// The repository is named by its ".git", the path is absolute and without links in its folder.
// False, and the id stays, when there is none, or once *cancelled (which may be null) is set.
Q_DECL_EXPORT bool morvalenLastCommit(const QString &git, const QString &path,
                                      const std::atomic_bool *cancelled, QString *id);
}

namespace MorvalenCore {

using LastCommit = decltype(morvalenLastCommit);

} // namespace MorvalenCore
