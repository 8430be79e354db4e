#include "app/designs/adding.h"

#include "app/calls/HostCall.h"
#include "app/designs/DesignTree.h"
#include "app/journal/journaling.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

namespace {

// Ok when the file is there.
Status makeFile(const QString &path)
{
    QFile file(path);
    if (QFileInfo::exists(path) || file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return {};
    return Status::io(DesignTree::tr("\"%1\" cannot be made: %2")
                          .arg(QDir::toNativeSeparators(path), file.errorString()));
}

Status addOne(IDesign &design, const QString &node, const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Status::notFound(
            DesignTree::tr("There is no \"%1\"").arg(QDir::toNativeSeparators(path)));
    const Status added = info.isDir() ? design.tryAddFolder(path).status()
                                      : design.tryAddFile(path, node, true).status();
    if (added.isOk() && info.isDir())
        journaling::folderAdded(design, path);
    else if (added.isOk())
        journaling::fileAdded(design, path, node);
    return added;
}

} // namespace

QString adding::nodeOf(const TreeRow &row)
{
    if (const auto *file = row.file())
        return file->node();
    return row.kind == RowKind::Node ? row.name : QString();
}

void adding::addPaths(const TreeRow &row, const QStringList &paths, QWidget *window)
{
    if (paths.isEmpty() || !row.isThere())
        return;
    const QString node = nodeOf(row);
    HostCall attempt(window, DesignTree::tr("Not Added"));
    for (const QString &path : paths)
        attempt.take(addOne(*row.design(), node, path));
}

bool adding::addNewFile(const TreeRow &row, const QString &path, QWidget *window)
{
    if (!row.isThere())
        return false;
    HostCall attempt(window, DesignTree::tr("Not Added"));
    if (!attempt.take(row.design()->tryAddFile(path, nodeOf(row), true).status()))
        return false;
    const bool wasThere = QFileInfo::exists(path);
    const Status made = makeFile(path);
    if (!made.isOk()) {
        row.design()->removeFile(path);
    } else {
        journaling::fileAdded(*row.design(), path, nodeOf(row));
        if (!wasThere)
            journaling::fileMade(*row.design(), path);
    }
    return attempt.take(made);
}
