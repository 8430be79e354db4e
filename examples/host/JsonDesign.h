#pragma once

#include <MorvalenCore/IDesign.h>

#include <QJsonObject>

class JsonDesignManager;

// A design as the JSON file has it: an identity of three texts, files, and properties. It has no
// folders and no builds, and says so to who wants some.
class JsonDesign : public QObject, public MorvalenCore::Interfaces::IDesign
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign)

public:
    JsonDesign(const JsonDesignManager &theManager, const QJsonObject &object);
    QJsonObject toJson() const;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    QString name() const override { return text("name"); }
    QString vendor() const override { return text("vendor"); }
    QString library() const override { return text("library"); }
    Status trySetName(const QString &name) override { return set("name", name); }
    Status trySetVendor(const QString &vendor) override { return set("vendor", vendor); }
    Status trySetLibrary(const QString &library) override { return set("library", library); }
    QString workingFolderPath() const override;
    // All designs work in the folder of the file.
    Status tryAssignPhysicalWorkingFolderPath(const QString &) override { return {}; }
    Status trySetStructureId(const QString &) override { return {}; }
    QString componentFileName() const override;
    Status trySaveToComponentFile() override;

    Result<MorvalenCore::DesignFile *> tryAddFile(const QString &path, const QString &node,
                                                  bool notify) override;
    Status tryRemoveFile(const QString &path) override;
    QList<MorvalenCore::DesignFile *> filesUnderNode(const QString &node, bool) const override
    {
        return node.isEmpty() ? files : QList<MorvalenCore::DesignFile *>();
    }

    Result<MorvalenCore::DesignProperty *>
    tryAddProperty(const QString &name, const Qtilities::Core::QtilitiesCategory &category,
                   const QVariant &value, bool readOnly) override;
    Status tryRemoveProperty(const QString &name) override;
    QList<MorvalenCore::DesignProperty *> properties() const override { return allProperties; }

private:
    QString text(const char *key) const { return texts[QLatin1StringView(key)].toString(); }
    Status set(const char *key, const QString &text);
    QString absolute(const QString &path) const;

    const JsonDesignManager &manager;
    QJsonObject texts;
    QList<MorvalenCore::DesignFile *> files;
    QList<MorvalenCore::DesignProperty *> allProperties;
};
