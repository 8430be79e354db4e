#include "designs/ClosedDesigns.h"

#include <MorvalenCore/ChangeBracket.h>

#include <QMetaObject>

namespace MorvalenCore {

void ClosedDesigns::keep(std::unique_ptr<QObject> design)
{
    if (designs.empty())
        destroyLater();
    designs.push_back(std::move(design));
}

void ClosedDesigns::destroyLater()
{
    QMetaObject::invokeMethod(this, &ClosedDesigns::destroyOrWait, Qt::QueuedConnection);
}

// A command that lets the event loop run keeps its bracket open meanwhile.
void ClosedDesigns::destroyOrWait()
{
    ChangeBracket *bracket = ChangeBracket::instance();
    if (bracket->depth() == 0)
        designs.clear();
    else
        connect(bracket, &ChangeBracket::closed, this, &ClosedDesigns::destroyLater,
                Qt::SingleShotConnection);
}

} // namespace MorvalenCore
