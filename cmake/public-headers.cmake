# The headers of the scripting library that hosts may include.
set(TCLSCRIPTING_PUBLIC_HEADERS
    interp/export.h
    interp/commandsManager.h
    interp/TclCallBack.h
    interp/tcltext.h
    commands/commands.h
    commands/hostnames.h)
