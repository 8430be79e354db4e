#pragma once

// The colours of the window.
namespace themes {

// Shows the theme that the user has chosen; the desktop's own until another one is chosen.
void apply();

} // namespace themes
