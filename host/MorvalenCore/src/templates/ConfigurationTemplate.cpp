#include <MorvalenCore/ConfigurationTemplate.h>

#include "items/filekinds.h"
#include "session/sessionsettings.h"
#include "templates/TemplateReader.h"

#include <MorvalenCore/IDesign.h>
#include <Qtilities/categorytext.h>

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// As an input of a step: all the files that the template works on.
const QString sources = u"@sources"_s;
const QString suffix = u".json"_s;

// The session's own first.
QStringList folders() { return {sessionFolder(u"Templates"_s), u":/templates"_s}; }

// "a", "a or b", "a, b or c".
QString oneOf(const QStringList &words)
{
    return words.size() < 2
        ? words.join(QString())
        : words.first(words.size() - 1).join(u", "_s) + u" or "_s + words.last();
}

// By its category or by its name: files of other tools' components have the groups of their file
// sets for categories, which say nothing of a kind.
bool isOfKind(const DesignFile &file, const QStringList &kinds)
{
    const QtilitiesCategory named =
        Qtilities::Core::categoryFrom(categoryForFileName(file.fileName()));
    return std::any_of(kinds.begin(), kinds.end(), [&](const QString &text) {
        const QtilitiesCategory kind = Qtilities::Core::categoryFrom(text);
        return kind.contains(file.category()) || kind.contains(named);
    });
}

bool holdsKinds(const Interfaces::IDesign &design, const QString &node, const QStringList &kinds)
{
    const QList<DesignFile *> files =
        design.hasNode(node) ? design.filesUnderNode(node, true) : QList<DesignFile *>();
    return std::any_of(files.begin(), files.end(),
                       [&kinds](const DesignFile *file) { return isOfKind(*file, kinds); });
}

} // namespace

QStringList ConfigurationTemplate::names()
{
    QStringList names;
    for (const QString &folder : folders()) {
        for (const QString &file : QDir(folder).entryList({u'*' + suffix}, QDir::Files))
            names.append(file.chopped(suffix.size()));
    }
    names.removeDuplicates();
    names.sort();
    return names;
}

Result<ConfigurationTemplate> ConfigurationTemplate::find(const QString &name)
{
    if (!names().contains(name))
        return Status::notFound(
            u"There is no template \"%1\"; there are %2"_s.arg(name, names().join(u", "_s)));
    QString path;
    for (const QString &folder : folders()) {
        if (path.isEmpty() && QFileInfo(folder + u'/' + name + suffix).isFile())
            path = folder + u'/' + name + suffix;
    }
    return TemplateReader::read(name, path);
}

QStringList ConfigurationTemplate::inputs(const Interfaces::IDesign &design) const
{
    for (const QString &node : theNodes) {
        if (holdsKinds(design, node, theKinds))
            return {u"node:"_s + node};
    }
    QStringList all;
    for (const QString &node : design.nodeNames()) {
        if (holdsKinds(design, node, theKinds))
            all.append(u"node:"_s + node);
    }
    return all;
}

QStringList ConfigurationTemplate::missing(const Interfaces::IDesign &design) const
{
    QStringList sentences;
    for (const QString &program : thePrograms) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            sentences.append(u"The program \"%1\" is not installed"_s.arg(program));
    }
    if (!theKinds.isEmpty() && inputs(design).isEmpty())
        sentences.append(
            u"The design \"%1\" has no files of the kind %2"_s.arg(design.name(), oneOf(theKinds)));
    for (const Property &property : theProperties) {
        if (!design.propertyByName(property.name))
            sentences.append(u"The design \"%1\" has no property \"%2\": %3"_s.arg(
                design.name(), property.name, property.meaning));
    }
    return sentences;
}

Result<BuildDescription>
ConfigurationTemplate::configuration(const Interfaces::IDesign &design) const
{
    if (const QStringList lacks = missing(design); !lacks.isEmpty())
        return Status::notFound(lacks.join(u"; "_s));
    BuildDescription made = pattern;
    for (BuildStep &step : made.steps) {
        if (const qsizetype index = step.inputs.indexOf(sources); index >= 0) {
            const QStringList behind = step.inputs.sliced(index + 1);
            step.inputs = step.inputs.first(index) + inputs(design) + behind;
        }
    }
    return made;
}

} // namespace MorvalenCore
