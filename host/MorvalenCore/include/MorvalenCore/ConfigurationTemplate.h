#pragma once

#include <MorvalenCore/BuildDescription.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/Status.h>

#include <QList>
#include <QString>
#include <QStringList>

namespace MorvalenCore {

namespace Interfaces {
class IDesign;
}

// A build configuration that is ready to run for a tool, and what it needs of a design. Templates
// are files NAME.json: those that come with the program, and those of the session's Templates
// folder, which hide shipped ones of the same name.
class MORVALENCORE_EXPORT ConfigurationTemplate
{
public:
    // A property that a design must have, and what it says.
    struct Property
    {
        QString name;
        QString meaning;
    };

    // The names of all templates, in alphabetic order; those too that cannot be read.
    static QStringList names();
    static Qtilities::Core::Result<ConfigurationTemplate> find(const QString &name);

    QString name() const { return theName; }
    // The file that it was read from; one that comes with the program begins with ":/".
    QString path() const { return thePath; }
    QString description() const { return theDescription; }
    // The programs that it runs.
    QStringList programs() const { return thePrograms; }
    // The files that it works on: those of the first of the nodes that has some of these
    // categories, else those of all nodes that have.
    QStringList kinds() const { return theKinds; }
    QStringList nodes() const { return theNodes; }
    QList<Property> properties() const { return theProperties; }

    // What it needs and the design, or the machine, does not have; empty when nothing is missing.
    // One sentence each, without a final full stop.
    QStringList missing(const Interfaces::IDesign &design) const;

    // The configuration for a design; its name is left to the caller. Refused when something is
    // missing.
    Qtilities::Core::Result<BuildDescription>
    configuration(const Interfaces::IDesign &design) const;

private:
    friend class TemplateReader;

    QStringList inputs(const Interfaces::IDesign &design) const;

    QString theName;
    QString thePath;
    QString theDescription;
    QStringList thePrograms;
    QStringList theKinds;
    QStringList theNodes;
    QList<Property> theProperties;
    BuildDescription pattern;
};

} // namespace MorvalenCore
