#include "designs/ClosedDesigns.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QMetaObject>

#include <iterator>
#include <utility>

namespace MorvalenCore {

void ClosedDesigns::keep(std::unique_ptr<QObject> design)
{
    destroySettled();
    connect(ChangeBracket::instance(), &ChangeBracket::closed, this,
            &ClosedDesigns::noteEndOfCommands, Qt::UniqueConnection);
    if (designs.empty() && !awaitsEventLoop)
        destroyLater();
    designs.push_back(std::move(design));
}

// The bracket also sends the signal while commands that take their time are under way.
void ClosedDesigns::noteEndOfCommands()
{
    if (ChangeBracket::instance()->depth() == 0)
        settled = designs.size();
}

void ClosedDesigns::destroySettled()
{
    const auto end = designs.begin() + std::ptrdiff_t(std::exchange(settled, 0));
    const std::vector<std::unique_ptr<QObject>> ended(std::make_move_iterator(designs.begin()),
                                                      std::make_move_iterator(end));
    designs.erase(designs.begin(), end);
}

void ClosedDesigns::destroyLater()
{
    awaitsEventLoop = true;
    QMetaObject::invokeMethod(this, &ClosedDesigns::destroyOrWait, Qt::QueuedConnection);
}

// A command that lets the event loop run keeps its bracket open meanwhile.
void ClosedDesigns::destroyOrWait()
{
    awaitsEventLoop = false;
    ChangeBracket *bracket = ChangeBracket::instance();
    if (bracket->depth() == 0) {
        settled = designs.size();
        destroySettled();
        return;
    }
    awaitsEventLoop = true;
    connect(bracket, &ChangeBracket::closed, this, &ClosedDesigns::destroyLater,
            Qt::SingleShotConnection);
}

} // namespace MorvalenCore
