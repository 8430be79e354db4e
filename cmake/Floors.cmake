# Who may include whom.
#
# A room, and a floor that is one room, sees its own headers, those of the rooms it may enter, and the
# public headers of the libraries it links. Each room's include path is a folder of links to just
# these, so that an include which goes up or sideways does not compile.

# morvalen_room(<name> ROOT <folder> FOLDER <room> SOURCES <file>... [ENTERS <room>...]
#               [LINKS <target>...])
# An object library of one room. Rooms are named as includes name them, by their path below ROOT;
# sources by their path in the room. What links the library, a test, sees every room below ROOT.
function(morvalen_room name)
    cmake_parse_arguments(ROOM "" "ROOT;FOLDER" "SOURCES;ENTERS;LINKS" ${ARGN})
    list(TRANSFORM ROOM_SOURCES PREPEND "${ROOM_ROOT}/${ROOM_FOLDER}/")
    add_library(${name} OBJECT ${ROOM_SOURCES})
    morvalen_target(${name})
    set(view "${CMAKE_BINARY_DIR}/rooms/${name}")
    # What a room may no longer enter must not stay in sight.
    file(REMOVE_RECURSE "${view}")
    foreach(visible IN ITEMS ${ROOM_FOLDER} ${ROOM_ENTERS})
        cmake_path(GET visible PARENT_PATH above)
        file(MAKE_DIRECTORY "${view}/${above}")
        file(CREATE_LINK "${ROOM_ROOT}/${visible}" "${view}/${visible}" SYMBOLIC)
    endforeach()
    target_include_directories(${name} PRIVATE "${view}" INTERFACE "${ROOM_ROOT}")
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS})
endfunction()

# morvalen_floor(<name> [FOLDER <floor>] SOURCES <file>... [ENTERS <floor>...] [LINKS <target>...])
# A floor of the scripting library, which is one room; or a part of the floor whose folder is named.
function(morvalen_floor name)
    cmake_parse_arguments(FLOOR "" "FOLDER" "" ${ARGN})
    if(NOT FLOOR_FOLDER)
        set(FLOOR_FOLDER ${name})
    endif()
    morvalen_room(${name} ROOT "${PROJECT_SOURCE_DIR}" FOLDER ${FLOOR_FOLDER}
        ${FLOOR_UNPARSED_ARGUMENTS})
    target_compile_definitions(${name} PRIVATE TCLSCRIPTING_LIBRARY)
endfunction()
