# How every target of the house is built: one place for the language level, the warnings and the naming.

add_library(zefta_options INTERFACE)
target_compile_features(zefta_options INTERFACE cxx_std_20)
target_include_directories(zefta_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(zefta_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Werror
  # GCC 12 sees overlapping copies in its own std::string.
  -Wno-restrict
  # A product and a sum stay two roundings on every processor, so that audio comes out the same everywhere.
  -ffp-contract=off)
set(CMAKE_CXX_EXTENSIONS OFF)
# The layers are linked into the program and into its module of windows; hidden names keep the calls between
# them as direct as in a program without one.
target_compile_options(zefta_options INTERFACE -fPIC)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# zefta_layer(NAME SOURCES... USES LAYERS...): a static library of all sources of src/NAME, with the
# layers that it may use. A layer that is not listed here cannot be linked against.
function(zefta_layer name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${name}/*.cpp)
  add_library(zefta_${name} STATIC ${sources})
  target_link_libraries(zefta_${name} PUBLIC zefta_options)
  foreach(layer IN LISTS ARG_USES)
    target_link_libraries(zefta_${name} PUBLIC zefta_${layer})
  endforeach()
endfunction()

# The headers that make up most of the time of every compilation, compiled once a target.
set(zefta_standard_headers
  <algorithm> <cstdint> <functional> <map> <memory> <optional> <sstream> <string> <vector>)
set(zefta_window_headers ${zefta_standard_headers} <QtWidgets>)

# Tests run for seconds and are built for minutes: without optimisation, with the headers that all of them need
# compiled once. TOOLKIT behind the target adds those of the windows.
function(zefta_test_code target)
  target_compile_options(${target} PRIVATE -O0)
  if("TOOLKIT" IN_LIST ARGN)
    target_precompile_headers(${target} PRIVATE ${zefta_window_headers} <QtTest> <gtest/gtest.h>)
  elseif(target STREQUAL zefta_test_support)
    target_precompile_headers(${target} PRIVATE ${zefta_standard_headers} <gtest/gtest.h>)
  else()
    target_precompile_headers(${target} REUSE_FROM zefta_test_support)
  endif()
endfunction()

# zefta_test(NAME [TOOLKIT] USES LAYERS... LABELS...): one test program of all sources of tests/NAME. It is run a few
# times, each time for its share of the tests: a process for each test would take longer than the tests.
function(zefta_test name)
  cmake_parse_arguments(ARG "TOOLKIT" "" "USES;LABELS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${name}/*.cpp)
  add_executable(zefta_${name}_tests ${sources})
  if(ARG_TOOLKIT)
    target_sources(zefta_${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests/toolkit/OffscreenMain.cpp)
    zefta_test_code(zefta_${name}_tests TOOLKIT)
    set_target_properties(zefta_${name}_tests PROPERTIES AUTOMOC ON)
    target_link_libraries(zefta_${name}_tests PRIVATE Qt6::Test)
  else()
    zefta_test_code(zefta_${name}_tests)
  endif()
  target_include_directories(zefta_${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(zefta_${name}_tests PRIVATE zefta_test_support GTest::gtest_main)
  foreach(layer IN LISTS ARG_USES)
    target_link_libraries(zefta_${name}_tests PRIVATE zefta_${layer})
  endforeach()
  set(shares 4)
  foreach(share RANGE 1 ${shares})
    math(EXPR index "${share} - 1")
    add_test(NAME ${name}.${share} COMMAND zefta_${name}_tests --gtest_brief=1)
    set_tests_properties(${name}.${share} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300
      ENVIRONMENT "GTEST_TOTAL_SHARDS=${shares};GTEST_SHARD_INDEX=${index}")
  endforeach()
endfunction()
