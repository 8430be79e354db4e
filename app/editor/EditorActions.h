#pragma once

#include <QAction>
#include <QHash>

class EditorArea;

// What menus and keys do with the pages of an editor area: one QAction each, enabled while the page
// in front can do it. Their shortcuts work while the focus is in the area, so that the same keys
// are free elsewhere. A menu shows an action with addAction(); the actions belong to this object,
// and this object to the area, which makes it.
class EditorActions : public QObject
{
    Q_OBJECT

public:
    enum Id {
        Save,
        SaveCopy,
        SaveAll,
        Close,
        CloseOthers,
        CloseAll,
        Undo,
        Redo,
        Cut,
        Copy,
        Paste,
        SelectAll,
        Find,
        FindNext,
        FindPrevious,
        Replace,
        GoToLine,
        ToggleComment,
        ZoomIn,
        ZoomOut,
        ZoomReset,
        SplitView,
        ChooseCoding,
        NextPage,
        PreviousPage
    };

    explicit EditorActions(EditorArea *area);

    QAction *action(Id id) const { return actions.value(id); }

    // Looks again at what the page in front can do.
    void update();

private:
    EditorArea *area;
    QHash<int, QAction *> actions;
};
