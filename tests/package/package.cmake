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

# How the package is asked for, and what it says when it cannot be had.
must(${configure} -S "${CMAKE_CURRENT_LIST_DIR}/finding" -B "${WORK}/finding")

# The same without CMake.
must(pkg-config --version)
ask_pkg_config("${prefix}" tclscripting)
must("${COMPILER}" ${flags} -fPIC "${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp"
    -o "${WORK}/plain" ${words})
must("${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${libraries}" "${WORK}/plain")
must_be("${output}" "${says}")
