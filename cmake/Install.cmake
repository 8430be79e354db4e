# What is installed, in three components as distributions pack them:
#   runtime      the shared libraries
#   development  headers, the CMake package, pkg-config's files, and how to write a host
#   program      the program and what a desktop and a shell know of it
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)

set(PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/TclScripting")

install(TARGETS morvalen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS window LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/morvalen)
install(TARGETS supervise-build RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/morvalen)
install(TARGETS Qtilities MorvalenCore TclConsole TclScripting tcl EXPORT TclScriptingTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT runtime NAMELINK_COMPONENT development)
# Opened by MorvalenCore, beside which it lies; nobody links it.
install(TARGETS MorvalenGit
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_SKIP)
install(EXPORT TclScriptingTargets NAMESPACE TclScripting:: DESTINATION "${PACKAGE_DIR}"
    COMPONENT development)

install(DIRECTORY host/Qtilities/include/Qtilities host/MorvalenCore/include/MorvalenCore
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
foreach(header IN LISTS TCLSCRIPTING_PUBLIC_HEADERS)
    get_filename_component(floor "${header}" DIRECTORY)
    install(FILES "${header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/TclScripting/${floor}"
        COMPONENT development)
endforeach()
configure_file(cmake/version.h.in "${CMAKE_BINARY_DIR}/version.h" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/version.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/TclScripting/scripting" COMPONENT development)

# Both kinds of package find the rest of the installation from where they lie: the prefix can be
# moved.
include(CMakePackageConfigHelpers)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/TclScriptingConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_BINARY_DIR}/TclScriptingConfigVersion.cmake"
    cmake/TclScriptingConfig.cmake
    cmake/find-tcl.cmake
    DESTINATION "${PACKAGE_DIR}" COMPONENT development)
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH to_prefix "/prefix/${pkgconfig_dir}" /prefix)
string(REGEX REPLACE "/$" "" to_prefix "${to_prefix}")
foreach(library IN ITEMS qtilities morvalencore tclconsole tclscripting)
    configure_file(cmake/${library}.pc.in "${CMAKE_BINARY_DIR}/${library}.pc" @ONLY)
    install(FILES "${CMAKE_BINARY_DIR}/${library}.pc" DESTINATION "${pkgconfig_dir}"
        COMPONENT development)
endforeach()

# How to write a host: the pages lie as they do here, so that their links hold.
set(MORVALEN_HOST_DOC_DIR "${CMAKE_INSTALL_DATAROOTDIR}/doc/morvalen" CACHE STRING
    "Where the pages and the example for hosts go")
install(FILES docs/embedding.md docs/own-host.md docs/running-scripts.md
    DESTINATION "${MORVALEN_HOST_DOC_DIR}/docs" COMPONENT development)
install(DIRECTORY examples/host DESTINATION "${MORVALEN_HOST_DOC_DIR}/examples"
    COMPONENT development)

# The desktop's share, and the shell's.
set(share "${CMAKE_INSTALL_DATAROOTDIR}")
set(MORVALEN_ZSH_DIR "${share}/zsh/site-functions" CACHE STRING "Where zsh looks for completions")
configure_file(desktop/morvalen.metainfo.xml.in
    "${CMAKE_BINARY_DIR}/desktop/org.morvalen.morvalen.metainfo.xml" @ONLY)
install(FILES desktop/morvalen.desktop DESTINATION "${share}/applications")
install(FILES "${CMAKE_BINARY_DIR}/desktop/org.morvalen.morvalen.metainfo.xml"
    DESTINATION "${share}/metainfo")
install(FILES desktop/morvalen-mime.xml DESTINATION "${share}/mime/packages"
    RENAME morvalen.xml)
install(FILES app/icons/morvalen.svg DESTINATION "${share}/icons/hicolor/scalable/apps")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    install(FILES desktop/icons/morvalen_${size}.png
        DESTINATION "${share}/icons/hicolor/${size}x${size}/apps" RENAME morvalen.png)
endforeach()
install(FILES "${CMAKE_BINARY_DIR}/desktop/morvalen.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${CMAKE_BINARY_DIR}/desktop/morvalen.bash"
    DESTINATION "${share}/bash-completion/completions" RENAME morvalen)
install(FILES "${CMAKE_BINARY_DIR}/desktop/_morvalen"
    DESTINATION "${MORVALEN_ZSH_DIR}")
install(FILES LICENSE CHANGELOG.md DESTINATION "${share}/doc/morvalen")
