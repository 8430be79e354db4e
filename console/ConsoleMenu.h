#pragma once

#include <QMenu>

class QConsole;

// The console's context menu. No entry is ever disabled: the console's own rules say what each may
// change. The actions are the console's children and outlive the menu.
class ConsoleMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ConsoleMenu(QConsole *console);
};
