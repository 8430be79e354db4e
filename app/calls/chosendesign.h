#pragma once

#include <MorvalenCore/IDesign.h>

#include <functional>

// Which design menus and keys are about: the one that is selected in the tree, else the active one.
namespace chosendesign {

using MorvalenCore::Interfaces::IDesign;

// Null when nothing is selected and no design is active.
IDesign *get();

// Where the selection comes from; an empty function when there is nothing to select in.
void setSelection(std::function<IDesign *()> selection);

} // namespace chosendesign
