# A conversion of a small drawing takes less time than looking up what a program uses of the C++
# library. With a library of its own, the program starts sooner, and needs no particular version of it.
# Distributions, which share libraries, turn it off.
option(QUILLON_OWN_RUNTIME "Link the C++ library into quillon-convert, where that is possible" ON)

# quillon_own_runtime(<target>)
function(quillon_own_runtime target)
  # Sanitizers replace functions of the library, some systems lack it for static linking, and a program
  # that is static as a whole would be no longer.
  if(NOT QUILLON_OWN_RUNTIME OR NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR QUILLON_SANITIZE
      OR QUILLON_LIBCXX OR CMAKE_EXE_LINKER_FLAGS MATCHES "-static")
    return()
  endif()
  include(CheckCXXSourceCompiles)
  set(CMAKE_REQUIRED_LINK_OPTIONS -static-libstdc++ -static-libgcc)
  check_cxx_source_compiles("#include <string>
    int main(int count, char** words) { return static_cast<int>(std::string(words[0]).size()) + count; }"
    QUILLON_HAS_STATIC_RUNTIME)
  if(QUILLON_HAS_STATIC_RUNTIME)
    target_link_options(${target} PRIVATE ${CMAKE_REQUIRED_LINK_OPTIONS})
  endif()
endfunction()
