#include "app/designs/adding.h"

#include "app/calls/HostCall.h"
#include "app/designs/DesignTree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace {

QString tr(const char *text) { return DesignTree::tr(text); }

// The system's reason why the file cannot be made; empty when it is there.
QString makeFile(const QString &path)
{
    QFile file(path);
    return QFileInfo::exists(path) || file.open(QIODevice::WriteOnly | QIODevice::NewOnly)
        ? QString()
        : tr("\"%1\" cannot be made: %2").arg(QDir::toNativeSeparators(path), file.errorString());
}

bool addOne(IDesign &design, const QString &node, const QString &path, QString *error)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        *error = tr("There is no \"%1\"").arg(QDir::toNativeSeparators(path));
        return false;
    }
    return info.isDir() ? design.addFolder(path, error) != nullptr
                        : design.addFile(path, node, true, error) != nullptr;
}

QString nodeOf(const TreeRow &row)
{
    if (const auto *file = row.file())
        return file->node();
    return row.kind == RowKind::Node ? row.name : QString();
}

} // namespace

void adding::addPaths(const TreeRow &row, const QStringList &paths, QWidget *window)
{
    if (paths.isEmpty() || !row.isThere())
        return;
    const QString node = nodeOf(row);
    HostCall attempt(window, tr("Not Added"));
    for (const QString &path : paths) {
        QString error;
        if (!addOne(*row.design(), node, path, &error))
            attempt.refused(error);
    }
}

bool adding::addNewFile(const TreeRow &row, const QString &path, QWidget *window)
{
    if (!row.isThere())
        return false;
    HostCall attempt(window, tr("Not Added"));
    QString error;
    if (!row.design()->addFile(path, nodeOf(row), true, &error)) {
        attempt.refused(error);
        return false;
    }
    error = makeFile(path);
    if (error.isEmpty())
        return true;
    row.design()->removeFile(path);
    attempt.refused(error);
    return false;
}
