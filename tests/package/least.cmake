# What the least host answers, whole and with one thing less after the other; included by
# package.cmake. The expected answers lie beside the host.
foreach(less IN ITEMS nothing design file build manager factory window)
    must("${WORK}/least/least" ${less})
    file(READ "${CMAKE_CURRENT_LIST_DIR}/least/${less}.txt" expected)
    must_be("without ${less}:\n${output}" "without ${less}:\n${expected}")
endforeach()
