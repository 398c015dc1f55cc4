# Tests that take minutes. They have the label "long": the test presets other than "long" leave
# them out.
if(NOT CMAKE_CROSSCOMPILING)
  find_program(QUILLON_VALGRIND valgrind)
endif()

# quillon_long_test(<name> <library> <sources…>): a test program of cases that each take a minute,
# or more than 100 megabytes of disk.
function(quillon_long_test name library)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE
    ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/platform/${QUILLON_PLATFORM})
  target_link_libraries(${name} PRIVATE ${library} GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS long TIMEOUT 3600 RUN_SERIAL ON)
endfunction()

# quillon_memcheck(<name>): the whole test program once more, under valgrind.
function(quillon_memcheck name)
  if(QUILLON_VALGRIND AND NOT QUILLON_SANITIZE)
    add_test(NAME memcheck.${name} COMMAND ${QUILLON_VALGRIND}
      --quiet --leak-check=full --error-exitcode=99 $<TARGET_FILE:${name}>)
    set_tests_properties(memcheck.${name} PROPERTIES LABELS long TIMEOUT 3600
      # What Qt compiles of regular expressions while it runs looks uninitialised to valgrind.
      ENVIRONMENT "QUILLON_PATIENCE=50;QT_ENABLE_REGEXP_JIT=0")
  endif()
endfunction()

# quillon_limits(): large drawings keep the limits of time and memory, and costs grow linearly.
function(quillon_limits)
  if(TARGET end_to_end AND NOT QUILLON_SANITIZE)
    add_test(NAME limits.large_drawings COMMAND end_to_end --check)
    add_test(NAME limits.linear_growth COMMAND end_to_end --linear --check)
    set_tests_properties(limits.large_drawings limits.linear_growth PROPERTIES
      LABELS long TIMEOUT 3600 RUN_SERIAL ON)
  endif()
endfunction()
