# The engine as WebAssembly, for a page that a browser loads from any static server.
if(EMSCRIPTEN)
  # Exceptions and vectors as the machine has them. Engines of browsers have had both since 2021.
  add_compile_options(-fwasm-exceptions -msimd128 -msse2)
  add_link_options(-fwasm-exceptions)
  # Less is put in line than natively, where it is 225, and loops stay as they are, so that there is
  # less to load.
  add_compile_options(
    "SHELL:-mllvm -inline-threshold=$<IF:$<BOOL:$<TARGET_PROPERTY:QUILLON_FAST>>,150,15>"
    "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_FAST>>>:-fno-unroll-loops;-fno-vectorize>")
endif()

# quillon_prefer_fast(<targets…>): what every line of a drawing passes through. It needs what is put
# in line, as browsers call each function that is left.
function(quillon_prefer_fast)
  set_target_properties(${ARGN} PROPERTIES QUILLON_FAST ON)
endfunction()

# quillon_prefer_small_sources(<files…>): the same as quillon_prefer_small for some files of a
# library, of what few drawings have much.
function(quillon_prefer_small_sources)
  if(EMSCRIPTEN)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -Oz)
  endif()
endfunction()

# quillon_prefer_small(<targets…>): what takes little time is made small there, as it is loaded each
# time.
function(quillon_prefer_small)
  if(EMSCRIPTEN)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE -Oz)
    endforeach()
  endif()
endfunction()
