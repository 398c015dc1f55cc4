# A build for ./test: it is to be ready soon, for which the preset chooses clang, as it needs less than
# half the time of GCC. What takes time in the tests is optimised all the same.

# quillon_compile_soon(<targets…>): those of which the tests need little time.
function(quillon_compile_soon)
  if(QUILLON_QUICK)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -Og)
    endforeach()
  endif()
endfunction()
