#pragma once

#include <QObject>

#include <memory>
#include <vector>

namespace MorvalenCore {

// Keeps closed designs until nobody can be at work with them: a script may close the design that
// one of its own commands is changing. They are destroyed when control is back in the event loop
// and no bracket of changes is open; or when another one is closed, those that were closed before
// all brackets were closed: what was at work with them has ended, and scripts that close thousands
// need not let the event loop run. One per design manager, part of it.
class ClosedDesigns : public QObject
{
    Q_OBJECT

public:
    void keep(std::unique_ptr<QObject> design);

private:
    void noteEndOfCommands();
    void destroySettled();
    void destroyLater();
    void destroyOrWait();

    std::vector<std::unique_ptr<QObject>> designs;
    // So many of them were closed by commands that have ended.
    std::size_t settled = 0;
    bool awaitsEventLoop = false;
};

} // namespace MorvalenCore
