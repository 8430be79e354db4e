#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QList>
#include <QString>

namespace Qtilities::CoreGui {

// A part of a line of a log that leads somewhere.
struct LogLink
{
    qsizetype start = 0;
    qsizetype length = 0;
};

// What in the lines of logs leads somewhere, and going there. A host that has links to offer sets
// one; without it lines are plain texts. Lines are looked at when they are shown.
class QTILITIES_EXPORT LogLinks
{
public:
    LogLinks() = default;
    virtual ~LogLinks();
    Q_DISABLE_COPY_MOVE(LogLinks)

    // What the lines of a message that is logged now are to be read with, such as the folder that
    // its paths are relative to. It is kept with them.
    virtual QString contextOfMessage() const = 0;

    virtual QList<LogLink> linksIn(const QString &line) const = 0;

    // Goes where the link that begins at a place of the line leads.
    virtual void follow(const QString &line, qsizetype start, const QString &context) = 0;

    // Null, as long as none is set. It stays the caller's, who takes it back with null.
    static LogLinks *instance();
    static void setInstance(LogLinks *links);
};

} // namespace Qtilities::CoreGui
