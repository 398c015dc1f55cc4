# Another standard library than GCC's, as systems have it on which the engine has to run too.
if(QUILLON_LIBCXX)
  add_compile_options(-stdlib=libc++)
  add_link_options(-stdlib=libc++)
endif()

# quillon_forbid_threads(<targets…>): these libraries are built as for a system that has no threads,
# where <thread> and <future> are errors and <mutex> lacks locks. Tests have threads all the same; of
# what both share, only the counts of shared pointers differ, which are then not atomic.
function(quillon_forbid_threads)
  if(QUILLON_LIBCXX)
    foreach(target ${ARGN})
      target_compile_definitions(${target} PRIVATE _LIBCPP_HAS_NO_THREADS)
    endforeach()
  endif()
endfunction()
