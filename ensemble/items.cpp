#include "ensemble/items.h"

#include "ensemble/designs.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/IDesignEditing.h>
#include <Qtilities/categorytext.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::DesignProperty;
using MorvalenCore::Interfaces::IDesignEditing;
using Qtilities::Core::QtilitiesCategory;

namespace ensemble {

namespace {

// Paths are handed back with the platform's separators.
QString shown(const QString &path) { return QDir::toNativeSeparators(path); }

// A node that is not there yet is made.
Answer addFile(const Call &call)
{
    return changeDesign(call, [&call](IDesign &design) {
        const auto added =
            design.tryAddFile(call.argument(0), call.text("-node").value_or(QString()), true);
        return added.isOk() ? Answer(shown(added.value()->actualPath()))
                            : Answer::of(added.status());
    });
}

// What only some designs offer.
Answer editDesign(const Call &call, const std::function<Status(IDesignEditing &)> &step)
{
    return changeDesign(call, [&step](IDesign &design) {
        auto *editing = qobject_cast<IDesignEditing *>(design.objectBase());
        return editing
            ? Answer::of(step(*editing))
            : Answer::failure(kind::refused,
                              u"The design \"%1\" does not offer that"_s.arg(design.name()));
    });
}

Answer renameFile(const Call &call)
{
    return editDesign(call, [&call](IDesignEditing &editing) {
        return editing.tryRenameFile(call.argument(0), call.argument(1));
    });
}

Answer moveFile(const Call &call)
{
    return editDesign(call, [&call](IDesignEditing &editing) {
        return editing.tryMoveFile(call.argument(0), call.argument(1));
    });
}

struct RestoreRow
{
    const char *word;
    Status (IDesignEditing::*restore)(const QString &item);
};

constexpr RestoreRow restoreRows[] = {
    {"files", &IDesignEditing::tryRestoreFile},
    {"folders", &IDesignEditing::tryRestoreFolder},
    {"properties", &IDesignEditing::tryRestoreProperty},
};

constexpr Option addFileOptions[] = {{"-node", "NODE"}, designOption};

constexpr Option fileOptions[] = {designOption};

constexpr Row rowsOfFile[] = {
    {.word = "add",
     .arguments = "PATH",
     .options = addFileOptions,
     .does = "adds a file, to a node of its own choice or to that one",
     .step = addFile},
    {.word = "rename",
     .arguments = "PATH NEWPATH",
     .options = fileOptions,
     .does = "gives a file another path on disk, in the design and in its build configurations",
     .step = renameFile},
    {.word = "move",
     .arguments = "PATH NODE",
     .options = fileOptions,
     .does = "moves a file to another node",
     .step = moveFile},
};

constexpr Option filesOptionRows[] = {{"-node", "NODE"}, {"-category", "CATEGORY"}, designOption};

// A category holds what is below it; the empty one, what has none.
bool isIn(const std::optional<QString> &category, const DesignFile &file)
{
    if (!category)
        return true;
    const auto wanted = Qtilities::Core::categoryFrom(*category);
    return wanted.isEmpty() ? file.category().isEmpty() : wanted.contains(file.category());
}

} // namespace

constinit const Options filesOptions = filesOptionRows;
constinit const Rows fileRows = rowsOfFile;

Answer restore(const Call &call)
{
    const QString wanted = call.argument(0);
    for (const RestoreRow &row : restoreRows) {
        if (wanted == QLatin1StringView(row.word))
            return editDesign(call, [&call, &row](IDesignEditing &editing) {
                return (editing.*row.restore)(call.argument(1));
            });
    }
    return Answer::failure(
        kind::invalid, u"unknown kind \"%1\": must be files, folders or properties"_s.arg(wanted));
}

Answer listDesigns(const Call &)
{
    return Value::list(MorvalenCore::DesignManager::instance()->openDesignIds());
}

Answer listFiles(const Call &call)
{
    return onDesign(call, [&call](const IDesign &design) {
        const QString node = call.text("-node").value_or(QString());
        if (call.has("-node") && !design.hasNode(node))
            return Answer::failure(
                kind::missing, u"The design \"%1\" has no node \"%2\""_s.arg(design.name(), node));
        const auto category = call.text("-category");
        Value paths = Value::list();
        for (const DesignFile *file : design.filesUnderNode(node, true)) {
            if (isIn(category, *file))
                paths.append(Value(shown(file->actualPath())));
        }
        return Answer(paths);
    });
}

Answer listFolders(const Call &call)
{
    return onDesign(call, [](const IDesign &design) {
        Value paths = Value::list();
        for (const DesignFolder *folder : design.folders())
            paths.append(Value(shown(folder->actualPath())));
        return Answer(paths);
    });
}

Answer listNodes(const Call &call)
{
    return onDesign(call, [](const IDesign &design) { return Value::list(design.nodeNames()); });
}

Answer listProperties(const Call &call)
{
    return onDesign(call, [](const IDesign &design) {
        Value values = Value::dictionary();
        for (const DesignProperty *property : design.properties())
            values.set(property->getName(), property->propertyData().value().toString());
        return Answer(values);
    });
}

} // namespace ensemble
