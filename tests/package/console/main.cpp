// A console in a window of an application that has nothing of designs: the interpreter, one
// command, and Tcl's events on Qt's loop.

#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "interp/QtNotifier.h"
#include "interp/tcltext.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>

static int shout(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    for (int i = 1; i < argc; ++i)
        tcltext::appendResult(interp, tcltext::fromTcl(argv[i]).toUpper());
    return TCL_OK;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    Qtk_InitNotifier(&application);
    Qtk_LetNotifierRest();

    QMainWindow window;
    QtclConsole *const console = QtclConsole::getInstance(&window, QStringLiteral("Type here.\n"));
    window.setCentralWidget(console);
    window.show();
    commandsManager::getInstance(nullptr)->registerFunction("shout", shout, "Shouts", nullptr);

    console->execCommand(QStringLiteral("shout hello"), true, true, nullptr);
    console->execCommand(QStringLiteral("after 1 {set done 1}; vwait done; puts waited"), true,
                         true, nullptr);
    std::printf("%s\n", qPrintable(console->toPlainText()));
    return 0;
}
