#pragma once

#include "design/DesignRegistry.h"
#include "designs/ClosedDesigns.h"
#include "designs/DesignAnnouncements.h"
#include "designs/DesignFactory.h"
#include "designs/OpenDesigns.h"

#include <MorvalenCore/DesignManager.h>

#include <Qtilities/ObjectManager.h>
#include <Qtilities/Status.h>

#include <memory>

namespace MorvalenCore {

class Design;

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
    QString path(PathKind kind) const override;
    QString settingsFileName() const override;
    bool checkDesignName(const QString &name, QString *error,
                         const Interfaces::IDesign *renamed) const override;
    bool attachDesign(Interfaces::IDesign *design, bool makeActive, int position) override;
    Interfaces::IDesign *parseDesignFromFile(const QString &format,
                                             const QString &fileName) override;
    bool parseDesignToFile(Interfaces::IDesign *design, const QString &fileName,
                           const QString &format, int *warnings, int *errors, int options,
                           bool overwrite) override;
    bool closeDesign(const QString &id, bool deleteWorkingFolder) override;
    bool closeDesigns(const QStringList &ids, bool deleteWorkingFolders) override;
    void prepareForShutdown(int &reason) override;
    bool registerFactory(const ObjectFactory *factory,
                         const Qtilities::Core::FactoryItemID &id) override;
    const ObjectFactory *factory(const QString &tag) const override;
    QStringList extensionWidgetContexts() const override;

private:
    QString idRefusal(const QString &id) const override;
    void designIdChanged(Interfaces::IDesign *design, const QString &oldId) override;
    void designChanged(Interfaces::IDesign *design) override;

    void forget(Interfaces::IDesign *design);
    Qtilities::Core::Result<std::unique_ptr<Design>> openDesign(const QString &fileName) const;
    Qtilities::Core::Status writeCopy(Interfaces::IDesign *design, const QString &fileName,
                                      bool overwrite) const;

    OpenDesigns open;
    ClosedDesigns closed;
    DesignAnnouncements announcements {this};
    DesignFactory designFactory;
    QPointer<Qtilities::Core::ObjectManager> objectManager;
};

} // namespace MorvalenCore
