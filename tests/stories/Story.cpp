#include "tests/stories/Story.h"

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/MainWindow.h"
#include "app/session/Session.h"
#include "console/QtclConsole.h"
#include "ensemble/ensemble.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "tests/patience.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

Story::Story(const QByteArray &startUp, const QString &named)
    : folder(named.isEmpty() ? ownFolder.path() : named)
{
    if (const auto prepared = Session::prepare(session()); !prepared.isOk())
        qFatal("%s", qPrintable(prepared.text()));
    if (!startUp.isEmpty())
        write(session() + u"/Scripts/startup.tcl"_s, startUp);
    QtilitiesApplication::setApplicationSessionPath(session());
    ProjectManager::instance()->addProjectItem(&designsOfProjects);
    Qtk_InitNotifier(qApp);
    Qtk_LetNotifierRest();
    ensemble::create(commandsManager::getInstance(nullptr)->interp, folder);
    run = std::make_unique<WindowRun>(QStringList());
    if (!QTest::qWaitForWindowActive(&run->window(), patient()))
        qFatal("the window does not become active");
    // Qt 6.8 takes a click in a menu for the end of what opened it where the mouse has been
    // nowhere.
    QTest::mouseMove(&run->window(), QPoint(1, 1));
}

Story::~Story()
{
    // The interpreter's folder is the session's, which is about to go.
    QDir::setCurrent(QDir::rootPath());
    run.reset();
    ProjectManager::instance()->removeProjectItem(&designsOfProjects);
}

QWidget *Story::windowWidget() const { return &window(); }

QtclConsole &Story::console() const { return *QtclConsole::getInstance(nullptr, QString()); }

QModelIndex Story::row(const QString &text, const QModelIndex &below) const
{
    const QAbstractItemModel *model = window().designTree()->treeView()->model();
    for (int i = 0; i < model->rowCount(below); ++i) {
        const QModelIndex index = model->index(i, 0, below);
        if (index.data().toString() == text)
            return index;
        if (const QModelIndex found = row(text, index); found.isValid())
            return found;
    }
    return {};
}

void Story::type(const QString &command) const
{
    takeKeyboard();
    QTest::keyClicks(&console(), command);
    QTest::keyClick(&console(), Qt::Key_Return);
}

void Story::typeWaiting(const std::function<void()> &meanwhile) const
{
    takeKeyboard();
    QTest::keyClicks(&console(), u"vwait released"_s);
    QTimer::singleShot(0, &window(), [&meanwhile] {
        meanwhile();
        Tcl_SetVar(commandsManager::getInstance(nullptr)->interp, "released", "1", TCL_GLOBAL_ONLY);
    });
    QTest::keyClick(&console(), Qt::Key_Return);
}

// Without a window manager nobody makes the window active again behind a dialog or a menu.
void Story::takeKeyboard() const
{
    // A menu that is closed already may be made active late.
    QCoreApplication::processEvents();
    if (QApplication::activeWindow() == &window())
        return;
    window().activateWindow();
    if (!QTest::qWaitForWindowActive(&window(), patient()))
        qFatal("the window does not become active again");
}

void Story::press(int key, Qt::KeyboardModifiers modifiers) const
{
    takeKeyboard();
    QWidget *focused = QApplication::focusWidget();
    QTest::keyClick(focused ? focused : &window(), Qt::Key(key), modifiers);
}

QAction *Story::entry(char letter, const QString &text) const
{
    takeKeyboard();
    QTest::keyClick(&window(), letter, Qt::AltModifier);
    const QWidget *menu = QApplication::activePopupWidget();
    const QList<QAction *> entries = menu ? menu->actions() : QList<QAction *>();
    for (QAction *action : entries) {
        if (action->text().remove(u'&') == text)
            return action;
    }
    return nullptr;
}

void Story::closeMenus() const
{
    while (QWidget *menu = QApplication::activePopupWidget())
        QTest::keyClick(menu, Qt::Key_Escape);
    // The menu bar keeps the focus otherwise.
    if (window().menuBar()->hasFocus())
        QTest::keyClick(window().menuBar(), Qt::Key_Escape);
    takeKeyboard();
}

IDesign *Story::activeDesign()
{
    const QList<IDesign *> active = DesignManager::instance()->activeDesigns();
    return active.isEmpty() ? nullptr : active.first();
}

QByteArray Story::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Story::write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    if (!written.contains(path))
        written.insert(path, bytes);
}
