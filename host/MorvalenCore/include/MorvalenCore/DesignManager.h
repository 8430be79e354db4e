#pragma once

#include <MorvalenCore/BuildOptions.h>
#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/MorvalenCoreExport.h>

#include <Qtilities/FactoryItem.h>
#include <Qtilities/FactoryItemID.h>
#include <Qtilities/Status.h>

#include <QHash>

namespace MorvalenCore {

// The open designs, their types, and where they are kept. One per process. A manager has designs
// and knows the active ones; what else it leaves out it refuses, with a sentence that says so.
class MORVALENCORE_EXPORT DesignManager : public QObject
{
    Q_OBJECT

public:
    using ObjectFactory = Qtilities::Core::FactoryInterface<QObject>;

    enum PathKind { BackupsPath = 0, DesignsPath = 1 };

    // Why the manager is told to prepare for the end of the program.
    enum ShutdownReason { ProgramClosed = 0, QuitCommand = 1 };

    explicit DesignManager(QObject *parent = nullptr);
    ~DesignManager() override;

    // The manager: the one that was set, else one made on first use.
    static DesignManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back. Factories are
    // registered with the manager of the time: a warning names the script types that the new one
    // cannot run.
    static void setInstance(DesignManager *manager);

    // Ids of the open designs in the order of opening, and the design of an id, or null.
    virtual QStringList openDesignIds() const = 0;
    virtual Interfaces::IDesign *design(const QString &id) const = 0;

    // The active designs; an entry is null when its design is gone.
    virtual QList<Interfaces::IDesign *> activeDesigns() const = 0;
    virtual void setActiveDesign(const QString &id) = 0;

    virtual QStringList designTypes() const { return {}; }

    // The default folder of a kind, absolute: that of the session.
    virtual QString path(PathKind kind) const;

    // The file of the application's settings, in the form of QSettings' INI format.
    virtual QString settingsFileName() const;

    // Whether a design may have that name. A design that is given may keep its own name, and gets
    // no other while it is read-only.
    virtual Qtilities::Core::Status
    tryDesignName(const QString &name, const Interfaces::IDesign *renamed = nullptr) const;

    // Adds a design to the open ones and takes ownership of the object behind it; it stays the
    // caller's when one of its id is open.
    virtual Qtilities::Core::Status tryAttachDesign(Interfaces::IDesign *design, bool makeActive);

    // Opens a design from a file.
    virtual Qtilities::Core::Result<Interfaces::IDesign *>
    tryParseDesignFromFile(const QString &fileName);

    // Writes a copy of a design to a file; the design does not move.
    virtual Qtilities::Core::Status tryParseDesignToFile(Interfaces::IDesign *design,
                                                         const QString &fileName, bool overwrite);

    // Closes a design, saving unsaved changes; with deleteWorkingFolder the folder goes for good
    // when it lies below the designs path. Changes that cannot be saved in the component file go
    // to a copy in the backups folder, and a remark says so. A design that cannot be closed stays
    // open. A closed design is destroyed later, when no bracket of changes is open and control is
    // back in the event loop; its items go at once.
    virtual Qtilities::Core::Status tryCloseDesign(const QString &id, bool deleteWorkingFolder);
    // The same for several, with a status for each.
    virtual QList<Qtilities::Core::Status> tryCloseDesigns(const QStringList &ids,
                                                           bool deleteWorkingFolders);

    // Closes a design as its file is: changes that are not saved are gone, and nothing goes to the
    // backups. Refused while it is being built.
    virtual Qtilities::Core::Status tryDiscardDesign(const QString &id);

    // Writes a copy of a design as it is now to a new file in the backups folder, and returns its
    // path.
    virtual Qtilities::Core::Result<QString> tryBackUpDesign(Interfaces::IDesign *design);

    // Saves what must not be lost, as closing does; called before the program ends. A status for
    // each open design.
    virtual QList<Qtilities::Core::Status> tryPrepareForShutdown(int reason);

    // The same operations in the forms that commands call, with the reason of a failure in *error
    // where there is one, else in the log. The format is empty for the only one there is, and the
    // options and any position are 0. Warnings and errors are counted, and may be null. The reason
    // of the shutdown stays as it is.
    virtual bool checkDesignName(const QString &name, QString *error,
                                 const Interfaces::IDesign *renamed = nullptr) const;
    virtual bool attachDesign(Interfaces::IDesign *design, bool makeActive, int position);
    virtual Interfaces::IDesign *parseDesignFromFile(const QString &format,
                                                     const QString &fileName);
    virtual bool parseDesignToFile(Interfaces::IDesign *design, const QString &fileName,
                                   const QString &format, int *warnings, int *errors, int options,
                                   bool overwrite);
    virtual bool closeDesign(const QString &id, bool deleteWorkingFolder);
    virtual bool closeDesigns(const QStringList &ids, bool deleteWorkingFolders);
    virtual void prepareForShutdown(int &reason);

    // Builds configurations, each of another design, and returns when all builds have ended,
    // whether all ended well; the run states say how each did, and the log why. A host that cannot
    // do several at once runs one after the other.
    virtual bool build(const QList<BuildConfiguration *> &configurations,
                       const BuildOptions &options);

    // Makes a factory of objects known by a tag; it stays the caller's and must outlive the
    // manager. False when the tag is taken.
    virtual bool registerFactory(const ObjectFactory *factory,
                                 const Qtilities::Core::FactoryItemID &id);
    virtual const ObjectFactory *factory(const QString &tag) const;

    // The contexts in which extension widgets appear, the preferred one first.
    virtual QStringList extensionWidgetContexts() const { return {}; }

Q_SIGNALS:
    // Sent at once, or gathered while a ChangeBracket is open and sent once when it closes, in
    // the order below. A design that comes and goes within one bracket is not told of.
    void designClosed(const QString &id);
    void designIdChanged(const QString &oldId, const QString &newId);
    void designAttached(const QString &id);
    // Anything in the design or about it.
    void designChanged(const QString &id);
    void activeDesignChanged();

private:
    QHash<QString, const ObjectFactory *> factories;
};

} // namespace MorvalenCore
