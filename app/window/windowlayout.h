#pragma once

#include <QSize>

class QMainWindow;

// Where the window and what is in it stand, kept in the session's settings while the user wants it.
namespace windowlayout {

// The usual size, or what of it fits the window's screen, in device-independent pixels.
QSize firstSize(const QMainWindow *window);
// Without a kept layout, or with one that cannot be read, the window gets its first size.
void restore(QMainWindow *window);
void save(QMainWindow *window);

} // namespace windowlayout
