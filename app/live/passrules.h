#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QAction;
class QEvent;
class QObject;
class QWidget;
QT_END_NAMESPACE

// What the user may do in the window while a script is between two commands: look, scroll, select,
// copy, go to another mode or page, resize, and stop the script. All else would change what the
// script works with, or open a dialog that waits.
namespace passrules {

enum class Verdict {
    Deliver,
    Refuse, // and say why
    Swallow // what belongs to something refused, as the release of a button does
};

Verdict verdict(const QObject *receiver, const QEvent &event);

// Whether the widget or one around it is of a class, by its name.
bool isWithin(const QWidget *widget, const char *className);

// From now on an entry of a menu or a tool bar works while a script runs.
void letWork(QAction *action);

} // namespace passrules
