# The compiler flags of all targets.
add_library(quillon_flags INTERFACE)
target_compile_options(quillon_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${QUILLON_WERROR}>:-Werror>
  # GCC 12 mistakes concatenated strings for overlapping copies.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  # In a unity build, GCC takes the sources of a unit for headers, whose types need linkage.
  $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:GNU>>:-Wno-subobject-linkage>
  # Evaluate formulas as written: a fused multiply-add would change last digits.
  -ffp-contract=off)
if(QUILLON_SANITIZE)
  # Checks for undefined behaviour are slow to compile; QUILLON_ADDRESS_ONLY leaves them out.
  target_compile_options(quillon_flags INTERFACE
    -fsanitize=address$<$<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_ADDRESS_ONLY>>>:,undefined>
    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillon_flags INTERFACE -fsanitize=address,undefined)
endif()
