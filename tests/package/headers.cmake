# Run by the tests "package_headers_..."; see CMakeLists.txt.
cmake_minimum_required(VERSION 3.25)
include("${CMAKE_CURRENT_LIST_DIR}/must.cmake")

file(REMOVE_RECURSE "${WORK}")
must("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix" --component development)
file(GLOB_RECURSE headers "${WORK}/prefix/include/*.h")
ask_pkg_config("${WORK}/prefix" tclscripting)

# What belongs to others is not for us to judge.
set(quiet)
foreach(word IN LISTS words)
    string(FIND "${word}" "-I${WORK}" ours)
    if(word MATCHES "^-I" AND NOT ours EQUAL 0)
        string(REPLACE "-I" "-isystem" word "${word}")
    endif()
    if(NOT word MATCHES "^-[lL]")
        list(APPEND quiet "${word}")
    endif()
endforeach()
set(strict -fsyntax-only -fPIC -x c++ -Werror -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-function-type
    -Wextra-semi -Wundef -Wcast-qual -Wnull-dereference
    -DQT_NO_KEYWORDS -DQT_NO_CAST_FROM_ASCII -DQT_NO_CAST_TO_ASCII)

cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)
list(JOIN headers "\n" lines)
file(WRITE "${WORK}/headers.txt" "${lines}\n")
execute_process(COMMAND xargs -n 1 -P ${processors} "${COMPILER}" ${quiet} ${strict} /dev/null -include
    INPUT_FILE "${WORK}/headers.txt" RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${COMPILER} refuses headers:\n${errors}")
endif()
