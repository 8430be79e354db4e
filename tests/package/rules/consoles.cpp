#include "consoles.h"

#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "rules.h"
#include "scripting/TclScriptManager.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using TclScripting::TclScriptManager;

namespace {

commandsManager *registry() { return commandsManager::getInstance(nullptr); }

int closeWindow(ClientData window, Tcl_Interp *, int, const char **)
{
    delete static_cast<QMainWindow *>(window);
    return TCL_OK;
}

int runAnother(ClientData manager, Tcl_Interp *interp, int, const char **)
{
    int code = 99;
    const QString text =
        static_cast<TclScriptManager *>(manager)->execCommad(u"expr {6 * 7}"_s, &code);
    print(u"execCommad: %1 %2"_s.arg(QString::number(code), text));
    return Tcl_Eval(interp, "expr {6 * 7}");
}

} // namespace

namespace consoles {

void windowGone()
{
    auto window = std::make_unique<QMainWindow>();
    QtilitiesApplication::setMainWindow(window.get());
    TclScriptManager manager(nullptr);
    window.reset();
    QtilitiesApplication::setMainWindow(nullptr);
    run(manager, u"expr {6 * 7}"_s);
    manager.initializeMode();
    TclScriptManager next(nullptr);
    run(next, u"expr {6 * 7}"_s);
    next.initializeMode();
    print(next.centralWidget() == QtclConsole::getInstance(nullptr, {}) ? u"shown"_s : u"lost"_s);
}

void windowGoneMeanwhile()
{
    auto *const window = new QMainWindow;
    QtilitiesApplication::setMainWindow(window);
    TclScriptManager manager(nullptr);
    registry()->registerFunction("close_window", closeWindow, "Destroys the window", window);
    QString result;
    QtclConsole::getInstance(nullptr, {})
        ->execCommand(u"close_window; puts later; set x 1"_s, true, true, &result);
    print(result);
    run(manager, u"set x"_s);
}

void commandInCommand()
{
    TclScriptManager manager(nullptr);
    registry()->registerFunction("another", runAnother, "Runs another command", &manager);
    run(manager, u"another"_s);
}

void currentFolder()
{
    TclScriptManager manager(nullptr);
    const QDir scripts(sessionFolder + u"/Scripts"_s);
    print(QDir::current() == scripts ? u"in Scripts"_s : QDir::currentPath());
    QDir::setCurrent(sessionFolder);
    run(manager, u"file isdirectory Scripts"_s);
}

void promptOfTheConsole()
{
    TclScriptManager manager(nullptr);
    QtclConsole *const console = QtclConsole::getInstance(nullptr, {});
    console->setPrompt(u"host> "_s, false);
    print(console->toPlainText().section(u'\n', -1));
    console->execCommand(u"set x 1"_s, true, true, nullptr);
    print(console->toPlainText().section(u'\n', -3));
}

} // namespace consoles
