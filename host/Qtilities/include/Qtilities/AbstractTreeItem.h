#pragma once

#include <Qtilities/IObjectBase.h>
#include <Qtilities/Observer.h>
#include <Qtilities/QtilitiesCategory.h>

namespace Qtilities::CoreGui {

// An item of a tree: an object with a name and a category.
class QTILITIES_EXPORT AbstractTreeItem : public QObject,
                                          virtual public Core::Interfaces::IObjectBase
{
    Q_OBJECT

public:
    explicit AbstractTreeItem(QObject *parent = nullptr);
    ~AbstractTreeItem() override;

    // The name under which the item is known in a context; a null context asks for its own name.
    virtual QString getName(const Core::Observer *context = nullptr) const;

    // Renames the item. False, with the name unchanged, when the item refuses the name.
    virtual bool setName(const QString &name, Core::Observer *context = nullptr);

    virtual Core::QtilitiesCategory category() const = 0;

    // False, with the category unchanged, when the item refuses it.
    virtual bool setCategory(const Core::QtilitiesCategory &category) = 0;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }
};

} // namespace Qtilities::CoreGui
