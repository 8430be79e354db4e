# The scripting library: the four floors in one shared library.
add_library(TclScripting SHARED
    $<TARGET_OBJECTS:interp> $<TARGET_OBJECTS:console>
    $<TARGET_OBJECTS:commands> $<TARGET_OBJECTS:scripting>)
add_library(TclScripting::TclScripting ALIAS TclScripting)
morvalen_target(TclScripting)
set_target_properties(TclScripting PROPERTIES
    LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
target_include_directories(TclScripting PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/TclScripting>)
target_compile_features(TclScripting PUBLIC cxx_std_20)
target_link_libraries(TclScripting PUBLIC Qtilities MorvalenCore Qt6::Widgets tcl)

# The same objects for tests, which may enter any floor and so see what the library hides.
add_library(all_floors INTERFACE)
target_sources(all_floors INTERFACE
    $<TARGET_OBJECTS:interp> $<TARGET_OBJECTS:console>
    $<TARGET_OBJECTS:commands> $<TARGET_OBJECTS:scripting>)
target_include_directories(all_floors INTERFACE "${PROJECT_SOURCE_DIR}")
target_link_libraries(all_floors INTERFACE Qtilities MorvalenCore Qt6::Widgets tcl)
