#pragma once

#include "tests/fakes/FakeDesign.h"

#include <MorvalenCore/DesignManager.h>

// A design manager that owns fake designs and notes what is asked of it. It is no factory.
class FakeDesignManager : public MorvalenCore::DesignManager
{
public:
    using IDesign = MorvalenCore::Interfaces::IDesign;
    using Status = Qtilities::Core::Status;

    explicit FakeDesignManager(Journal &theJournal) : journal(theJournal) { }
    ~FakeDesignManager() override { qDeleteAll(open); }

    // Opens a design without noting it.
    FakeDesign *openDesign(const QString &name);

    QStringList openDesignIds() const override;
    IDesign *design(const QString &id) const override { return find(id); }
    QList<IDesign *> activeDesigns() const override { return active; }
    void setActiveDesign(const QString &id) override;
    QStringList designTypes() const override { return types; }
    QString path(PathKind kind) const override { return paths.value(kind); }
    QString settingsFileName() const override { return settingsFile; }
    bool checkDesignName(const QString &name, QString *error,
                         const IDesign *renamed) const override;
    bool attachDesign(IDesign *design, bool makeActive, int position) override;
    IDesign *parseDesignFromFile(const QString &format, const QString &fileName) override;
    bool parseDesignToFile(IDesign *design, const QString &fileName, const QString &format,
                           int *warnings, int *errors, int options, bool overwrite) override;
    bool closeDesign(const QString &id, bool deleteWorkingFolder) override;
    bool closeDesigns(const QStringList &ids, bool deleteWorkingFolders) override;
    void prepareForShutdown(int &reason) override;
    // For the window, which asks for the reason: the same calls.
    Status tryDesignName(const QString &name, const IDesign *renamed) const override;
    Status tryAttachDesign(IDesign *design, bool makeActive) override
    {
        return outcome(attachDesign(design, makeActive, 0));
    }
    Qtilities::Core::Result<IDesign *> tryParseDesignFromFile(const QString &fileName) override;
    Status tryParseDesignToFile(IDesign *design, const QString &fileName, bool overwrite) override;
    Status tryCloseDesign(const QString &id, bool deleteWorkingFolder) override
    {
        return outcome(closeDesign(id, deleteWorkingFolder));
    }
    QList<Status> tryCloseDesigns(const QStringList &ids, bool deleteWorkingFolders) override
    {
        return {outcome(closeDesigns(ids, deleteWorkingFolders))};
    }
    QList<Status> tryPrepareForShutdown(int reason) override;
    bool registerFactory(const ObjectFactory *, const Qtilities::Core::FactoryItemID &) override
    {
        return false;
    }
    const ObjectFactory *factory(const QString &) const override { return nullptr; }
    QStringList extensionWidgetContexts() const override { return {}; }

    QList<FakeDesign *> open;
    QList<IDesign *> active;
    QStringList types = {QStringLiteral("Custom Design"), QStringLiteral("Hardware Design")};
    QHash<int, QString> paths;
    QString settingsFile;
    // What the manager says of a name that it refuses.
    QString refusal = QStringLiteral("The name cannot be used");

private:
    static Status outcome(bool done)
    {
        return done ? Status() : Status::failed(QStringLiteral("The manager refuses it"));
    }
    FakeDesign *find(const QString &id) const;

    Journal &journal;
};
