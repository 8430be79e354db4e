#pragma once

#include <QStringList>

class QWidget;

// Which actions of the window have pictures.
namespace windowicons {

void give(const QWidget *window);

// The names of those actions.
QStringList actions();

} // namespace windowicons
