# Run by the test "package"; see CMakeLists.txt.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/must.cmake")

file(REMOVE_RECURSE "${WORK}")

# Each file belongs to exactly one component, and no component is anything else's.
set(parts)
foreach(component IN ITEMS runtime development program)
    must("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix"
        --component ${component})
    file(GLOB_RECURSE files RELATIVE "${WORK}/prefix" "${WORK}/prefix/*")
    list(REMOVE_ITEM files ${parts})
    list(LENGTH files count)
    if(count EQUAL 0)
        message(FATAL_ERROR "the component ${component} installs nothing that others do not")
    endif()
    list(APPEND parts ${files})
endforeach()
must("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/whole prefix")
file(GLOB_RECURSE whole RELATIVE "${WORK}/whole prefix" "${WORK}/whole prefix/*")
list(SORT parts)
list(SORT whole)
must_be("${parts}" "${whole}")

# The prefix may be moved.
file(RENAME "${WORK}/whole prefix" "${WORK}/moved prefix")
file(REMOVE_RECURSE "${WORK}/prefix")
set(prefix "${WORK}/moved prefix")

must("${prefix}/bin/morvalen" --version)
must_be("${output}" "morvalen ${VERSION}\n")

# What it opens only when it is wanted is found there, too.
include("${CMAKE_CURRENT_LIST_DIR}/opened_late.cmake")

set(flags "")
if(SANITIZE)
    set(flags "-fsanitize=address,undefined")
endif()
set(configure "${CMAKE_COMMAND}" -G "${GENERATOR}" "-DCMAKE_CXX_COMPILER=${COMPILER}"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_FLAGS=${flags}")
set(says "TclScripting ${VERSION}\n6 * 7 = 42\n\"consumer\" says: No active design\n")
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${WORK}/consumer")
must("${CMAKE_COMMAND}" --build "${WORK}/consumer")
must("${WORK}/consumer/consumer")
must_be("${output}" "${says}")

# The rules for hosts, kept and broken.
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/rules" -B "${WORK}/rules")
must("${CMAKE_COMMAND}" --build "${WORK}/rules")
include("${CMAKE_CURRENT_LIST_DIR}/rules.cmake")

# The least host with designs of its own, and with less than that.
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/least" -B "${WORK}/least")
must("${CMAKE_COMMAND}" --build "${WORK}/least")
include("${CMAKE_CURRENT_LIST_DIR}/least.cmake")

# The console alone: it needs nothing of designs.
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/console" -B "${WORK}/console")
must("${CMAKE_COMMAND}" --build "${WORK}/console")
must("${WORK}/console/console")
must_be("${output}" "Type here.\n\nmorvalen > shout hello\nHELLO\nmorvalen > after 1 {set done 1}; vwait done; puts waited\nwaited\nmorvalen > \n")
must(ldd "${WORK}/console/console")
foreach(word IN ITEMS TclConsole tcl8 Qt6Widgets)
    if(NOT output MATCHES "lib${word}")
        message(FATAL_ERROR "the console alone runs without lib${word}:\n${output}")
    endif()
endforeach()
foreach(word IN ITEMS TclScripting MorvalenCore Qtilities git2)
    if(output MATCHES "lib${word}")
        message(FATAL_ERROR "the console alone needs lib${word}:\n${output}")
    endif()
endforeach()

# The pages for hosts: their links hold, and the example is built from where it lies.
set(pages "${prefix}/share/doc/morvalen/docs")
foreach(page IN ITEMS embedding own-host running-scripts)
    file(READ "${pages}/${page}.md" text)
    string(REPLACE "](" "\n:" text "${text}") # brackets would join the elements of a list
    string(REGEX MATCHALL "\n:[^)#:]+[)#]" links "${text}")
    list(APPEND all_links ${links})
    foreach(link IN LISTS links)
        string(REGEX REPLACE "\n:(.*)." "\\1" path "${link}")
        if(NOT EXISTS "${pages}/${path}")
            message(FATAL_ERROR "the installed page ${page}.md leads to ${path}, which is not there")
        endif()
    endforeach()
endforeach()
if(NOT all_links)
    message(FATAL_ERROR "the installed pages have no links")
endif()
include("${CMAKE_CURRENT_LIST_DIR}/pages.cmake")
must(${configure} -S "${pages}/../examples/host" -B "${WORK}/example")
must("${CMAKE_COMMAND}" --build "${WORK}/example")
must("${WORK}/example/example_host" "${WORK}/shelf" "designs new uart {Custom Design} Flat"
    "designs list")
must_be("${output}" "Successfully created new design \"uart\"\n\"local.global.uart\"\n")

# How the package is asked for, and what it says when it cannot be had.
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/finding" -B "${WORK}/finding")

# The same without CMake, as docs/embedding.md says.
must(pkg-config --version)
ask_pkg_config("${prefix}" tclscripting)
must("${COMPILER}" ${flags} -fPIC "${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp"
    -o "${WORK}/plain" ${words} "-Wl,-rpath,${libraries}")
must("${WORK}/plain")
must_be("${output}" "${says}")
ask_pkg_config("${prefix}" tclconsole)
must("${COMPILER}" ${flags} -fPIC "${CMAKE_CURRENT_LIST_DIR}/console/main.cpp"
    -o "${WORK}/plain console" ${words})

# An older standard is refused in a sentence.
ask_pkg_config("${prefix}" tclscripting)
execute_process(COMMAND "${COMPILER}" ${words} -std=c++17 -fPIC -fsyntax-only
        "${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp"
    RESULT_VARIABLE result ERROR_VARIABLE errors)
string(FIND "${errors}" "These headers are C++20: compile what includes them with -std=c++20 or later"
    position)
if(result EQUAL 0 OR position EQUAL -1)
    message(FATAL_ERROR "compiled as C++17, it says:\n${errors}")
endif()
