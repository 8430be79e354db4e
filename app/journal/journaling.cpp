#include "app/journal/journaling.h"

#include "app/journal/CommandJournal.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/QtilitiesProperty.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using journal::Word;
using journal::Words;
using MorvalenCore::BuildMacro;
using MorvalenCore::BuildStep;
using MorvalenCore::DesignManager;
using Qtilities::Core::QtilitiesProperty;

namespace journaling {

namespace {

void add(const Words &words) { CommandJournal::instance()->add(words); }

void addOn(const IDesign &design, const Words &words)
{
    CommandJournal::instance()->addOn(idOf(design), words);
}

// The ensemble is told which design is meant.
void addFor(const IDesign &design, const Words &words)
{
    CommandJournal::instance()->addOn(
        QString(), Words {u"morvalen"_s} + words + Words {u"-design"_s, idOf(design)});
}

// The command that works on one active item of the kind.
QString commandOfOne(const QString &kind)
{
    return kind == u"files" ? u"sfile"_s : kind == u"folders" ? u"sfolder"_s : u"sproperty"_s;
}

QString itemWord(const IDesign &design, const QString &kind, const QString &item)
{
    return kind == u"properties" ? item : journal::itemPath(design, item);
}

void onItem(const IDesign &design, const QString &kind, const QString &item, const Words &words)
{
    itemActivated(design, kind, item);
    addOn(design, Words {commandOfOne(kind)} + words);
}

QString listOfSteps(const QList<BuildStep> &steps)
{
    QStringList texts;
    for (const BuildStep &step : steps) {
        QStringList words {u"name"_s,    step.name,
                           u"command"_s, step.command,
                           u"inputs"_s,  journal::list(step.inputs),
                           u"outputs"_s, journal::list(step.outputs)};
        if (!step.pool.isEmpty())
            words += {u"pool"_s, step.pool};
        texts.append(journal::list(words));
    }
    return journal::list(texts);
}

} // namespace

QString idOf(const IDesign &design) { return design.id(u"."_s); }

void made(const QStringList &words) { add(Words(words.cbegin(), words.cend())); }

void opened(const QString &file, bool isProject)
{
    add(isProject ? Words {u"project"_s, u"open"_s, journal::path(file)}
                  : Words {u"designs"_s, u"add"_s, journal::path(file)});
}

void activated(const QString &designId)
{
    CommandJournal::instance()->addOn(QString(), {u"designs"_s, u"set_active"_s, designId},
                                      designId);
}

void saved(const IDesign &design) { addOn(design, {u"design"_s, u"save"_s}); }

void copied(const IDesign &design, const QString &file)
{
    addOn(design, {u"design"_s, u"save"_s, journal::path(file)});
}

void givenUp(const QString &designId)
{
    add({u"morvalen"_s, u"reload"_s, designId, u"-discard"_s});
}

void closed(const QString &designId, bool deleted)
{
    Words words {u"designs"_s, u"close"_s, designId};
    if (deleted)
        words.append(u"true"_s);
    add(words);
    CommandJournal::instance()->forgetActive();
}

void reloaded(const QString &designId) { add({u"morvalen"_s, u"reload"_s, designId}); }

void identity(const IDesign &design, const QString &oldId, const QString &field,
              const QString &text)
{
    CommandJournal::instance()->addOn(oldId, {u"design"_s, u"set"_s, field, text}, idOf(design));
}

void cleaned(const IDesign &design, bool allVersions)
{
    addOn(design, {u"design"_s, u"clean"_s, allVersions ? u"true"_s : u"false"_s});
}

void projectMade() { add({u"project"_s, u"new"_s}); }

// A project says which design is the active one.
void projectSaved(const QString &file)
{
    const IDesign *active = DesignManager::instance()->activeDesigns().value(0);
    Words words {u"project"_s, u"save"_s};
    if (!file.isEmpty())
        words.append(journal::path(file));
    CommandJournal::instance()->addOn(active ? idOf(*active) : QString(), words);
}

void projectClosed()
{
    add({u"project"_s, u"close"_s});
    CommandJournal::instance()->forgetActive();
}

void fileAdded(const IDesign &design, const QString &path, const QString &node)
{
    const QString word = journal::itemPath(design, path);
    if (node.isEmpty())
        addOn(design, {u"files"_s, u"add"_s, word});
    else
        addFor(design, {u"file"_s, u"add"_s, word, u"-node"_s, node});
}

void fileMade(const IDesign &design, const QString &path)
{
    addOn(design,
          {u"close"_s,
           Word::script(u"[open [file join [design get wfp] %1] a]"_s.arg(
               journal::quoted(journal::itemPath(design, path))))});
}

void fileRenamed(const IDesign &design, const QString &path, const QString &newPath)
{
    addFor(design,
           {u"file"_s, u"rename"_s, journal::itemPath(design, path),
            journal::itemPath(design, newPath)});
}

void fileMoved(const IDesign &design, const QString &path, const QString &node)
{
    addFor(design, {u"file"_s, u"move"_s, journal::itemPath(design, path), node});
}

void itemRestored(const IDesign &design, const QString &kind, const QString &item)
{
    addFor(design, {u"restore"_s, kind, itemWord(design, kind, item)});
}

void folderAdded(const IDesign &design, const QString &path)
{
    addOn(design, {u"folders"_s, u"add"_s, journal::itemPath(design, path)});
}

void propertySet(const IDesign &design, const QString &name, const QVariant &value)
{
    addFor(design,
           {u"property"_s, name, value.toString(), u"-type"_s, QtilitiesProperty::typeName(value)});
}

void propertyAdded(const IDesign &design, const QString &name, const QVariant &value,
                   const QString &category, bool readOnly)
{
    Words words {u"property"_s, name, value.toString(), u"-type"_s,
                 QtilitiesProperty::typeName(value)};
    if (!category.isEmpty())
        words += {u"-category"_s, category};
    if (readOnly)
        words += {u"-readonly"_s, u"true"_s};
    addFor(design, words);
}

void itemActivated(const IDesign &design, const QString &kind, const QString &item)
{
    addOn(design, {kind, u"set_active"_s, itemWord(design, kind, item)});
}

void itemRemoved(const IDesign &design, const QString &kind, const QString &item)
{
    addOn(design, {kind, u"remove"_s, itemWord(design, kind, item)});
}

void itemDeleted(const IDesign &design, const QString &kind, const QString &item)
{
    addOn(design, {kind, u"delete"_s, itemWord(design, kind, item)});
}

void categorySet(const IDesign &design, const QString &kind, const QString &item,
                 const QString &category)
{
    onItem(design, kind, item, {u"set"_s, u"category"_s, category});
}

void sharedSet(const IDesign &design, const QString &kind, const QString &item, const QString &name,
               const QVariant &value)
{
    onItem(design, kind, item,
           {u"property"_s, u"set"_s, name, QtilitiesProperty::typeName(value), value.toString()});
}

void sharedRemoved(const IDesign &design, const QString &kind, const QString &item,
                   const QString &name)
{
    onItem(design, kind, item, {u"property"_s, u"remove"_s, name});
}

void configurationAdded(const IDesign &design, const QString &name)
{
    addFor(design, {u"configuration"_s, u"add"_s, name});
}

void configurationRenamed(const IDesign &design, const QString &oldName, const QString &name)
{
    addFor(design, {u"configuration"_s, u"rename"_s, oldName, name});
}

void configurationRemoved(const IDesign &design, const QString &name)
{
    addFor(design, {u"configuration"_s, u"remove"_s, name});
}

void configurationActivated(const IDesign &design, const QString &name)
{
    addOn(design, {u"builds"_s, u"set_active"_s, name});
}

void configurationDescribed(const IDesign &design, const QString &oldName,
                            const BuildDescription &description)
{
    QStringList macros;
    for (const BuildMacro &macro : description.macros)
        macros += {macro.name, macro.value};
    addFor(design,
           {u"configuration"_s, u"set"_s, oldName, u"-name"_s, description.name, u"-target"_s,
            description.targetPath, u"-macros"_s, journal::list(macros), u"-steps"_s,
            listOfSteps(description.steps)});
}

void built(const BuildConfiguration &configuration, bool onlyOutdated)
{
    const QString name = configuration.configurationName();
    for (const QString &id : DesignManager::instance()->openDesignIds()) {
        const IDesign *design = DesignManager::instance()->design(id);
        if (!design || design->buildConfiguration(name) != &configuration)
            continue;
        Words words {u"build"_s, u"run"_s};
        if (!onlyOutdated)
            words.append(u"true"_s);
        if (design->activeBuildConfiguration() == &configuration)
            addOn(*design, words);
        else
            CommandJournal::instance()->addOn(
                QString(), {u"morvalen"_s, u"build"_s, id, u"-configuration"_s, name});
        return;
    }
}

void scriptBegins() { CommandJournal::instance()->beginScript(); }

void scriptEnded(const QString &file, bool wasRun)
{
    if (wasRun)
        CommandJournal::instance()->endScript(file);
    else
        CommandJournal::instance()->dropScript();
}

void remark(const QString &text) { CommandJournal::instance()->remark(text); }

} // namespace journaling
