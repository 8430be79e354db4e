#include "app/calls/DesignSelection.h"

DesignSelection *DesignSelection::instance()
{
    static auto *const selection = new DesignSelection;
    return selection;
}

void DesignSelection::setSource(const Source &source)
{
    from = source;
    Q_EMIT changed();
}
