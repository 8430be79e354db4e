# The scripting library: four floors in two shared libraries.

# morvalen_floors(<target> FLOORS <floor>... LINKS <target>...)
function(morvalen_floors target)
    cmake_parse_arguments(LIBRARY "" "" "FLOORS;LINKS" ${ARGN})
    add_library(${target} SHARED)
    foreach(floor IN LISTS LIBRARY_FLOORS)
        target_sources(${target} PRIVATE $<TARGET_OBJECTS:${floor}>)
    endforeach()
    morvalen_target(${target})
    set_target_properties(${target} PROPERTIES
        LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/TclScripting>)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target} PUBLIC ${LIBRARY_LINKS})
endfunction()

# Interpreter and console, for applications that have nothing of designs: Tcl and Qt, no host.
morvalen_floors(TclConsole FLOORS interp console_core console LINKS Qt6::Widgets tcl)
add_library(TclScripting::Console ALIAS TclConsole)
set_target_properties(TclConsole PROPERTIES EXPORT_NAME Console)

# All of it.
morvalen_floors(TclScripting FLOORS commands scripting_core scripting
    LINKS TclConsole Qtilities MorvalenCore Qt6::Widgets tcl)
add_library(TclScripting::TclScripting ALIAS TclScripting)

# The same objects for tests, which may enter any floor and so see what the libraries hide.
add_library(all_floors INTERFACE)
target_sources(all_floors INTERFACE
    $<TARGET_OBJECTS:interp> $<TARGET_OBJECTS:console_core> $<TARGET_OBJECTS:console>
    $<TARGET_OBJECTS:commands> $<TARGET_OBJECTS:scripting_core> $<TARGET_OBJECTS:scripting>)
target_include_directories(all_floors INTERFACE "${PROJECT_SOURCE_DIR}")
target_link_libraries(all_floors INTERFACE Qtilities MorvalenCore Qt6::Widgets tcl)
