# What every target of the project shares: language level, warnings, sanitizers, output folders.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)

find_program(KORVO_CCACHE ccache)
if(KORVO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers and the build stamps of the trace scopes need these two allowances.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${KORVO_CCACHE})
endif()

find_program(KORVO_LLD ld.lld)
if(KORVO_LLD AND NOT WIN32)
  add_link_options(-fuse-ld=lld)
endif()

set(KORVO_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")
if(KORVO_SANITIZE)
  add_compile_options(-fsanitize=${KORVO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${KORVO_SANITIZE})
endif()

add_library(korvo_options INTERFACE)
target_compile_options(korvo_options INTERFACE -Wall -Wextra -Wpedantic -Werror -Wshadow=local)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlaps in "literal" + std::string that cannot be.
  target_compile_options(korvo_options INTERFACE -Wno-restrict)
endif()
target_include_directories(korvo_options INTERFACE ${CMAKE_SOURCE_DIR})

# A library of one layer: `korvo_library(name STATIC|SHARED|OBJECT sources...)`.
function(korvo_library name type)
  add_library(${name} ${type} ${ARGN})
  target_link_libraries(${name} PRIVATE korvo_options)
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
endfunction()

# A test program named after the layer that it tests; every TEST is a CTest test of its own.
function(korvo_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE korvo_options ${ARG_LIBRARIES} GTest::gtest GTest::gmock GTest::gtest_main)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <gmock/gmock.h> <string> <vector> <memory>)
  target_compile_definitions(${name} PRIVATE KORVO_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;KORVO_CATALOGUES=${CMAKE_SOURCE_DIR}/catalogues;${ARG_ENVIRONMENT}")
endfunction()
