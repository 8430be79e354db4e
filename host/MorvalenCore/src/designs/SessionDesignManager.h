#pragma once

#include "design/DesignRegistry.h"
#include "designs/ClosedDesigns.h"
#include "designs/DesignAnnouncements.h"
#include "designs/DesignFactory.h"
#include "designs/OpenDesigns.h"

#include <MorvalenCore/DesignManager.h>

#include <Qtilities/ObjectManager.h>

namespace MorvalenCore {

// Keeps the designs of a session: new ones in the session folder, others where they lie. Open
// designs belong to it and go with it, unsaved.
class SessionDesignManager final : public DesignManager, private DesignRegistry
{
    Q_OBJECT

public:
    explicit SessionDesignManager(QObject *parent = nullptr);
    ~SessionDesignManager() override;

    QStringList openDesignIds() const override;
    Interfaces::IDesign *design(const QString &id) const override;
    QList<Interfaces::IDesign *> activeDesigns() const override;
    void setActiveDesign(const QString &id) override;
    QStringList designTypes() const override;
    Qtilities::Core::Status tryDesignName(const QString &name,
                                          const Interfaces::IDesign *renamed) const override;
    Qtilities::Core::Status tryAttachDesign(Interfaces::IDesign *design, bool makeActive) override;
    Qtilities::Core::Result<Interfaces::IDesign *>
    tryParseDesignFromFile(const QString &fileName) override;
    Qtilities::Core::Status tryParseDesignToFile(Interfaces::IDesign *design,
                                                 const QString &fileName, bool overwrite) override;
    Qtilities::Core::Status tryCloseDesign(const QString &id, bool deleteWorkingFolder) override;
    Qtilities::Core::Status tryDiscardDesign(const QString &id) override;
    Qtilities::Core::Result<QString> tryBackUpDesign(Interfaces::IDesign *design) override;
    QList<Qtilities::Core::Status> tryPrepareForShutdown(int reason) override;
    bool build(const QList<BuildConfiguration *> &configurations,
               const BuildOptions &options) override;
    bool registerFactory(const ObjectFactory *factory,
                         const Qtilities::Core::FactoryItemID &id) override;
    const ObjectFactory *factory(const QString &tag) const override;
    QStringList extensionWidgetContexts() const override;

private:
    Qtilities::Core::Status checkId(const QString &id) const override;
    void designIdChanged(Interfaces::IDesign *design, const QString &oldId) override;
    void designChanged(Interfaces::IDesign *design) override;

    void forget(Interfaces::IDesign *design);
    void letGo(Interfaces::IDesign *design);

    OpenDesigns open;
    ClosedDesigns closed;
    DesignAnnouncements announcements {this};
    DesignFactory designFactory;
    // By the command "quit", and nothing has changed since.
    bool isPreparedToQuit = false;
    QPointer<Qtilities::Core::ObjectManager> objectManager;
};

} // namespace MorvalenCore
