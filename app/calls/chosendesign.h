#pragma once

#include <MorvalenCore/IDesign.h>

// Which design menus and keys are about: the one that is selected in the tree, else the active one.
namespace chosendesign {

using MorvalenCore::Interfaces::IDesign;

// Null when nothing is selected and no design is active.
IDesign *get();

// Its name for the text of a menu entry; empty without a design.
QString menuName(const IDesign *design);

} // namespace chosendesign
