#pragma once

#include <QObject>

#include <memory>
#include <vector>

namespace MorvalenCore {

// Keeps closed designs until nobody can be at work with them: a script may close the design that
// one of its own commands is changing. They are destroyed when control is back in the event loop
// and no bracket of changes is open. One per design manager, part of it.
class ClosedDesigns : public QObject
{
    Q_OBJECT

public:
    void keep(std::unique_ptr<QObject> design);

private:
    void destroyLater();
    void destroyOrWait();

    std::vector<std::unique_ptr<QObject>> designs;
};

} // namespace MorvalenCore
