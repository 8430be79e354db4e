# Finds this machine's Tcl. CMake's own FindTCL wants Tk as well, which nothing here needs.
macro(find_tcl)
    find_path(TCL_INCLUDE_PATH tcl.h PATH_SUFFIXES tcl tcl8.6 REQUIRED)
    find_library(TCL_LIBRARY tcl8.6 REQUIRED)
endmacro()

# Gives a target what is needed to compile and link with that Tcl; nothing of it is written into an
# installed package, which finds its own.
function(use_tcl target)
    target_include_directories(${target} SYSTEM INTERFACE $<BUILD_INTERFACE:${TCL_INCLUDE_PATH}>)
    target_link_libraries(${target} INTERFACE $<BUILD_INTERFACE:${TCL_LIBRARY}>)
endfunction()
