#pragma once

#include <Qtilities/AbstractTreeItem.h>

namespace Qtilities::CoreGui {

// A tree item that stands for a path on disk, which need not exist.
class QTILITIES_EXPORT TreeFileItem : public AbstractTreeItem
{
    Q_OBJECT

public:
    explicit TreeFileItem(QObject *parent = nullptr);
    ~TreeFileItem() override;

    // The absolute, clean path.
    virtual QString actualPath() const = 0;

    // Moves the item to another path, unless it refuses.
    virtual Core::Status trySetActualPath(const QString &path);
    // The same for callers that take no answer; a warning in the log says why.
    virtual void setActualPath(const QString &path);

    // The last part of the actual path.
    virtual QString fileName() const;
};

} // namespace Qtilities::CoreGui
