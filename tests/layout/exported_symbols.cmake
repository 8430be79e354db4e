# Compares what the library exports with exports.txt, both ways.
cmake_minimum_required(VERSION 3.25)
file(STRINGS "${LIST}" allowed REGEX "^[^#]")
execute_process(COMMAND "${NM}" -D --defined-only -C "${LIBRARY}"
    OUTPUT_VARIABLE symbols RESULT_VARIABLE failed)
if(failed)
    message(FATAL_ERROR "${NM} failed on ${LIBRARY}")
endif()

# What the compiler emits for templates and inline functions of Qt and the standard library is
# weak (W, V, u) and nobody's interface; what the library itself defines is T, D, B or R.
string(REPLACE "\n" ";" symbols "${symbols}")
set(seen)
foreach(line IN LISTS symbols)
    if(NOT line MATCHES "^[0-9a-f]+ [TDBR] (.*)$")
        continue()
    endif()
    set(symbol "${CMAKE_MATCH_1}")
    if(symbol MATCHES "^(__bss_start|_edata|_end|_init|_fini|__odr_asan.*)$") # the linker's and the sanitizer's own
        continue()
    endif()
    string(REGEX REPLACE "^(vtable for|typeinfo for|typeinfo name for|VTT for|guard variable for|(non-)?virtual thunk to) " "" symbol "${symbol}")
    # That of a base belongs to the class that has the base.
    string(REGEX REPLACE "^construction vtable for .*-in-" "" symbol "${symbol}")
    set(known FALSE)
    foreach(name IN LISTS allowed)
        # A class is also the end of "vtable for X".
        string(FIND "${symbol}::" "${name}" position)
        if(position EQUAL 0)
            list(APPEND seen "${name}")
            set(known TRUE)
            break()
        endif()
    endforeach()
    if(NOT known)
        message(SEND_ERROR "exported, but not listed in exports.txt: ${symbol}")
    endif()
endforeach()
foreach(name IN LISTS allowed)
    if(NOT name IN_LIST seen)
        message(SEND_ERROR "listed in exports.txt, but not exported: ${name}")
    endif()
endforeach()
