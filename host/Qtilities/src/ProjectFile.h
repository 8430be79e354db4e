#pragma once

#include <Qtilities/ProjectEntry.h>
#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace Qtilities::ProjectManagement {

// The things of one kind that a project holds.
struct ProjectSection
{
    QString name;
    QList<ProjectEntry> entries;
    // Where it stands in the project file; 0 for what comes from no file.
    int line = 0;
};

// What a project file says.
struct ProjectContent
{
    QString name;
    QList<ProjectSection> sections;
};

// Whether both say the same, wherever it stands.
bool operator==(const ProjectContent &left, const ProjectContent &right);

// Project files are XML of UTF-8:
//
//     <project version="1" name="demo">
//         <designs>
//             <entry path="../uart/component.xml" active="true"/>
//         </designs>
//     </project>
//
// Relative paths are of the folder of the file; where the file is a link, of its target's.
// Anything else in a file is an error, so that saving never loses what was not understood.

// A failure says FILE:LINE: reason, or names the file when no line is to blame.
Core::Result<ProjectContent> readProjectFile(const QString &fileName);

// Replaces the file unless something else than a project is in it.
Core::Status writeProjectFile(const QString &fileName, const ProjectContent &content,
                              bool makeRelative);

} // namespace Qtilities::ProjectManagement
