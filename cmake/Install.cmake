# What other hosts get: program, libraries, headers and a package for
# find_package(TclScripting).
include(CMakePackageConfigHelpers)

set(PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/TclScripting")

install(TARGETS morvalen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS supervise-build RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/morvalen)
install(TARGETS Qtilities MorvalenCore TclScripting tcl EXPORT TclScriptingTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT TclScriptingTargets NAMESPACE TclScripting:: DESTINATION "${PACKAGE_DIR}")

install(DIRECTORY host/Qtilities/include/Qtilities host/MorvalenCore/include/MorvalenCore
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
foreach(header IN LISTS TCLSCRIPTING_PUBLIC_HEADERS)
    get_filename_component(floor "${header}" DIRECTORY)
    install(FILES "${header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/TclScripting/${floor}")
endforeach()

configure_package_config_file(cmake/TclScriptingConfig.cmake.in
    "${CMAKE_BINARY_DIR}/TclScriptingConfig.cmake" INSTALL_DESTINATION "${PACKAGE_DIR}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/TclScriptingConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_BINARY_DIR}/TclScriptingConfig.cmake"
    "${CMAKE_BINARY_DIR}/TclScriptingConfigVersion.cmake"
    cmake/tcl-target.cmake
    DESTINATION "${PACKAGE_DIR}")
