#pragma once

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// What a deletion must keep to.
struct DeletionLimits
{
    // The folder that the doomed path must lie strictly below.
    QString below;
    // Files and folders that stay, with all folders above them. The root, the home folder and
    // the current folder stay in any case.
    QStringList keep;
};

// Stands before every deletion on disk. Empty when the path may be deleted, otherwise why not, in
// one sentence. The path must be absolute, canonical (so that no link lies on the way to it), on
// disk, and not a link itself.
QString deletionRefusal(const QString &path, const DeletionLimits &limits);

} // namespace MorvalenCore
