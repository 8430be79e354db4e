#pragma once

#include <Qtilities/IObjectBase.h>
#include <Qtilities/Observer.h>
#include <Qtilities/QtilitiesCategory.h>
#include <Qtilities/Status.h>

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

    // Renames the item, unless it refuses the name. A class that overrides one of the two overrides
    // the other: an item with a name of its own is not renamed here, and the status says so.
    virtual Core::Status trySetName(const QString &name);
    // The same for callers that can only take a bool; a warning in the log says why.
    virtual bool setName(const QString &name, Core::Observer *context = nullptr);

    virtual Core::QtilitiesCategory category() const { return {}; }

    // Changes the category, unless the item refuses it.
    virtual Core::Status trySetCategory(const Core::QtilitiesCategory &category);
    // The same for callers that can only take a bool; a warning in the log says why.
    virtual bool setCategory(const Core::QtilitiesCategory &category);

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }
};

} // namespace Qtilities::CoreGui
