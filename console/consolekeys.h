#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

// Which key does what in a console.
namespace consolekeys {

enum class Action {
    PassOn, // the text widget's own
    PassWithoutEditing, // the text widget's own, but outside the edition zone it changes nothing
    Type, // the text widget's own, in the edition zone or else at the end
    Cut,
    Copy,
    Complete,
    DeleteBackwards,
    Run,
    GoHome,
    ShowOlder,
    ShowNewer
};

// Where the user is when a key is pressed.
struct Place
{
    bool hasSelection = false;
    bool isInZone = false; // the selection, or the cursor where there is none
};

// Whether the key copies the selection before it does what actionOf says.
bool copiesFirst(const QKeyEvent &event, const Place &place);

Action actionOf(const QKeyEvent &event, const Place &place);

} // namespace consolekeys
