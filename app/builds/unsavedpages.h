#pragma once

// Pages that are not saved when something is built of their files.
namespace unsavedpages {

// Saves the pages of the window, or leaves them, as the user has chosen or chooses now. False when
// nothing is to be built.
bool settle();

} // namespace unsavedpages
