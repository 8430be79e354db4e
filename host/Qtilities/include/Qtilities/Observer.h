#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QObject>

namespace Qtilities::Core {

// The context in which a tree item is known under a name. A null one stands for all.
class QTILITIES_EXPORT Observer : public QObject
{
    Q_OBJECT

public:
    explicit Observer(const QString &name, QObject *parent = nullptr);
    ~Observer() override;
};

} // namespace Qtilities::Core
