# Finds this machine's Tcl 8.6 and says so in two variables of the cache. CMake's own FindTCL wants
# Tk as well, which nothing here needs.
find_path(TclScripting_TCL_INCLUDE_DIR tcl.h PATH_SUFFIXES tcl8.6 tcl)
find_library(TclScripting_TCL_LIBRARY tcl8.6)
mark_as_advanced(TclScripting_TCL_INCLUDE_DIR TclScripting_TCL_LIBRARY)
