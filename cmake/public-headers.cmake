# The headers of the scripting library that hosts may include.
set(TCLSCRIPTING_PUBLIC_HEADERS
    interp/CommandAdapter.h
    interp/commandsManager.h
    interp/export.h
    interp/QtNotifier.h
    interp/TclCallBack.h
    interp/tcltext.h
    console/PopupCompleter.h
    console/PopupListWidget.h
    console/QConsole.h
    console/QtclConsole.h
    commands/commandmanuals.h
    commands/commands.h
    commands/hostnames.h
    scripting/TclScriptedAction.h
    scripting/TclScriptManager.h)
