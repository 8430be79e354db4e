# What the scripts of this folder share.

# Runs a command that must succeed; leaves its output in "output".
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

# The compiler's and linker's words for what lies in the prefix, by pkg-config, in "words".
function(ask_pkg_config prefix library)
    file(GLOB_RECURSE found "${prefix}/*/tclscripting.pc")
    cmake_path(GET found PARENT_PATH folder)
    set(ENV{PKG_CONFIG_PATH} "${folder}")
    must(pkg-config --cflags --libs ${library})
    string(STRIP "${output}" output)
    separate_arguments(words UNIX_COMMAND "${output}")
    set(words "${words}" PARENT_SCOPE)
    must(pkg-config --variable=libdir ${library})
    string(STRIP "${output}" output)
    separate_arguments(libraries UNIX_COMMAND "${output}")
    set(libraries "${libraries}" PARENT_SCOPE)
endfunction()
