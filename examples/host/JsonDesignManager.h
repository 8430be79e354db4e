#pragma once

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/IFactoryProvider.h>

#include <QJsonArray>
#include <QPointer>

class JsonDesign;

// The designs of one JSON file: an array of objects. It is the factory of new designs, too.
class JsonDesignManager : public MorvalenCore::DesignManager,
                          public Qtilities::Core::Interfaces::IFactoryProvider
{
    Q_OBJECT

public:
    using Status = Qtilities::Core::Status;
    using IDesign = MorvalenCore::Interfaces::IDesign;

    explicit JsonDesignManager(const QString &fileName) : file(fileName) { }

    QString fileName() const { return file; }
    // Opens the designs of the file; there are none when it is not there.
    Status read();
    // Saves all designs, the closed ones as they were.
    Status write() const;

    QStringList openDesignIds() const override;
    IDesign *design(const QString &id) const override;
    QList<IDesign *> activeDesigns() const override;
    void setActiveDesign(const QString &id) override;
    QStringList designTypes() const override { return {QStringLiteral("Custom Design")}; }
    Status tryAttachDesign(IDesign *design, bool makeActive) override;
    // A design that is closed with its folder is taken out of the file.
    Status tryCloseDesign(const QString &id, bool deleteWorkingFolder) override;
    QList<Status> tryPrepareForShutdown(int) override { return {write()}; }

    // The command for new designs looks for a factory of this name, and asks it for a design type.
    QString factoryName() const override { return QStringLiteral("Design Factory"); }
    QStringList instanceTags() const override { return designTypes(); }
    QObject *createInstance(const Qtilities::Core::InstanceFactoryInfo &info) override;

private:
    const QString file;
    QList<JsonDesign *> open;
    QJsonArray closed;
    QPointer<JsonDesign> active;
};
