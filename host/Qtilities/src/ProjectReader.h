#pragma once

#include "ProjectFile.h"

#include <QSet>
#include <QXmlStreamReader>

namespace Qtilities::ProjectManagement {

// Reads the document in a project file and stops at the first thing that is wrong.
class ProjectReader
{
public:
    // The version of the form of project files.
    static constexpr int knownVersion = 1;

    // The folder that relative paths in a project file are of.
    static QString baseFolder(const QString &fileName);

    ProjectReader(const QString &fileName, const QByteArray &bytes);

    // A failure says FILE:LINE: reason.
    Core::Result<ProjectContent> read();

private:
    void fail(const QString &reason);
    void refuseText(QXmlStreamReader::TokenType token);
    bool nextElement();
    void expectAttributes(std::initializer_list<QLatin1StringView> known);
    void readProject(ProjectContent *content);
    ProjectSection readSection();
    ProjectEntry readEntry();
    void checkEntry(const ProjectEntry &entry, const QString &path, QStringView active);
    QString absolute(const QString &path) const;

    QXmlStreamReader xml;
    QString file;
    QString folder;
    qint64 badLine;
    // Of the section that is being read.
    QSet<QString> paths;
    bool anyActive = false;
};

} // namespace Qtilities::ProjectManagement
