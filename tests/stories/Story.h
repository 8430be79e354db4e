#pragma once

#include "app/WindowRun.h"

#include <MorvalenCore/DesignProjectItem.h>
#include <MorvalenCore/IDesign.h>

#include <QAction>
#include <QHash>
#include <QModelIndex>
#include <QTemporaryDir>
#include <QWidget>

#include <functional>

class MainWindow;
class QtclConsole;

// The program with its window in a session of its own; what a user does with it. One per process.
class Story
{
public:
    // The start-up script is that of the session. The story takes place in a folder of its own,
    // which goes with it, unless another one is named.
    explicit Story(const QByteArray &startUp = {}, const QString &folder = {});
    ~Story();

    MainWindow &window() const { return run->window(); }
    QtclConsole &console() const;
    template <typename Widget>
    Widget *find(const char *name) const
    {
        return windowWidget()->findChild<Widget *>(QString::fromLatin1(name));
    }
    // The first row of the tree of designs that shows the text, below another one.
    QModelIndex row(const QString &text, const QModelIndex &below = {}) const;
    QAction *action(const char *name) const { return find<QAction>(name); }

    // Types a command into the console and presses Return.
    void type(const QString &command) const;

    // Types a command that waits in an event loop, and does something meanwhile; the command goes
    // on when the Tcl variable "released" is written, which happens afterwards.
    void typeWaiting(const std::function<void()> &meanwhile) const;

    // Presses a key with modifiers where the focus is.
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const;
    // Makes the window the active one.
    void takeKeyboard() const;

    // Opens a menu of the menu bar by its letter, and returns the entry that has the text, without
    // its mnemonic, once the menu shows; null when there is none.
    QAction *entry(char letter, const QString &text) const;
    void closeMenus() const;

    static MorvalenCore::Interfaces::IDesign *activeDesign();

    // A path below the folder of the story.
    QString path(const QString &name) const { return folder + QLatin1Char('/') + name; }
    QString session() const { return path(QStringLiteral("session")); }
    static QByteArray read(const QString &path);
    static void write(const QString &path, const QByteArray &bytes);

    // What was first written to each file since it was forgotten.
    static QHash<QString, QByteArray> firstWritten() { return written; }
    static void forgetWritten() { written.clear(); }

private:
    QWidget *windowWidget() const;

    static inline QHash<QString, QByteArray> written;
    QTemporaryDir ownFolder;
    QString folder;
    MorvalenCore::DesignProjectItem designsOfProjects;
    std::unique_ptr<WindowRun> run;
};
