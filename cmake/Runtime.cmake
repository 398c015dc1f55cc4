# A conversion of a small drawing takes less time than loading libraries and looking up what a program
# uses of them. With libraries of its own, the program starts sooner, and needs no particular version
# of them. Distributions, which share libraries, turn it off.
option(QUILLON_OWN_RUNTIME
  "Link the C and C++ libraries into quillon-convert, where that is possible" ON)

# quillon_own_runtime(<target>)
function(quillon_own_runtime target)
  # Sanitizers replace functions of the libraries, some systems lack them for static linking, and a
  # program that is static as a whole would be no longer.
  if(NOT QUILLON_OWN_RUNTIME OR NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR QUILLON_SANITIZE
      OR QUILLON_LIBCXX OR CMAKE_EXE_LINKER_FLAGS MATCHES "-static")
    return()
  endif()
  include(CheckCXXSourceCompiles)
  include(CheckCXXSourceRuns)
  set(program "#include <cmath>
    #include <string>
    #include <thread>
    int main(int count, char** words) {
      std::thread([&] { count += static_cast<int>(std::cos(count)); }).join();
      return static_cast<int>(std::string(words[0]).size()) + count;
    }")
  # The system loads it to addresses that change, which takes code as hardened builds have it.
  if(QUILLON_HARDENED)
    set(CMAKE_REQUIRED_FLAGS -fPIE)
    set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie -Wl,--gc-sections)
    check_cxx_source_compiles("${program}" QUILLON_HAS_STATIC_LIBRARIES)
    if(QUILLON_HAS_STATIC_LIBRARIES)
      set(options ${CMAKE_REQUIRED_LINK_OPTIONS})
      # Short relocations, if the C library within the program reads them when it starts.
      if(NOT CMAKE_CROSSCOMPILING)
        list(APPEND CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
        check_cxx_source_runs("#include <cstdio>
          const char* const volatile texts[] = {\"a\", \"b\"};
          int main() { return texts[1][0] == 'b' ? 0 : 1; }" QUILLON_HAS_SHORT_RELOCATIONS)
        if(QUILLON_HAS_SHORT_RELOCATIONS)
          set(options ${CMAKE_REQUIRED_LINK_OPTIONS})
        endif()
      endif()
      set_target_properties(${target} PROPERTIES QUILLON_STATIC ON)
      target_link_options(${target} PRIVATE ${options})
      return()
    endif()
    unset(CMAKE_REQUIRED_FLAGS)
  endif()
  set(CMAKE_REQUIRED_LINK_OPTIONS -static-libstdc++ -static-libgcc)
  check_cxx_source_compiles("${program}" QUILLON_HAS_STATIC_RUNTIME)
  if(QUILLON_HAS_STATIC_RUNTIME)
    target_link_options(${target} PRIVATE ${CMAKE_REQUIRED_LINK_OPTIONS})
  endif()
endfunction()
