# The parts that the program in the prefix opens or starts only when they are wanted: the library that
# asks Git, and the program that watches a build; included by package.cmake. It is called by its name,
# as from a shell.

set(repository "${WORK}/repository")
file(MAKE_DIRECTORY "${repository}")
file(WRITE "${repository}/top.v" "module top; endmodule\n")
set(git git -C "${repository}" -c user.name=nobody -c user.email=nobody@example.org)
must(${git} init --quiet)
must(${git} add top.v)
must(${git} commit --quiet -m "Begin")
must(${git} rev-parse --short=7 HEAD)
set(commit "${output}")

set(top "{${repository}/top.v}")
must(env "PATH=${prefix}/bin:$ENV{PATH}" morvalen --session "${WORK}/session"
    -c "designs new uart" -c "files add ${top}" -c "files set_active ${top}"
    -c "sfile get vcs" -c "sfile get revision")
if(NOT output MATCHES "\nGit\n${commit}$")
    message(FATAL_ERROR "the program in the prefix says of version control:\n${output}")
endif()

must(env "PATH=${prefix}/bin:$ENV{PATH}" morvalen --session "${WORK}/session"
    --batch "${CMAKE_CURRENT_LIST_DIR}/../../examples/05-software.tcl")
if(NOT output MATCHES "\nCleaned 5 of 5 files of design \"checksum\"\n")
    message(FATAL_ERROR "the program in the prefix says of a build:\n${output}")
endif()
