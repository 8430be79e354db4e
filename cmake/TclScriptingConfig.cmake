# The package of the scripting library. Its targets:
#   TclScripting::TclScripting   the scripting library, with the three below
#   TclScripting::Console        interpreter and console alone: Qt and Tcl, nothing of designs
#   TclScripting::MorvalenCore   designs and everything in them
#   TclScripting::Qtilities      the application framework
# Any of their names may be asked for as a component; all of them always come.
#
# What is missing makes the package "not found"; it is for find_package to say whether that is an
# error. Nothing but the targets, and variables called TclScripting_*, is left behind.
cmake_policy(VERSION 3.16...3.25)

foreach(TclScripting_component IN LISTS TclScripting_FIND_COMPONENTS)
    if(TclScripting_component MATCHES "^(TclScripting|Console|MorvalenCore|Qtilities)$")
        set(TclScripting_${TclScripting_component}_FOUND TRUE)
    elseif(TclScripting_FIND_REQUIRED_${TclScripting_component})
        set(TclScripting_FOUND FALSE)
        set(TclScripting_NOT_FOUND_MESSAGE
            "TclScripting has no component ${TclScripting_component}")
        unset(TclScripting_component)
        return()
    endif()
endforeach()
unset(TclScripting_component)

include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Widgets)

include("${CMAKE_CURRENT_LIST_DIR}/find-tcl.cmake")
if(NOT TclScripting_TCL_INCLUDE_DIR OR NOT TclScripting_TCL_LIBRARY)
    set(TclScripting_FOUND FALSE)
    set(TclScripting_NOT_FOUND_MESSAGE
        "TclScripting needs Tcl 8.6, whose header tcl.h or library is missing")
    return()
endif()

if(NOT TARGET TclScripting::TclScripting)
    include("${CMAKE_CURRENT_LIST_DIR}/TclScriptingTargets.cmake")
    target_include_directories(TclScripting::tcl SYSTEM INTERFACE
        "${TclScripting_TCL_INCLUDE_DIR}")
    target_link_libraries(TclScripting::tcl INTERFACE "${TclScripting_TCL_LIBRARY}")
endif()
