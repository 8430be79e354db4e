# Run by the test "package"; see CMakeLists.txt.
cmake_minimum_required(VERSION 3.25)

function(must)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\nended with ${result}:\n${output}${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(must_be text expected)
    if(NOT text STREQUAL expected)
        message(FATAL_ERROR "expected:\n${expected}\nbut it says:\n${text}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK}")
must("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/prefix")

must("${WORK}/prefix/bin/morvalen" --version)
must_be("${output}" "morvalen ${VERSION}\n")

set(flags)
if(SANITIZE)
    set(flags "-DCMAKE_CXX_FLAGS=-fsanitize=address,undefined")
endif()
must("${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${CONSUMER}" -B "${WORK}/consumer"
    "-DCMAKE_PREFIX_PATH=${WORK}/prefix" ${flags})
must("${CMAKE_COMMAND}" --build "${WORK}/consumer")
must("${WORK}/consumer/consumer")
must_be("${output}" "6 * 7 = 42\n\"consumer\" says: No active design\n")
