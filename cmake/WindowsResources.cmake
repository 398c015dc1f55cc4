# Resources of a Windows program: manifest, version and icon.
set(QUILLON_RESOURCES ${PROJECT_SOURCE_DIR}/packaging/windows)

# quillon_windows_icon(<icon> <drawing>): creates an icon in the usual sizes from an SVG drawing.
function(quillon_windows_icon icon drawing)
  find_program(QUILLON_RSVG rsvg-convert REQUIRED)
  find_program(QUILLON_ICOTOOL icotool REQUIRED)
  set(images "")
  foreach(size 16 20 24 32 40 48 64 256)
    set(image ${icon}-${size}.png)
    add_custom_command(OUTPUT ${image}
      COMMAND ${QUILLON_RSVG} --width ${size} --height ${size} --output ${image} ${drawing}
      DEPENDS ${drawing} VERBATIM)
    list(APPEND images ${image})
  endforeach()
  add_custom_command(OUTPUT ${icon}
    COMMAND ${QUILLON_ICOTOOL} --create --output ${icon} ${images} DEPENDS ${images} VERBATIM)
endfunction()

# quillon_windows_resources(<program> <description> <drawing>): adds resources to a program; the
# drawing becomes its icon and may be empty.
function(quillon_windows_resources program description drawing)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${program}-resources)
  set(RESOURCE_PROGRAM ${program})
  set(RESOURCE_DESCRIPTION ${description})
  set(RESOURCE_ICON "")
  string(REPLACE "." "," RESOURCE_NUMBERS "${PROJECT_VERSION}")
  if(drawing)
    quillon_windows_icon(${folder}/icon.ico ${drawing})
    set(RESOURCE_ICON "IDI_ICON1 ICON \"icon.ico\"")
    set_source_files_properties(${folder}/program.rc PROPERTIES
      OBJECT_DEPENDS "${folder}/icon.ico;${folder}/program.manifest")
  endif()
  configure_file(${QUILLON_RESOURCES}/program.manifest.in ${folder}/program.manifest @ONLY)
  configure_file(${QUILLON_RESOURCES}/program.rc.in ${folder}/program.rc @ONLY)
  target_sources(${program} PRIVATE ${folder}/program.rc)
  set_property(SOURCE ${folder}/program.rc PROPERTY COMPILE_OPTIONS -I${folder})
endfunction()
