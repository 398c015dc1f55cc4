# The engine as WebAssembly, for a page that a browser loads from any static server.
if(EMSCRIPTEN)
  # Exceptions and vectors as the machine has them. Engines of browsers have had both since 2021.
  add_compile_options(-fwasm-exceptions -msimd128 -msse2)
  add_link_options(-fwasm-exceptions)
  # Less is put in line than natively, which leaves a sixteenth less to load.
  add_compile_options("SHELL:-mllvm -inline-threshold=15")
endif()

# quillon_prefer_small(<targets…>): what takes little time is made small there, as it is loaded each
# time.
function(quillon_prefer_small)
  if(EMSCRIPTEN)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -Os)
    endforeach()
  endif()
endfunction()
