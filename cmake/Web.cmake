# The engine as WebAssembly, for a page that a browser loads from any static server.
if(EMSCRIPTEN)
  # Exceptions and vectors as the machine has them. Engines of browsers have had both since 2021.
  add_compile_options(-fwasm-exceptions -msimd128 -msse2)
  add_link_options(-fwasm-exceptions)
  # Less is put in line than natively, where it is 225, and loops stay as they are, so that there is
  # less to load.
  set(is_fast $<BOOL:$<TARGET_PROPERTY:QUILLON_FAST>>)
  add_compile_options(
    "$<$<NOT:${is_fast}>:SHELL:-mllvm -inline-threshold=15>"
    "$<$<NOT:${is_fast}>:-fno-unroll-loops;-fno-vectorize>")
endif()

# quillon_prefer_fast(<targets…>): what every line of a drawing passes through. It needs what is put
# in line, as browsers call each function that is left.
function(quillon_prefer_fast)
  set_target_properties(${ARGN} PROPERTIES QUILLON_FAST ON)
endfunction()

# quillon_prefer_fairly_fast(<targets…>): the same for what writes many short texts, each of which
# would be put in line.
function(quillon_prefer_fairly_fast)
  quillon_prefer_fast(${ARGN})
  if(EMSCRIPTEN)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE "SHELL:-mllvm -inline-threshold=150")
    endforeach()
  endif()
endfunction()

# quillon_prefer_small_sources(<files…>): the same as quillon_prefer_small for some files of a
# library, of what few drawings have much. Of an inline function that is not put in line, the linker
# may keep their copy, for all of the program.
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
