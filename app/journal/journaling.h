#pragma once

#include <MorvalenCore/IDesign.h>

// What the window has done, told to the journal; each is the command that does it. Told when it has
// been done.
namespace journaling {

using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildDescription;
using MorvalenCore::Interfaces::IDesign;

QString idOf(const IDesign &design);

// Designs. The active one is told of where a command would work on another one otherwise.
void made(const QStringList &words);
void opened(const QString &file, bool isProject);
void activated(const QString &designId);
void saved(const IDesign &design);
void copied(const IDesign &design, const QString &file);
void givenUp(const QString &designId);
void closed(const QString &designId, bool deleted);
void reloaded(const QString &designId);
// A field of "design set"; the design had the other id before.
void identity(const IDesign &design, const QString &oldId, const QString &field,
              const QString &text);
void cleaned(const IDesign &design, bool allVersions);

// Projects; a file that is empty is the project's own.
void projectMade();
void projectSaved(const QString &file);
void projectClosed();

// Items: of "files", "folders" or "properties", by path or name.
void fileAdded(const IDesign &design, const QString &path, const QString &node);
void fileMade(const IDesign &design, const QString &path);
void fileRenamed(const IDesign &design, const QString &path, const QString &newPath);
void fileMoved(const IDesign &design, const QString &path, const QString &node);
void itemRestored(const IDesign &design, const QString &kind, const QString &item);
void folderAdded(const IDesign &design, const QString &path);
void propertySet(const IDesign &design, const QString &name, const QVariant &value);
void propertyAdded(const IDesign &design, const QString &name, const QVariant &value,
                   const QString &category, bool readOnly);
void itemActivated(const IDesign &design, const QString &kind, const QString &item);
void itemRemoved(const IDesign &design, const QString &kind, const QString &item);
void itemDeleted(const IDesign &design, const QString &kind, const QString &item);
void categorySet(const IDesign &design, const QString &kind, const QString &item,
                 const QString &category);
void sharedSet(const IDesign &design, const QString &kind, const QString &item, const QString &name,
               const QVariant &value);
void sharedRemoved(const IDesign &design, const QString &kind, const QString &item,
                   const QString &name);

// Build configurations.
void configurationAdded(const IDesign &design, const QString &name);
void configurationRenamed(const IDesign &design, const QString &oldName, const QString &name);
void configurationRemoved(const IDesign &design, const QString &name);
void configurationActivated(const IDesign &design, const QString &name);
void configurationDescribed(const IDesign &design, const QString &oldName,
                            const BuildDescription &description);
void built(const BuildConfiguration &configuration, bool onlyOutdated);

// A script that is run by itself: before, and afterwards, if it was.
void scriptBegins();
void scriptEnded(const QString &file, bool wasRun);

// What no command says.
void remark(const QString &text);

} // namespace journaling
