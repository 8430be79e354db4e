# How every target of the project is compiled, and who may include whom.
#
# A floor sees its own headers, those of the floors it may enter, and the public headers of the
# libraries it links. Each floor's include path is a folder of links to just these, so that an
# include which goes up or sideways does not compile.

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")

add_library(conventions INTERFACE)
target_compile_features(conventions INTERFACE cxx_std_20)
target_compile_options(conventions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-function-type
    # GCC 12 takes the payload of an empty std::optional for a variable that is read unset.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    $<$<BOOL:${MORVALEN_WERROR}>:-Werror>
    $<$<BOOL:${MORVALEN_SANITIZE}>:-fsanitize=address,undefined
        -fno-sanitize-recover=undefined -fno-omit-frame-pointer>)
target_link_options(conventions INTERFACE
    $<$<BOOL:${MORVALEN_SANITIZE}>:-fsanitize=address,undefined>)
target_compile_definitions(conventions INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060000)

# morvalen_target(<target>): the settings that all targets share.
function(morvalen_target target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTORCC ON
        CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:conventions>)
endfunction()

# morvalen_floor(<name> SOURCES <file>... [ENTERS <floor>...] [LINKS <target>...])
# An object library of one floor of the scripting library.
function(morvalen_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;ENTERS;LINKS" ${ARGN})
    add_library(${name} OBJECT ${FLOOR_SOURCES})
    morvalen_target(${name})
    set(view "${CMAKE_BINARY_DIR}/floors/${name}")
    file(MAKE_DIRECTORY "${view}")
    foreach(visible IN ITEMS ${name} ${FLOOR_ENTERS})
        file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${visible}" "${view}/${visible}" SYMBOLIC)
    endforeach()
    target_include_directories(${name} PRIVATE "${view}")
    target_link_libraries(${name} PUBLIC ${FLOOR_LINKS})
    target_compile_definitions(${name} PRIVATE TCLSCRIPTING_LIBRARY)
endfunction()
