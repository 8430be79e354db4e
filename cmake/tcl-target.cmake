# Gives a target what is needed to compile and link with this machine's Tcl; nothing of it is
# written into an installed package, which finds its own.
function(use_tcl target)
    target_include_directories(${target} SYSTEM INTERFACE $<BUILD_INTERFACE:${TCL_INCLUDE_PATH}>)
    target_link_libraries(${target} INTERFACE $<BUILD_INTERFACE:${TCL_LIBRARY}>)
endfunction()
