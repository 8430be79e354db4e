#pragma once

#include <Qtilities/IMode.h>

#include <QHash>
#include <QMainWindow>
#include <QPointer>

namespace MorvalenCore {
struct ExtensionWidgetParameters;
}

class ModeBar;
class QDockWidget;
class QStackedWidget;

// The window of the program: modes on the left, the log below, and menus for files and scripts.
// Closing it saves what closing the program saves.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    // Makes the log and the menus; the scripts are those of the session folder.
    explicit MainWindow(QWidget *parent = nullptr);

    // Adds a mode behind the others. Its widget becomes a child of the window.
    void addMode(Qtilities::CoreGui::Interfaces::IMode *mode);

    // Shows a mode; an unknown id does nothing.
    void activateMode(int id);
    int activeMode() const { return currentMode; }

    // Opens component and project files; what cannot be opened is in the log.
    void openFiles(const QStringList &files);

    // Shows a widget of a plug-in's in a dock of its own; a widget that is there already comes to
    // the front. Closing the dock deletes the widget.
    void showExtensionWidget(const MorvalenCore::ExtensionWidgetParameters &parameters);

Q_SIGNALS:
    // The user has closed the window, and what can be saved is saved.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void createLogDock();
    void createMenus();
    void restoreLayout();
    void saveLayout() const;
    void askForFiles();
    void updateTitle();

    ModeBar *modeBar;
    QStackedWidget *stack;
    QDockWidget *logDock = nullptr;
    QHash<int, Qtilities::CoreGui::Interfaces::IMode *> modes;
    QHash<QWidget *, QPointer<QDockWidget>> extensionDocks;
    int currentMode = -1;
};
