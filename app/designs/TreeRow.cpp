#include "app/designs/TreeRow.h"

#include <MorvalenCore/DesignManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

bool TreeRow::isThere() const
{
    const IDesign *open = design();
    return open && DesignManager::instance()->design(open->id(u"."_s)) == open
        && (!isItem() || item);
}
