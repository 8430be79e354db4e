#include "tests/fakes/FakeDesign.h"

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using Qtilities::Core::Status;

namespace {

template <typename Items, typename Matches>
auto *firstOf(const Items &items, const Matches &matches)
{
    const auto found = std::find_if(items.begin(), items.end(), matches);
    return found == items.end() ? nullptr : *found;
}

auto hasPath(const QString &path)
{
    return [path](const auto *item) { return item->path == path; };
}

auto hasName(const QString &name)
{
    return [name](const auto *item) { return item->name == name; };
}

template <typename Items, typename Matches>
void eraseFirst(Items &items, const Matches &matches)
{
    auto *item = firstOf(items, matches);
    items.removeOne(item);
    delete item;
}

template <typename Item, typename Text>
QString textOf(const QList<QPointer<Item>> &items, const Text &text)
{
    QStringList all;
    for (const QPointer<Item> &item : items)
        all.append(text(*item));
    return all.join(u' ');
}

} // namespace

FakeDesign::FakeDesign(Journal &theJournal, const QString &name)
    : theName(name),
      journal(theJournal)
{
}

FakeDesign::~FakeDesign()
{
    qDeleteAll(allFiles);
    qDeleteAll(allFolders);
    qDeleteAll(allProperties);
    qDeleteAll(allConfigurations);
}

FakeDesignFile *FakeDesign::file(const QString &path, const QString &node)
{
    allFiles.append(new FakeDesignFile(journal, path, node));
    return allFiles.last();
}

FakeDesignFolder *FakeDesign::folder(const QString &path)
{
    allFolders.append(new FakeDesignFolder(journal, path));
    return allFolders.last();
}

FakeDesignProperty *FakeDesign::property(const QString &name, const QVariant &value)
{
    allProperties.append(new FakeDesignProperty(journal, name, value));
    return allProperties.last();
}

FakeBuildConfiguration *FakeDesign::configuration(const QString &name)
{
    allConfigurations.append(new FakeBuildConfiguration(journal, name));
    return allConfigurations.last();
}

QString FakeDesign::version(const QString &separator) const
{
    return QString(theVersion).replace(u'/', separator);
}

QString FakeDesign::id(const QString &separator) const
{
    return QStringList {theVendor, theLibrary, theName, version(separator)}.join(separator);
}

void FakeDesign::setName(const QString &name)
{
    journal.perform(callText("design.setName", {name}), [&] { theName = name; });
}

void FakeDesign::setVendor(const QString &vendor)
{
    journal.perform(callText("design.setVendor", {vendor}), [&] { theVendor = vendor; });
}

void FakeDesign::setLibrary(const QString &library)
{
    journal.perform(callText("design.setLibrary", {library}), [&] { theLibrary = library; });
}

Status FakeDesign::setVersion(const QString &version)
{
    return journal.perform(callText("design.setVersion", {version}), [&] { theVersion = version; })
        ? Status()
        : Status::invalidArgument(refusal);
}

Status FakeDesign::reloadComponentFile()
{
    return journal.perform(callText("design.reloadComponentFile"), [&] { modified = false; })
        ? Status()
        : Status::malformed(refusal);
}

Qtilities::Core::Result<BuildConfiguration *>
FakeDesign::tryAddBuildConfiguration(const QString &name)
{
    const bool added = journal.perform(callText("design.addBuildConfiguration", {name}),
                                       [&] { configuration(name)->data.name = name; });
    if (!added)
        return Status::invalidArgument(refusal);
    return static_cast<BuildConfiguration *>(allConfigurations.last());
}

Status FakeDesign::tryRemoveBuildConfiguration(const QString &name)
{
    return journal.perform(callText("design.removeBuildConfiguration", {name}),
                           [&] { eraseFirst(allConfigurations, hasName(name)); })
        ? Status()
        : Status::invalidArgument(refusal);
}

void FakeDesign::setStructureId(const QString &id)
{
    journal.perform(callText("design.setStructureId", {id}), [&] { structure = id; });
}

void FakeDesign::setDescription(const QString &description)
{
    journal.perform(callText("design.setDescription", {description}),
                    [&] { theDescription = description; });
}

void FakeDesign::setAuthor(const QString &author)
{
    journal.perform(callText("design.setAuthor", {author}), [&] { theAuthor = author; });
}

void FakeDesign::setReadOnly(bool flag)
{
    journal.perform(callText("design.setReadOnly", {callWord(flag)}), [&] { readOnly = flag; });
}

void FakeDesign::setBusy(bool flag, const QString &reason, bool notify)
{
    journal.perform(callText("design.setBusy", {callWord(flag), reason, callWord(notify)}),
                    [&] { busy = flag; });
}

void FakeDesign::startProcessingCycle()
{
    journal.perform(callText("design.startProcessingCycle"));
}

void FakeDesign::endProcessingCycle(bool notify)
{
    journal.perform(callText("design.endProcessingCycle", {callWord(notify)}));
}

