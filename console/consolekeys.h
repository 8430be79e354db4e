#pragma once

#include "console/QConsole.h"

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
    ShowNewer,
    // Only with a feature that a host has switched on:
    GoToLineStart,
    SelectToLineStart,
    GoUp,
    GoDown,
    BreakLine,
    Indent,
    ScrollPageUp,
    ScrollPageDown,
    SearchHistory,
    Find,
    ClearScreen
};

// Where the user is when a key is pressed.
struct Place
{
    bool hasSelection = false;
    bool isInZone = false; // the selection, or the cursor where there is none
    bool hasLineAbove = false; // of the same command
    bool hasLineBelow = false;
    bool isInIndentation = false; // of a continuation line
    QConsole::Features features = {};
};

// Whether the key copies the selection before it does what actionOf says.
bool copiesFirst(const QKeyEvent &event, const Place &place);

// Whether the action needs a feature.
constexpr bool isOfFeature(Action action) { return action >= Action::GoToLineStart; }

// Whether it is one of those, and leaves the command that is being typed alone.
constexpr bool onlyLooks(Action action)
{
    return action == Action::ScrollPageUp || action == Action::ScrollPageDown
        || action == Action::Find;
}

Action actionOf(const QKeyEvent &event, const Place &place);

} // namespace consolekeys
