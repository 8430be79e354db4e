#pragma once

#include <Qtilities/IMode.h>

#include <QHash>
#include <QMainWindow>

#include <memory>

class DesignTree;
class DesignsMode;
class HelpDock;
class JournalDock;
class IssueList;
class IssueSources;
class IssuesView;
class WindowLinks;
class Leaving;
class ModeBar;
class OpenThings;
class PaneKeys;
class QDockWidget;
class QStackedWidget;
class QtclConsole;
class ScriptMenu;
class SuddenEnd;
class TextKeeper;
class ViewMenu;
class WindowConsole;

// The window of the program: modes on the left, the log below, the manual beside them, and the
// menus. It has the Designs mode from the start. Closing it asks about what is not saved, and saves
// what closing the program saves.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // Makes the docks and the menus; the scripts are those of the session folder.
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    DesignsMode *designsMode() const { return designs; }
    DesignTree *designTree() const { return tree; }

    // Adds a mode behind the others. Its widget becomes a child of the window.
    void addMode(Qtilities::CoreGui::Interfaces::IMode *mode);

    // Shows a mode; an unknown id does nothing.
    void activateMode(int id);
    int activeMode() const { return currentMode; }

    // Says what runs from now on, lets it be stopped, and stays alive meanwhile. Before the
    // start-up script.
    void followRuns();

    // Shows the window with the console in it while the start-up script still runs.
    void showWhileStarting();

    // Makes the console the window's, which keeps its history.
    void adoptConsole(QtclConsole *adopted);

    // Opens what was open in the window before.
    void reopen();

    // Opens component and project files; what cannot be opened is in the log.
    void openFiles(const QStringList &files);

    // Offers the texts that a window which did not end well has left unsaved.
    void offerKeptTexts();

    // Somebody outside wants the program to end, which may be soon: keeps what is not saved, and
    // closes as the user does.
    void closeSoon();

    // Of the files that builds and scripts found wrong.
    IssueSources *issueSources() const { return issues; }

    // What must happen before a script ends the program: texts in the editors are asked about, and
    // what is remembered is written.
    void prepareForEnd();

Q_SIGNALS:
    // The user has closed the window, and what can be saved is saved.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void createTreeDock();
    void createLogDock();
    void createIssuesDock();
    void createMenus();
    void createScriptsDock(const QString &scripts, ScriptMenu *menu, ViewMenu *view);
    void createFindTools(ScriptMenu *scripts, ViewMenu *view);
    void askForPreferences(const QString &page = {});
    void focusMode(Qtilities::CoreGui::Interfaces::IMode *mode);
    void showConfiguration(const QString &designId, const QString &name);
    void followPreferences();
    void remember();
    void updateTitle();

    ModeBar *modeBar;
    QStackedWidget *stack;
    DesignsMode *designs;
    DesignTree *tree;
    Leaving *leaving;
    TextKeeper *keeper;
    OpenThings *openThings;
    SuddenEnd *suddenEnd;
    HelpDock *helpDock;
    QDockWidget *treeDock = nullptr;
    QDockWidget *logDock = nullptr;
    std::unique_ptr<WindowLinks> links;
    IssueList *issueList;
    IssueSources *issues;
    WindowConsole *console;
    IssuesView *issuesView = nullptr;
    QDockWidget *issuesDock = nullptr;
    JournalDock *journalDock = nullptr;
    PaneKeys *paneKeys = nullptr;
    QHash<int, Qtilities::CoreGui::Interfaces::IMode *> modes;
    int currentMode = -1;
};
