# A build for ./test: it is to be ready soon. What takes time in the tests is optimised all the same.
if(QUILLON_QUICK)
  # The compiler looks less often for memory that it could use again.
  target_compile_options(quillon_flags INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=500000>)
endif()

# quillon_compile_soon(<targets…>): those of which the tests need little time.
function(quillon_compile_soon)
  if(QUILLON_QUICK)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -Og)
    endforeach()
  endif()
endfunction()
