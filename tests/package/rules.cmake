# What the host of the folder "rules" says about each rule, in a process of its own for each; included
# by package.cmake.

# rule(<word> <line>...)
function(rule word)
    must("${WORK}/rules/rules" ${word})
    list(JOIN ARGN "\n" expected)
    must_be("${word}:\n${output}" "${word}:\n${expected}\n")
endfunction()

rule(one-of-each
    "set mine yes\; set starts -> 0 1"
    "list $mine $starts -> 0 yes 2"
    "one console"
    "one interpreter"
    "the first has lost it")
rule(notifier-first "lsort $served -> 0 pipe server timer")
rule(notifier-late
    "Warning: Qtk_InitNotifier was called after the start-up script: what that opened, such as a server or a pipe, is never served. Call it before TclScriptManager is made."
    "lsort $served -> 0 timer")
rule(interpreter-to-registry "set mine -> 0 yes")
rule(interpreter-to-manager
    "Warning: The interpreter given to TclScriptManager is ignored: the command registry has one already. Give it to commandsManager::getInstance first."
    "info exists mine -> 0 0")
rule(commands-first "set greeting -> 0 hello")
rule(commands-late
    "Warning: SESSION/Scripts/startup.tcl:2: invalid command name \"greet\""
    "greet -> 0 hello")
rule(managers-first "an action")
set(no_factory
    "Warning: No action can be made for scripts of type \"text/x-tcl\": the design manager has no factory \"text/x-tcl\""
    "no action")
rule(managers-late
    "Warning: The new design manager has no factory for scripts of type \"text/x-tcl\", which the former one had. Set it before TclScriptManager is made."
    ${no_factory})
rule(manager-destroyed ${no_factory})
rule(window-gone
    "expr {6 * 7} -> 99 Tcl console not initialized."
    "expr {6 * 7} -> 0 42"
    "shown")
rule(window-gone-meanwhile "1" "set x -> 99 Tcl console not initialized.")
rule(exceptions
    "open_valve 1 -> 1 \"open_valve\" ended with an exception: no such valve"
    "throw -> 1 \"throw\" ended with an exception: of an unknown kind"
    "proc p {} { catch {open_valve 2} text\; return [info level]$text }\; p -> 0 1\"open_valve\" ended with an exception: no such valve")
rule(command-in-command
    "execCommad: 1 Command cannot be executed!"
    "another -> 0 42")
rule(exit-and-quit
    "exit -> 1 invalid command name \"dbgExit\""
    "exit -> 0 bye"
    "saves before the end")
rule(current-folder "in Scripts" "file isdirectory Scripts -> 0 1")
rule(one-object "left_lamp -> 0 right" "right_lamp -> 0 right")
rule(prompt "morvalen > " "morvalen > set x 1" "1" "host> ")
rule(startup-silent "list $before [info exists behind] -> 0 yes 0")
rule(name-changes
    "properties set_active width -> 0 Successfully changed active property in design \"cell\" to \"width\""
    "sproperty set name depth -> 0 Successfully renamed property \"width\". Changed to \"depth\""
    "sproperty get name -> 0 depth")
# The command has no other text: it tells the name that the property has now.
rule(name-of-its-own
    "properties set_active width -> 0 Successfully changed active property in design \"cell\" to \"width\""
    "Warning: The item \"width\" cannot be renamed to \"depth\""
    "sproperty set name depth -> 0 Successfully renamed property \"width\". Changed to \"width\""
    "sproperty get name -> 0 width")
set(left_out
    "Warning: The vendor of the design cannot be changed"
    "Warning: The library of the design cannot be changed"
    "Warning: The name of the design cannot be changed"
    "Warning: The structure of the design cannot be changed")
rule(folders-where-it-says
    "designs structures get_default Cell -> 0 Flat"
    ${left_out}
    "designs new nand Cell -> 0 Successfully created new design \"nand\""
    "designs designs_path -> 0 SESSION/Shelf"
    "design get wfp -> 0 SESSION/Shelf/nand")
rule(folders-of-session
    "designs structures get_default Cell -> 0 Flat"
    ${left_out}
    "designs new nand Cell -> 0 Successfully created new design \"nand\""
    "designs designs_path -> 0 "
    "design get wfp -> 0 SESSION/Designs/nand")
