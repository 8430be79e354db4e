#pragma once

#include <Qtilities/AbstractTreeItem.h>
#include <Qtilities/IExportable.h>
#include <Qtilities/IModificationNotifier.h>

namespace Qtilities::CoreGui {

// A tree item that can be exported and tells when it has changed.
class QTILITIES_EXPORT TreeItemBase : public AbstractTreeItem,
                                      public Core::Interfaces::IExportable,
                                      public Core::Interfaces::IModificationNotifier
{
    Q_OBJECT

public:
    explicit TreeItemBase(QObject *parent = nullptr);
    ~TreeItemBase() override;

    Core::QtilitiesCategory category() const override { return itemCategory; }
    Core::Status trySetCategory(const Core::QtilitiesCategory &category) override;

    bool isModified() const override { return modified; }
    void setModificationState(bool state) override;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

Q_SIGNALS:
    void modificationStateChanged(bool modified);

private:
    Core::QtilitiesCategory itemCategory;
    bool modified = false;
};

} // namespace Qtilities::CoreGui
