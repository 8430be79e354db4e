#pragma once

#include <QSize>

class QMainWindow;

// Where the window and what is in it stand, kept in the session's settings while the user wants it.
namespace windowlayout {

// Without a kept layout, or with one that cannot be read, the window gets its usual size.
QSize firstSize(const QMainWindow *window);
void restore(QMainWindow *window);
void save(QMainWindow *window);

} // namespace windowlayout
