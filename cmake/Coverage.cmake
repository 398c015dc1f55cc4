# Counts which lines of some libraries run, with GCC's own means.

# quillon_count_lines(<targets…>): what these libraries run is counted in the build folder, by every
# program that has them in it.
function(quillon_count_lines)
  if(NOT QUILLON_COVERAGE)
    return()
  endif()
  foreach(target ${ARGN})
    # Conversions that run side by side may lose a count, which costs less than to lock each one.
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} INTERFACE --coverage)
  endforeach()
endfunction()
