#pragma once

#include <QMenu>

namespace MorvalenCore {
class BuildConfiguration;
}
namespace MorvalenCore::Interfaces {
class IDesign;
}

class QActionGroup;

// The menu of builds. Its entries are about the design that is selected, or else the active one,
// and its active configuration; what is not possible is disabled. While a command or a script runs
// the console, nothing is begun, but builds can be cancelled.
class BuildMenu : public QMenu
{
    Q_OBJECT

public:
    explicit BuildMenu(QWidget *parent = nullptr);

Q_SIGNALS:
    // The user wants to see or edit a build configuration.
    void configurationActivated(const QString &designId, const QString &name);

private:
    using Step = void (BuildMenu::*)();

    QAction *add(const QString &text, const QKeySequence &key, const char *name, Step step);
    // Before it is shown, and as often as something changes: keys work without the menu.
    void update();
    void updateConfigurations();

    void runOutdated();
    void runAll();
    void refresh();
    void clean();
    void edit();
    void addConfiguration();
    void removeConfiguration();
    void cancel();

    static MorvalenCore::Interfaces::IDesign *design();
    static MorvalenCore::BuildConfiguration *configuration();

    QMenu *configurations;
    QActionGroup *choices;
    QAction *runOutdatedAction;
    QAction *runAllAction;
    QAction *refreshAction;
    QAction *cleanAction;
    QAction *editAction;
    QAction *addAction;
    QAction *removeAction;
    QAction *cancelAction;
};
