#pragma once

#include <QKeyCombination>
#include <QWidget>

// The keys of the Edit menu in parts of the window that know nothing of it.
namespace editkeys {

// Whether the widget is one that knows such keys: a text or a list.
bool knows(const QWidget *widget);

// Whether the widget does something for the key now. Texts and lists know copying and the like.
bool can(QWidget *widget, QKeyCombination key);

// Presses the key there. Both do nothing without a widget.
void press(QWidget *widget, QKeyCombination key);

} // namespace editkeys
