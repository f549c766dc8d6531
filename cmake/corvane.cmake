# What every target of this project shares.
add_library(corvane_options INTERFACE)
target_include_directories(corvane_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(corvane_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 warns of overlaps inside the standard library's own string concatenation.
  target_compile_options(corvane_options INTERFACE -Wno-restrict)
endif()
if(CORVANE_WARNINGS_AS_ERRORS)
  target_compile_options(corvane_options INTERFACE -Werror)
endif()

# corvane_library(NAME SOURCES... [DEPENDS folders...]): the static library of one folder under src/.
# DEPENDS names the folders below it that it may include.
function(corvane_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  add_library(corvane_${name} STATIC ${ARG_UNPARSED_ARGUMENTS})
  list(TRANSFORM ARG_DEPENDS PREPEND corvane_)
  target_link_libraries(corvane_${name} PUBLIC corvane_options ${ARG_DEPENDS})
endfunction()

# corvane_test(NAME SOURCES... [DEPENDS folders...]): one GoogleTest program, registered with CTest.
function(corvane_test name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  add_executable(test_${name} ${ARG_UNPARSED_ARGUMENTS})
  list(TRANSFORM ARG_DEPENDS PREPEND corvane_)
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE ${ARG_DEPENDS} GTest::gtest_main)
  target_compile_definitions(test_${name} PRIVATE
    CORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  add_test(NAME ${name} COMMAND test_${name})
endfunction()

# corvane_ignore_foreign_leaks(TEST): under the sanitizers, memory that other libraries never give
# back is no fault of the test.
function(corvane_ignore_foreign_leaks test)
  set_tests_properties(${test} PROPERTIES ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/foreign_leaks.txt:print_suppressions=0")
endfunction()

# corvane_bench(NAME SOURCES... [DEPENDS folders...]): one Google Benchmark program, bin/bench_NAME,
# which script/bench finds and runs.
function(corvane_bench name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  add_executable(bench_${name} ${ARG_UNPARSED_ARGUMENTS})
  list(TRANSFORM ARG_DEPENDS PREPEND corvane_)
  target_link_libraries(bench_${name} PRIVATE ${ARG_DEPENDS} benchmark::benchmark_main)
  target_compile_definitions(bench_${name} PRIVATE
    CORVANE_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
endfunction()
