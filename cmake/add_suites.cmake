# Read by ctest when it starts: adds a test for each suite of the test program `program`, which is
# called `name`.
set(list "")
if(EXISTS "${program}")
  execute_process(COMMAND "${program}" --gtest_list_tests
    TIMEOUT 60 OUTPUT_VARIABLE list ERROR_VARIABLE error RESULT_VARIABLE result)
else()
  set(result "it has not been built")
endif()
# A suite has a line of its own that ends in a point; what follows says of which type it is made.
string(REGEX MATCHALL "(^|\n)[^ \n]+\\.( |\n)" suites "${list}")
if(NOT result EQUAL 0 OR NOT suites)
  # A test that cannot start fails.
  add_test("${name}.suites" "${program}" --gtest_list_tests)
  message("${name}: its suites are unknown: ${result}\n${error}")
endif()
foreach(suite ${suites})
  string(REGEX REPLACE "[ \n]" "" suite "${suite}")
  string(REGEX REPLACE "\\.$" "" suite "${suite}")
  add_test("${name}.${suite}" "${program}" "--gtest_filter=${suite}.*" --gtest_brief=1)
  set_tests_properties("${name}.${suite}" PROPERTIES TIMEOUT 300)
endforeach()
