# Everything the build needs from outside, all Debian packages.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets)
find_package(EXPAT REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBGIT2 REQUIRED IMPORTED_TARGET libgit2)
pkg_check_modules(LIBEDIT REQUIRED IMPORTED_TARGET libedit)
if(MORVALEN_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Network Test)
endif()
if(MORVALEN_BENCH)
    find_package(benchmark REQUIRED)
endif()

# Tcl as a target. The installed package looks for the Tcl of the machine it is used on.
include(find-tcl)
if(NOT TclScripting_TCL_INCLUDE_DIR OR NOT TclScripting_TCL_LIBRARY)
    message(FATAL_ERROR "Tcl 8.6 is missing: its header tcl.h or its library (Debian: tcl-dev)")
endif()
add_library(tcl INTERFACE)
target_include_directories(tcl SYSTEM INTERFACE
    $<BUILD_INTERFACE:${TclScripting_TCL_INCLUDE_DIR}>)
target_link_libraries(tcl INTERFACE $<BUILD_INTERFACE:${TclScripting_TCL_LIBRARY}>)
