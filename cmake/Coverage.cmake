# Measures line coverage of some libraries with GCC.

# quillon_count_lines(<targets…>): every program linked to these libraries adds to the counts in the
# build folder.
function(quillon_count_lines)
  if(NOT QUILLON_COVERAGE)
    return()
  endif()
  foreach(target ${ARGN})
    # Concurrent conversions may lose a count, which is cheaper than locking each counter.
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} INTERFACE --coverage)
  endforeach()
endfunction()
