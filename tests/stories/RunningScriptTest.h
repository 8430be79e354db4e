#pragma once

#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "interp/ScriptRuns.h"
#include "tests/stories/Story.h"

#include <QTimer>

// What tests of commands that run for long have in common: the program with its window, and a user
// who does something meanwhile. Each test begins and ends with an empty prompt.
class RunningScriptTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { story.reset(); }
    void init();
    void cleanup();

protected:
    QtclConsole &console() const { return story->console(); }
    QString status() const;

    // Types a command, and returns the text of the console from there on.
    QString typeAndRead(const QString &command) const;

    // A command of the test may take so many milliseconds before it is stopped.
    void allow(int milliseconds);

    // Does something once a command runs.
    void meanwhile(const std::function<void()> &action) const;

    // Presses a key in the console.
    void key(int key, Qt::KeyboardModifiers modifiers = {}) const;

    // What a command that was stopped leaves.
    const QString stopped = QStringLiteral("Script stopped\nmorvalen > ");

    std::unique_ptr<Story> story;

private:
    QTimer guard; // so that a failure does not last for ever
};
