# Settings and functions for all targets of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set_property(GLOBAL PROPERTY USE_FOLDERS ON)

# Folder of the scripture files, which the host build makes for all presets.
set(VERSEWELL_DATA_DIR ${PROJECT_SOURCE_DIR}/build/data)
set(VERSEWELL_SCRIPTURE_DIGESTS ${VERSEWELL_DATA_DIR}/scripture.sha256)  # becomes part of the program

add_library(vw_options INTERFACE)
target_include_directories(vw_options INTERFACE ${PROJECT_SOURCE_DIR})
if(MSVC)
  target_compile_options(vw_options INTERFACE /W4 /WX /permissive- /utf-8)
else()
  target_compile_options(vw_options INTERFACE -Wall -Wextra -Wshadow -Wconversion -Wmissing-declarations -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # False warnings for `"a" + std::to_string(n)` (GCC bug 105651).
    target_compile_options(vw_options INTERFACE -Wno-restrict)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # What no header declares is static.
    target_compile_options(vw_options INTERFACE -Wmissing-prototypes -Wmissing-variable-declarations)
  endif()
endif()
# For loops of a few instructions: where one begins makes a tenth of its time, so it does not depend on the code before it.
add_library(vw_aligned INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(vw_aligned INTERFACE -falign-functions=64 -falign-loops=32)
endif()
if(WIN32)
  target_compile_definitions(vw_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX STRICT _WIN32_WINNT=0x0601)
endif()
if(VERSEWELL_SANITIZE)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    message(FATAL_ERROR "The fuzz targets need clang. This build started with another compiler: run cmake --fresh --preset host-asan")
  endif()
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(VERSEWELL_SANITIZED)
endif()

# GoogleTest is built from Debian's sources, so that the host, the sanitizers and Windows use the same version.
# Visual Studio builds only the program.
if(NOT MSVC)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  include(GoogleTest)
endif()

# vw_build_fast(<target>...): compiles tests with little or no optimization, because they are built more often than they
# run; the tested code is still optimized. MinGW's linker takes half a minute for all the small procedures that no
# optimization leaves, and three seconds for the others.
function(vw_build_fast)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE $<IF:$<BOOL:${MINGW}>,-Og,-O0>)
  endforeach()
endfunction()

# Fixtures in unnamed namespaces are in included files when tests are compiled together. Of shadowed names only those in
# the same procedure count then, because others may be from another file.
add_library(vw_joined INTERFACE)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(vw_joined INTERFACE -Wno-subobject-linkage -Wno-shadow -Wshadow=local)
endif()

# vw_join_tests(<target>): compiles the files of a test program together whose names begin with the same letter. That
# takes half the time, most of which goes into the same templates of the standard library and GoogleTest. So files of
# one letter cannot have procedures of the same name, not even static ones.
function(vw_join_tests target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  foreach(source ${sources})
    get_filename_component(name ${source} NAME)
    string(SUBSTRING ${name} 0 1 letter)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${letter})
  endforeach()
  target_link_libraries(${target} PRIVATE vw_joined)
endfunction()
if(TARGET gtest)
  vw_build_fast(gtest gtest_main gmock gmock_main)
endif()

# GoogleTest's headers take longer to compile than most tests, so all native test programs share one precompiled header.
if(NOT WIN32)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/test_headers.cpp CONTENT "")
  add_library(vw_test_headers OBJECT ${CMAKE_BINARY_DIR}/test_headers.cpp)
  target_link_libraries(vw_test_headers PRIVATE vw_options GTest::gmock)
  target_precompile_headers(vw_test_headers PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
  vw_build_fast(vw_test_headers)
endif()

# vw_instrument(<target>): lets the fuzz targets see which code of a core library an input reaches.
function(vw_instrument target)
  if(VERSEWELL_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
  endif()
endfunction()

# What most files include and what takes most of the time of a build. Nothing is precompiled or joined with
# VERSEWELL_ALONE, so that a missing include is noticed; ./check --long builds so.
option(VERSEWELL_ALONE "Compile each file by itself, with nothing but what it includes")
set(VERSEWELL_COMMON_HEADERS <algorithm> <array> <cstring> <limits> <optional> <span> <string> <string_view> <utility>
                             <vector>)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  # From precompiled headers GCC warns of the system's own procedures. The build without them has these warnings.
  set(VERSEWELL_PRECOMPILED_OPTIONS -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
if(NOT MSVC AND NOT VERSEWELL_ALONE)
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/core_headers.cpp CONTENT "")
  add_library(vw_core_headers OBJECT ${CMAKE_BINARY_DIR}/core_headers.cpp)
  target_link_libraries(vw_core_headers PRIVATE vw_options)
  vw_instrument(vw_core_headers)
  target_precompile_headers(vw_core_headers PRIVATE ${VERSEWELL_COMMON_HEADERS})
  target_compile_options(vw_core_headers PRIVATE ${VERSEWELL_PRECOMPILED_OPTIONS})
endif()

# What no other build has: the files that this one makes for all, and the tests that the sanitizers' build lacks. ./check
# runs all other native tests there.
if(NOT WIN32 AND NOT VERSEWELL_SANITIZE)
  add_custom_target(host_only)
endif()
function(vw_host_only)
  if(TARGET host_only)
    add_dependencies(host_only ${ARGN})
  endif()
endfunction()

# Builds that are made once, to look for faults, compile the core files of a folder together, which takes a third of the
# time. So files of one folder cannot have static procedures or constants of the same name. Programs that are released or
# measured are compiled file by file.
option(VERSEWELL_JOIN "Compile the core files of a folder together")
function(vw_join_core target)
  if(VERSEWELL_JOIN AND NOT VERSEWELL_ALONE)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    target_link_libraries(${target} PRIVATE vw_joined)
  endif()
endfunction()

# vw_core(<folder> SOURCES ... [USES <folder>...]): a library with the core of a folder, which builds on any system. A
# folder of the program uses the folders that the graph names; other libraries name theirs.
include(${CMAKE_CURRENT_LIST_DIR}/graph.cmake)
function(vw_core folder)
  cmake_parse_arguments(PARSE_ARGV 1 core "" "" "SOURCES;USES")
  list(APPEND core_USES ${STANDS_ON_${folder}})
  add_library(vw_${folder} STATIC ${core_SOURCES})
  list(TRANSFORM core_USES PREPEND vw_)
  target_link_libraries(vw_${folder} PUBLIC vw_options ${core_USES})
  vw_instrument(vw_${folder})
  vw_join_core(vw_${folder})
  if(TARGET vw_core_headers)
    target_precompile_headers(vw_${folder} REUSE_FROM vw_core_headers)
    target_compile_options(vw_${folder} PRIVATE ${VERSEWELL_PRECOMPILED_OPTIONS})
  endif()
endfunction()

# vw_shell(<file>...): adds files that need Windows to the program.
function(vw_shell)
  if(WIN32)
    target_sources(versewell PRIVATE ${ARGN})
  endif()
endfunction()

# vw_read_as_used(<program>): aligns the parts of the file like those in memory. So Wine maps the file, of which only
# what is used is read, as Windows does in any case; otherwise it would read all of it at the start.
function(vw_read_as_used program)
  if(MINGW)
    target_link_options(${program} PRIVATE -Wl,--file-alignment=4096)
  endif()
endfunction()

# vw_protect(<program>): no time of the link in the file, so that every build of a version is the same; loaded at any
# address, above 4 GB where there is one; no data is executed. mingw-w64 has no tables for Control Flow Guard. On Linux
# the compiler does the same by itself, but adds a number that depends on the folder of the build.
function(vw_protect program)
  if(MINGW)
    target_link_options(${program} PRIVATE -Wl,--no-insert-timestamp,--dynamicbase,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      target_link_options(${program} PRIVATE -Wl,--high-entropy-va)
    endif()
  elseif(UNIX)
    target_link_options(${program} PRIVATE -Wl,--build-id=none)
  endif()
endfunction()

# vw_test(<name> SOURCES ... USES <folder>... [LABEL <label>]): a native test program, whose tests are added to CTest.
# Those with a label are built by the preset host only: `house` for checks of the source tree, otherwise `host`.
function(vw_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "LABEL" "SOURCES;USES")
  if(WIN32)
    return()
  endif()
  add_executable(${name} ${test_SOURCES})
  list(TRANSFORM test_USES PREPEND vw_)
  target_link_libraries(${name} PRIVATE vw_options ${test_USES} GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE VERSEWELL_DATA_DIR="${VERSEWELL_DATA_DIR}"
                                             VERSEWELL_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  vw_build_fast(${name})
  target_precompile_headers(${name} REUSE_FROM vw_test_headers)
  if(test_LABEL)
    vw_host_only(${name})
  endif()
  # Listing the tests takes no time, but ./check runs them beside others, with a low priority.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120 PROPERTIES LABELS "${test_LABEL}")
endfunction()
