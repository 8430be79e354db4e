#pragma once

#include "app/issues/IssueReader.h"

#include <QHash>
#include <QObject>
#include <QStringList>

namespace MorvalenCore {
class BuildConfiguration;
}

class IssueList;

// Brings the issues of builds and scripts into a list, and takes them out again: those of a step
// when it runs anew, those of a script when it does, those of a design when it closes.
class IssueSources : public QObject
{
    Q_OBJECT

public:
    // The list stays the caller's and outlives this.
    explicit IssueSources(IssueList *list, QObject *parent = nullptr);

    // Follows the scripts that run from now on.
    void followRuns();

    // A script or a command has failed, and left a stack of Tcl's.
    void takeStack(const QString &stack);

    // The folder that the paths in a build's output are relative to.
    static QString folderOf(const MorvalenCore::BuildConfiguration *configuration);

private:
    // A build that is under way.
    struct Build
    {
        QString key;
        QString title;
        QString folder;
        QString step;
        bool hasFailed = false;
        IssueReader reader;
    };

    void begin(MorvalenCore::BuildConfiguration *configuration);
    void beginStep(MorvalenCore::BuildConfiguration *configuration, const QString &step);
    void takeLine(MorvalenCore::BuildConfiguration *configuration, const QString &line);
    void end(const MorvalenCore::BuildConfiguration *configuration);
    void endStep(Build *build);
    void dropClosed();
    void beginScript();

    IssueList *list;
    QHash<const MorvalenCore::BuildConfiguration *, Build> builds;
    // The sources that commands of the console have failed in.
    QHash<QString, QString> sourceOfCommand;
};
