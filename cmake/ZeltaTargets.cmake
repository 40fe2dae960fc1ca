# How every target of the project is compiled, and the two functions that declare one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(ZELTA_CCACHE ccache)
if(ZELTA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ZELTA_CCACHE}")
endif()

add_library(zelta_options INTERFACE)
target_include_directories(zelta_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_definitions(zelta_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(zelta_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${ZELTA_WERROR}>:-Werror>)
if(ZELTA_SANITIZE)
  target_compile_options(zelta_options INTERFACE
    -fsanitize=${ZELTA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(zelta_options INTERFACE -fsanitize=${ZELTA_SANITIZE})
endif()

# The tests are some eighty programs, which this linker makes several times as fast as the usual one.
find_program(ZELTA_MOLD mold)
if(ZELTA_TESTS AND ZELTA_MOLD)
  target_link_options(zelta_options INTERFACE -fuse-ld=mold)
endif()

# zelta_headers(NAME HEADERS … LINKS …): headers of Qt, of the standard library and of the tests that are compiled once for
# all targets that take them with zelta_take_headers. No header of the project is among them: each source includes those.
function(zelta_headers name)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  if(ZELTA_PRECOMPILE)
    file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp" CONTENT "// Only its headers matter.\n")
    add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${name} PRIVATE zelta_options ${ARG_LINKS})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()

function(zelta_take_headers target headers)
  if(ZELTA_PRECOMPILE)
    # Without it the compiler cache cannot see what stands in a precompiled header.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    target_precompile_headers(${target} REUSE_FROM ${headers})
  endif()
endfunction()

set(zelta_common_headers
  <algorithm> <array> <chrono> <functional> <memory> <optional> <utility> <vector>
  <QByteArray> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QLoggingCategory> <QObject> <QString> <QStringList>
  <QTimer> <QVariant> <QVariantMap>)
zelta_headers(zelta_headers_of_sources HEADERS ${zelta_common_headers} LINKS Qt6::Core)

# zelta_library(NAME SOURCES … LINKS … HIDES …): one static library a folder, or two where there is a core and a ui. What
# its headers need is linked; what its sources alone need is hidden and does not reach the rooms above.
function(zelta_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;HIDES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC zelta_options ${ARG_LINKS} PRIVATE ${ARG_HIDES})
  zelta_take_headers(${name} zelta_headers_of_sources)
endfunction()

# zelta_test(NAME SOURCES … LINKS …): one GoogleTest program a folder of tests. It runs with the offscreen platform
# and with a home of its own, see tests/support/TestMain.cpp.
function(zelta_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE ZELTA_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  target_link_libraries(${name} PRIVATE zelta_options zelta_test_support ${ARG_LINKS})
  zelta_take_headers(${name} zelta_headers_of_tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
