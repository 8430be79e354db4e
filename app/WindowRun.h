#pragma once

#include "app/process/TerminationSignal.h"

#include <QStringList>

#include <memory>

class MainWindow;

// A run of the program with its window: the window, and all that is put into it. There can be one
// in a process, since there is one console.
class WindowRun
{
public:
    // Makes the window, runs the start-up script, and shows the window. The files are opened once
    // control is in the event loop.
    explicit WindowRun(const QStringList &files);
    ~WindowRun();
    Q_DISABLE_COPY_MOVE(WindowRun)

    MainWindow &window() const { return *mainWindow; }

    // Ends when the user closes the window, with the status of the process.
    int run();

private:
    std::unique_ptr<MainWindow> mainWindow;
    TerminationSignal termination;
};
