# Tests that take minutes. They have the label "long", which all test presets except "long" exclude.
if(NOT CMAKE_CROSSCOMPILING)
  find_program(QUILLON_VALGRIND valgrind)
endif()

# quillon_long_test(<name> <library> <sources…>): a test program with cases that take a minute each,
# or more than 100 megabytes of disk.
function(quillon_long_test name library)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE
    ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/platform/${QUILLON_PLATFORM})
  target_link_libraries(${name} PRIVATE ${library} GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS long TIMEOUT 3600 RUN_SERIAL ON)
endfunction()

# quillon_memcheck(<name>): runs the whole test program again under valgrind.
function(quillon_memcheck name)
  if(QUILLON_VALGRIND AND NOT QUILLON_SANITIZE)
    add_test(NAME memcheck.${name} COMMAND ${QUILLON_VALGRIND}
      --quiet --leak-check=full --error-exitcode=99 $<TARGET_FILE:${name}>)
    set_tests_properties(memcheck.${name} PROPERTIES LABELS long TIMEOUT 3600
      # Qt's JIT-compiled regular expressions look uninitialised to valgrind.
      ENVIRONMENT "QUILLON_PATIENCE=50;QT_ENABLE_REGEXP_JIT=0")
  endif()
endfunction()

# quillon_limits(): large drawings stay within limits of time and memory, and cost grows linearly.
function(quillon_limits)
  if(TARGET end_to_end AND NOT QUILLON_SANITIZE)
    add_test(NAME limits.large_drawings COMMAND end_to_end --check)
    add_test(NAME limits.linear_growth COMMAND end_to_end --linear --check)
    set_tests_properties(limits.large_drawings limits.linear_growth PROPERTIES
      LABELS long TIMEOUT 3600 RUN_SERIAL ON)
  endif()
endfunction()
