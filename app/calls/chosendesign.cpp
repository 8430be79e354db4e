#include "app/calls/chosendesign.h"

#include <MorvalenCore/DesignManager.h>

#include <utility>

namespace chosendesign {

namespace {

std::function<IDesign *()> &selection()
{
    static std::function<IDesign *()> function;
    return function;
}

} // namespace

IDesign *get()
{
    IDesign *selected = selection() ? selection()() : nullptr;
    return selected ? selected : MorvalenCore::DesignManager::instance()->activeDesigns().value(0);
}

void setSelection(std::function<IDesign *()> function) { selection() = std::move(function); }

} // namespace chosendesign