bool FakeDesign::assignPhysicalWorkingFolderPath(const QString &path)
{
    return journal.perform(callText("design.assignPhysicalWorkingFolderPath", {path}),
                           [&] { folderPath = path; });
}

bool FakeDesign::saveToComponentFile(QString *error)
{
    const QString why = refusal;
    const bool saved = journal.perform(callText("design.saveToComponentFile"));
    if (!saved)
        *error = why;
    return saved;
}

DesignFile *FakeDesign::fileByActualPath(const QString &path, bool byNameOnly) const
{
    journal.perform(callText("design.fileByActualPath", {path, callWord(byNameOnly)}));
    return firstOf(allFiles, hasPath(path));
}

DesignFile *FakeDesign::addFile(const QString &actualPath, const QString &node, bool notify,
                                QString *error)
{
    DesignFile *added = nullptr;
    const QString why = refusal;
    if (!journal.perform(callText("design.addFile", {actualPath, node, callWord(notify)}),
                         [&] { added = file(actualPath, node); })) {
        *error = why;
    }
    return added;
}

bool FakeDesign::removeFile(const QString &actualPath)
{
    return journal.perform(callText("design.removeFile", {actualPath}),
                           [&] { eraseFirst(allFiles, hasPath(actualPath)); });
}

QList<DesignFile *> FakeDesign::filesUnderNode(const QString &node, bool recursive) const
{
    journal.perform(callText("design.filesUnderNode", {node, callWord(recursive)}));
    QList<DesignFile *> found;
    for (FakeDesignFile *candidate : allFiles) {
        if (node.isEmpty() || candidate->nodeName == node)
            found.append(candidate);
    }
    return found;
}

void FakeDesign::setActiveFiles(const QList<QPointer<DesignFile>> &files)
{
    const QString paths = textOf(files, [](const auto &item) { return item.actualPath(); });
    journal.perform(callText("design.setActiveFiles", {paths}), [&] { filesActive = files; });
}

DesignFolder *FakeDesign::folderByActualPath(const QString &path) const
{
    journal.perform(callText("design.folderByActualPath", {path}));
    return firstOf(allFolders, hasPath(path));
}

DesignFolder *FakeDesign::addFolder(const QString &actualPath, QString *error)
{
    DesignFolder *added = nullptr;
    const QString why = refusal;
    if (!journal.perform(callText("design.addFolder", {actualPath}),
                         [&] { added = folder(actualPath); })) {
        *error = why;
    }
    return added;
}

bool FakeDesign::removeFolder(const QString &actualPath)
{
    return journal.perform(callText("design.removeFolder", {actualPath}),
                           [&] { eraseFirst(allFolders, hasPath(actualPath)); });
}

QList<DesignFolder *> FakeDesign::folders() const { return {allFolders.begin(), allFolders.end()}; }

void FakeDesign::setActiveFolders(const QList<QPointer<DesignFolder>> &folders)
{
    const QString paths = textOf(folders, [](const auto &item) { return item.actualPath(); });
    journal.perform(callText("design.setActiveFolders", {paths}), [&] { foldersActive = folders; });
}

DesignProperty *FakeDesign::propertyByName(const QString &name) const
{
    journal.perform(callText("design.propertyByName", {name}));
    return firstOf(allProperties, hasName(name));
}

DesignProperty *FakeDesign::addProperty(const QString &name,
                                        const Qtilities::Core::QtilitiesCategory &category,
                                        const QVariant &value, bool flag, QString *error)
{
    DesignProperty *added = nullptr;
    const QString why = refusal;
    const QString call =
        callText("design.addProperty",
                 {name, category.toString(u"/"_s), QString::fromLatin1(value.typeName()),
                  value.toString(), callWord(flag)});
    if (!journal.perform(call, [&] { added = property(name, value); }))
        *error = why;
    return added;
}

bool FakeDesign::removeProperty(const QString &name)
{
    return journal.perform(callText("design.removeProperty", {name}),
                           [&] { eraseFirst(allProperties, hasName(name)); });
}

QList<DesignProperty *> FakeDesign::properties() const
{
    return {allProperties.begin(), allProperties.end()};
}

void FakeDesign::setActiveProperties(const QList<QPointer<DesignProperty>> &properties)
{
    const QString names = textOf(properties, [](const auto &item) { return item.getName(); });
    journal.perform(callText("design.setActiveProperties", {names}),
                    [&] { propertiesActive = properties; });
}

QStringList FakeDesign::buildConfigurationNames() const
{
    QStringList names;
    for (const FakeBuildConfiguration *candidate : allConfigurations)
        names.append(candidate->name);
    return names;
}

BuildConfiguration *FakeDesign::buildConfiguration(const QString &name) const
{
    return firstOf(allConfigurations, hasName(name));
}

void FakeDesign::setActiveBuildConfiguration(BuildConfiguration *configuration)
{
    const QString which = configuration ? configuration->configurationName() : u"null"_s;
    journal.perform(callText("design.setActiveBuildConfiguration", {which}), [&] {
        if (configuration)
            configurationActive = configuration;
    });
}
