#pragma once

#include <Qtilities/Status.h>

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

// Stands before every deletion on disk: whether the path may be deleted. The path must be absolute,
// canonical (so that no link lies on the way to it), on disk, and not a link itself.
Qtilities::Core::Status checkDeletion(const QString &path, const DeletionLimits &limits);

} // namespace MorvalenCore
