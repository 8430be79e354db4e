#pragma once

#include <Qtilities/Status.h>

#include <QWidget>

// A page of the editor area: something that is shown behind a tab, can be changed there, and is
// saved. A page belongs to its area.
class EditorPage : public QWidget
{
    Q_OBJECT

public:
    // What menus ask of the page in front.
    enum Command {
        SaveCopy,
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
        ChooseCoding
    };

    using QWidget::QWidget;

    // What tells the page from all others, such as the canonical path of its file: the area has
    // one page of a key.
    virtual QString key() const = 0;

    // The text of the tab, without a mark for changes, and what the mouse tells of it.
    virtual QString title() const = 0;
    virtual QString toolTipText() const { return {}; }

    // The path of the page's file; empty when the page shows no file.
    virtual QString filePath() const { return {}; }

    virtual bool isModified() const { return false; }

    // Saves the changes, which are kept when that cannot be. The status of a failure has no
    // sentence when the user chose not to, or the page itself shows what is to be decided first.
    virtual Qtilities::Core::Status save() = 0;

    // Whether the page can do something now, and doing it.
    virtual bool can(Command) const { return false; }
    virtual void run(Command) { }

Q_SIGNALS:
    // The key, the title or what the mouse tells is another one, or whether there are changes.
    void stateChanged();

    // What the page can do is something else.
    void commandsChanged();
};
