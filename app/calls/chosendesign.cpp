#include "app/calls/chosendesign.h"

#include "app/calls/DesignSelection.h"

#include <MorvalenCore/DesignManager.h>

using namespace Qt::Literals::StringLiterals;

namespace chosendesign {

IDesign *get()
{
    IDesign *selected = DesignSelection::instance()->design();
    return selected ? selected : MorvalenCore::DesignManager::instance()->activeDesigns().value(0);
}

QString menuName(const IDesign *design)
{
    return design ? design->name().replace(u'&', u"&&"_s) : QString();
}

} // namespace chosendesign
