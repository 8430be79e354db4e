#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

class Design;

// Gives a file of a design another path, wherever the old one stands: on disk, in the design, and
// in its build configurations. Used once.
class FileRenaming
{
public:
    FileRenaming(Design &design, const QString &path, const QString &newPath);

    Qtilities::Core::Status run();

private:
    Qtilities::Core::Status check() const;
    Qtilities::Core::Status rename() const;
    Qtilities::Core::Status followInConfigurations() const;
    // A text with the new path in place of the old one.
    QString followed(const QString &text) const;

    Design &design;
    QString asked;
    QString from;
    QString to;
};

} // namespace MorvalenCore
