# How every target of the project is compiled.

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
# As it will be installed, so that programs find libraries in the same way.
file(RELATIVE_PATH libraries_from_programs
    "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
cmake_path(ABSOLUTE_PATH libraries_from_programs BASE_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
    NORMALIZE OUTPUT_VARIABLE CMAKE_LIBRARY_OUTPUT_DIRECTORY)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CMAKE_INSTALL_RPATH "$ORIGIN/${libraries_from_programs};$ORIGIN")

# Most of the code runs once between two waits for the disk, after which the processor fetches it
# anew: less of it is faster. CMake's own choice is more; what somebody else chose stays.
if(CMAKE_CXX_FLAGS_RELEASE STREQUAL "-O3 -DNDEBUG")
    set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
endif()

add_library(conventions INTERFACE)
target_compile_features(conventions INTERFACE cxx_std_20)
target_compile_options(conventions INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-function-type
    # GCC 12 takes the payload of an empty std::optional for a variable that is read unset.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    $<$<BOOL:${MORVALEN_WERROR}>:-Werror>
    $<$<BOOL:${MORVALEN_SANITIZE}>:-fsanitize=address,undefined
        -fno-sanitize-recover=undefined -fno-omit-frame-pointer>)
# Some Qts ask for it by themselves. Where Qt does not, programs would be compiled otherwise than the
# headers that they share with libraries.
get_target_property(qt_options Qt6::Core INTERFACE_COMPILE_OPTIONS)
if(NOT "-fPIC" IN_LIST qt_options)
    target_compile_options(conventions INTERFACE -fPIC)
endif()
target_link_options(conventions INTERFACE
    $<$<BOOL:${MORVALEN_SANITIZE}>:-fsanitize=address,undefined>)
target_compile_definitions(conventions INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x060000)

# What only tests add: Qt Test, and less optimization where compiling takes longer than running; none
# under the sanitizers, where it takes longest and leaves them less to see.
# Without the definitions of Qt6::Test, which differ by folder and so would forbid a shared
# precompiled header.
if(MORVALEN_TESTS)
    add_library(test_conventions INTERFACE)
    target_include_directories(test_conventions SYSTEM INTERFACE
        $<TARGET_PROPERTY:Qt6::Test,INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_definitions(test_conventions INTERFACE QT_TESTLIB_LIB)
    target_compile_options(test_conventions INTERFACE
        $<$<CONFIG:Release>:-O1> $<$<BOOL:${MORVALEN_SANITIZE}>:-O0>)
    target_link_libraries(test_conventions INTERFACE $<LINK_ONLY:Qt6::Test>
        Qt6::Widgets Qt6::Network)
endif()

# What a class's macros need of other headers are at most the project's own declarations. Qt's moc
# would read all of Qt and of the system for each class, which takes twenty times as long. Its name
# bears the version, so that another Qt makes all anew.
set(MORVALEN_MOC "${CMAKE_BINARY_DIR}/moc-${Qt6_VERSION}")
get_target_property(qt_moc Qt6::moc LOCATION)
configure_file(cmake/moc.in "${MORVALEN_MOC}" @ONLY)

# The settings that all targets share.
function(morvalen_settings target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTORCC ON AUTOMOC_EXECUTABLE "${MORVALEN_MOC}"
        CXX_EXTENSIONS OFF
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:conventions>)
endfunction()

# morvalen_pch(<name> HEADERS <header>... [LINKS <target>...])
# Headers compiled once for all targets that are compiled with the same flags. They save time only:
# every source includes what it uses, and MORVALEN_PCH=OFF shows it.
function(morvalen_pch name)
    cmake_parse_arguments(PCH "" "" "HEADERS;LINKS" ${ARGN})
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/pch/${name}.cpp" CONTENT "")
    add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/pch/${name}.cpp")
    morvalen_settings(${name})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE ${PCH_LINKS})
    target_precompile_headers(${name} PRIVATE ${PCH_HEADERS})
endfunction()

if(MORVALEN_PCH)
    # What several sources include; whole modules make the header so large that reading it costs
    # more than it saves.
    set(library_headers
        <algorithm> <functional> <memory> <optional> <vector>
        <QAction> <QApplication> <QBoxLayout> <QByteArray> <QDialogButtonBox> <QDir> <QFile>
        <QFileInfo> <QFormLayout> <QHash> <QKeyEvent> <QLabel> <QLineEdit> <QList> <QMainWindow>
        <QMap> <QMenu> <QMessageBox> <QObject> <QPlainTextEdit> <QPointer> <QPushButton>
        <QRegularExpression> <QScrollBar> <QSet> <QSettings> <QString> <QStringList> <QTextBlock>
        <QTimer> <QTreeView> <QVariant> <QWidget>)
    # Without the definitions of Gui and Widgets, which those who link less do not have.
    morvalen_pch(library_pch HEADERS ${library_headers} LINKS Qt6::Core)
    target_include_directories(library_pch SYSTEM PRIVATE
        $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES>
        $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>)
    if(MORVALEN_TESTS)
        morvalen_pch(test_pch HEADERS ${library_headers}
            <QClipboard> <QElapsedTimer> <QProcess> <QSignalSpy> <QTemporaryDir> <QTest>
            LINKS test_conventions)
    endif()
endif()

# morvalen_target(<target>): a library or a program.
function(morvalen_target target)
    morvalen_settings(${target})
    # A path that is to be changed at installation CMake ends with a colon, by which the loader
    # would look for Qt in the current folder, whoever put what there.
    if(NOT CMAKE_SKIP_INSTALL_RPATH)
        set_target_properties(${target} PROPERTIES BUILD_WITH_INSTALL_RPATH ON)
    endif()
    if(MORVALEN_PCH)
        target_precompile_headers(${target} REUSE_FROM library_pch)
    endif()
endfunction()

# morvalen_test_target(<target>): a test program, or what such programs share.
function(morvalen_test_target target)
    morvalen_settings(${target})
    target_link_libraries(${target} PRIVATE test_conventions)
    if(MORVALEN_PCH)
        target_precompile_headers(${target} REUSE_FROM test_pch)
    endif()
endfunction()
