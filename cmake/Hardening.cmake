# What distributions ask of programs that read files of strangers: an error that lets a drawing write
# where it may not should end the program and not run the drawing. Only where the compiler optimises,
# which the checks of the C library need; sanitizers find more and bring their own. The tests, which
# are not optimised, do without, by the property QUILLON_SOFT of their targets.
option(QUILLON_HARDEN "Harden optimised builds for Linux" ON)

set(QUILLON_HARDENED OFF)
if(QUILLON_HARDEN AND CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT QUILLON_QUICK
    AND CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$"
    AND NOT QUILLON_SANITIZE AND NOT QUILLON_COVERAGE AND NOT QUILLON_LIBCXX)
  set(QUILLON_HARDENED ON)
endif()
if(NOT QUILLON_HARDENED)
  return()
endif()

include(CheckCXXCompilerFlag)
set(hard $<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_SOFT>>>)

# Some of these depend on the processor. The checks take what only earns a warning for an error.
set(QUILLON_HARDENING "")
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "QUILLON_HAS${flag}" known)
  set(CMAKE_REQUIRED_FLAGS -Werror)
  check_cxx_compiler_flag(${flag} ${known})
  unset(CMAKE_REQUIRED_FLAGS)
  if(${known})
    list(APPEND QUILLON_HARDENING ${flag})
  endif()
endforeach()
# Whoever builds a package may have asked for a higher level already.
if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
  list(APPEND QUILLON_HARDENING -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
target_compile_options(quillon_flags INTERFACE
  "$<${hard}:${QUILLON_HARDENING}>"
  # Qt asks for -fPIC in its own way, which serves as well.
  "$<$<AND:${hard},$<NOT:$<BOOL:$<TARGET_PROPERTY:POSITION_INDEPENDENT_CODE>>>>:-fPIE>")
# All functions of libraries are looked up when the program starts; then the table of them is
# read-only. A static program, as by the property QUILLON_STATIC, says by itself whether it can be
# moved.
set(moved "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_STATIC>>>:-pie>")
if(CMAKE_EXE_LINKER_FLAGS MATCHES "-static")
  set(moved "")
endif()
target_link_options(quillon_flags INTERFACE "$<${hard}:-Wl,-z,relro,-z,now;${moved}>")
