#pragma once

#include "interp/export.h"

#include <Qtilities/IMode.h>

#include <QMainWindow>

#include <functional>
#include <memory>

#include <tcl.h>

namespace Ui {
class TclScriptManager;
}

namespace TclScripting {

struct TclScriptManagerPrivate;

// What the start-up script wrote at once, or its error, and the line of startup.tcl that it came
// from; 0 when that is not known.
struct StartupNews
{
    int line = 0;
    QString text;
};

// The Scripting mode and the library's entry object: making one brings the Tcl environment up.
// It makes the console, and with it the interpreter, registers the application's commands, runs
// startup.tcl of the session's Scripts folder, and makes Tcl scripts known to the host.
//
// A host makes exactly one, on the GUI thread, once its managers, its session path and its main
// window exist; the parent owns it. Start-up never fails visibly: an error in startup.tcl is
// dropped, unless the host listens. The console belongs to the main window until initializeMode
// takes it into this one, and goes with the window that has it; commands and interpreter outlive
// the manager. docs/embedding.md has the rules in a line each.
class TCLSCRIPTING_EXPORT TclScriptManager : public QMainWindow,
                                             public Qtilities::CoreGui::Interfaces::IMode
{
    Q_OBJECT
    Q_INTERFACES(Qtilities::CoreGui::Interfaces::IMode)

public:
    // The console asks the command registry for its interpreter first, so one that is given here
    // is used only when the registry has it already; the log warns when it has another.
    explicit TclScriptManager(Tcl_Interp *interp, QWidget *parent = nullptr);
    ~TclScriptManager() override;

    // From then on, who makes a manager is told what startup.tcl writes, besides the console, and
    // its error. Nobody is told before.
    static void listenToStartup(const std::function<void(const StartupNews &)> &listener);
    // The same, told by warnings in the log that begin with file and line. The session path must be
    // set.
    static void logStartup();

    QString contextString() const override;
    QString contextHelpId() const override;

    // This window, in which initializeMode puts the console.
    QWidget *modeWidget() override;
    void initializeMode() override;
    QIcon modeIcon() const override;
    QString modeName() const override;
    int modeID() const override;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    // Evaluates a command in the console without echo and returns the result's text. *result,
    // unless it is null, receives Tcl's completion code; without a console, as when its window has
    // taken it along, it stays as it is and the text says so. While a command runs the console
    // refuses another one, with a text and code 1: a command that runs commands calls Tcl_Eval.
    QString execCommad(const QString &command, int *result);

private:
    void initInterp();
    void makeScriptsKnown();

    std::unique_ptr<Ui::TclScriptManager> ui;
    std::unique_ptr<TclScriptManagerPrivate> d;
};

} // namespace TclScripting
