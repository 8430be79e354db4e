#pragma once

#include <QIcon>

// Pictures of what menus and buttons do, in the hand of those of the rows of designs.
enum class ActionIcon {
    None,
    Run,
    RunAll,
    RunAgain,
    Stop,
    NewPage,
    NewConfiguration,
    Edit,
    Save,
    SaveAll,
    OpenFolder,
    Find,
    FindInFiles,
    GoTo,
    NextIssue,
    PreviousIssue,
    NextPane,
    PreviousPane,
    SplitView,
    Comment,
    Larger,
    Smaller,
    Copy,
    Rename,
    Remove,
    Cut,
    Paste,
    Keyboard,
    Guide,
    Last = Guide
};

namespace actionicons {

// None has no picture.
QIcon icon(ActionIcon which);

} // namespace actionicons
