# The C++ of the page about embedding compiles as it stands there, against what is installed; included
# by package.cmake.

file(READ "${pages}/embedding.md" rest)
set(includes "")
set(bodies "")
set(count 0)
while(rest MATCHES "```cpp\n([^`]*)```(.*)")
    set(code "${CMAKE_MATCH_1}")
    set(rest "${CMAKE_MATCH_2}")
    while(code MATCHES "^(.*)(#include [^\n]*\n)(.*)$")
        set(code "${CMAKE_MATCH_1}${CMAKE_MATCH_3}")
        string(APPEND includes "${CMAKE_MATCH_2}")
    endwhile()
    string(APPEND bodies "{\n${code}}\n")
    math(EXPR count "${count} + 1")
endwhile()
must_be("${count}" "3")
file(WRITE "${WORK}/pages.cpp" "#include <QTextEdit>\n${includes}
struct Meter
{
    int read(void *, Tcl_Interp *, int, const char **) { return TCL_OK; }
};
int greet(void *, Tcl_Interp *, int, const char **);
void host(QTextEdit *editor, Meter &meter, int &volume);
void host(QTextEdit *editor, Meter &meter, int &volume)
{
${bodies}}
")
ask_pkg_config("${prefix}" tclscripting)
list(FILTER words EXCLUDE REGEX "^-[lL]") # nothing is linked
must("${COMPILER}" ${words} -Wall -Wextra -Werror -fPIC -fsyntax-only "${WORK}/pages.cpp")
