# Everything the build needs from outside, all Debian packages.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Network)
find_package(EXPAT REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBGIT2 REQUIRED IMPORTED_TARGET libgit2)
if(MORVALEN_TESTS)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()
if(MORVALEN_BENCH)
    find_package(benchmark REQUIRED)
endif()

# Tcl as a target. The installed package looks for the Tcl of the machine it is used on.
include(tcl-target)
find_tcl()
add_library(tcl INTERFACE)
use_tcl(tcl)
