#include "tests/fakes/FakeDesignManager.h"

using namespace Qt::Literals::StringLiterals;

FakeDesign *FakeDesignManager::openDesign(const QString &name)
{
    open.append(new FakeDesign(journal, name));
    return open.last();
}

FakeDesign *FakeDesignManager::find(const QString &id) const
{
    for (FakeDesign *candidate : open) {
        if (candidate->id(u"."_s) == id)
            return candidate;
    }
    return nullptr;
}

QStringList FakeDesignManager::openDesignIds() const
{
    QStringList ids;
    for (const FakeDesign *candidate : open)
        ids.append(candidate->id(u"."_s));
    return ids;
}

void FakeDesignManager::setActiveDesign(const QString &id)
{
    journal.perform(callText("manager.setActiveDesign", {id}), [&] { active = {find(id)}; });
}

bool FakeDesignManager::checkDesignName(const QString &name, QString *error,
                                        const IDesign *renamed) const
{
    const bool good = journal.perform(callText(
        "manager.checkDesignName", {name, renamed ? renamed->name() : QStringLiteral("new")}));
    if (!good)
        *error = refusal;
    return good;
}

bool FakeDesignManager::attachDesign(IDesign *design, bool makeActive, int position)
{
    const QString call = callText(
        "manager.attachDesign", {design->name(), callWord(makeActive), QString::number(position)});
    return journal.perform(call,
                           [&] { open.append(static_cast<FakeDesign *>(design->objectBase())); });
}

FakeDesignManager::IDesign *FakeDesignManager::parseDesignFromFile(const QString &format,
                                                                   const QString &fileName)
{
    IDesign *parsed = nullptr;
    journal.perform(callText("manager.parseDesignFromFile", {format, fileName}),
                    [&] { parsed = openDesign(fileName); });
    return parsed;
}

bool FakeDesignManager::parseDesignToFile(IDesign *design, const QString &fileName,
                                          const QString &format, int *warnings, int *errors,
                                          int options, bool overwrite)
{
    *warnings = 0;
    *errors = 0;
    return journal.perform(callText(
        "manager.parseDesignToFile",
        {design->name(), fileName, format, QString::number(options), callWord(overwrite)}));
}

bool FakeDesignManager::closeDesign(const QString &id, bool deleteWorkingFolder)
{
    return journal.perform(callText("manager.closeDesign", {id, callWord(deleteWorkingFolder)}),
                           [&] {
                               FakeDesign *closed = find(id);
                               open.removeOne(closed);
                               active.removeOne(closed);
                               delete closed;
                           });
}

bool FakeDesignManager::closeDesigns(const QStringList &ids, bool deleteWorkingFolders)
{
    return journal.perform(
        callText("manager.closeDesigns", {ids.join(u' '), callWord(deleteWorkingFolders)}), [&] {
            active.clear();
            qDeleteAll(open);
            open.clear();
        });
}

void FakeDesignManager::prepareForShutdown(int &reason)
{
    journal.perform(callText("manager.prepareForShutdown", {QString::number(reason)}));
}

FakeDesignManager::Status FakeDesignManager::tryDesignName(const QString &name,
                                                           const IDesign *renamed) const
{
    QString error;
    return checkDesignName(name, &error, renamed) ? Status() : Status::invalidArgument(error);
}

Qtilities::Core::Result<FakeDesignManager::IDesign *>
FakeDesignManager::tryParseDesignFromFile(const QString &fileName)
{
    IDesign *const parsed = parseDesignFromFile({}, fileName);
    if (!parsed)
        return outcome(false);
    return parsed;
}

FakeDesignManager::Status
FakeDesignManager::tryParseDesignToFile(IDesign *design, const QString &fileName, bool overwrite)
{
    int warnings = 0;
    int errors = 0;
    return outcome(parseDesignToFile(design, fileName, {}, &warnings, &errors, 0, overwrite));
}

QList<FakeDesignManager::Status> FakeDesignManager::tryPrepareForShutdown(int reason)
{
    prepareForShutdown(reason);
    return {};
}
