#pragma once

#include <QMenu>

// The Help menu. The manual opens at the command under the cursor of the text that has the focus,
// such as the console's.
class HelpMenu : public QMenu
{
    Q_OBJECT

public:
    explicit HelpMenu(QWidget *window);

Q_SIGNALS:
    // The page of a command is wanted, the contents for an empty word.
    void manualWanted(const QString &command);

private:
    void askForManual();
    void showGuide();
    void showKeys();
    void showAbout();

    QWidget *window;
};
