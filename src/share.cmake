# What the programs' own texts are made into: completions for shells, and man pages. All of it is made
# in ${QUILLON_SHARE}, in folders as below the share folder of an installation.
set(QUILLON_SHARE ${PROJECT_BINARY_DIR}/share CACHE INTERNAL "")
set(QUILLON_ZSH_FOLDER ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
  "Where zsh looks for completions of programs from packages")

add_library(quillon_completion STATIC
  app/completion/bash.cpp
  app/completion/fish.cpp
  app/completion/offer.cpp
  app/completion/zsh.cpp)
target_link_libraries(quillon_completion PUBLIC quillon_options)
add_executable(quillon-completion app/completion_main.cpp)
target_link_libraries(quillon-completion PRIVATE quillon_completion)

# quillon_completion(<shell> <file below the share folder> <folder to install to>)
function(quillon_completion shell file destination)
  get_filename_component(folder ${QUILLON_SHARE}/${file} DIRECTORY)
  add_custom_command(OUTPUT ${QUILLON_SHARE}/${file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    COMMAND quillon-completion ${shell} > ${QUILLON_SHARE}/${file}
    DEPENDS quillon-completion
    COMMENT "Making the completion for ${shell}"
    VERBATIM)
  set_property(GLOBAL APPEND PROPERTY QUILLON_COMPLETIONS ${QUILLON_SHARE}/${file})
  install(FILES ${QUILLON_SHARE}/${file} DESTINATION ${destination} COMPONENT headless)
endfunction()

quillon_completion(bash bash-completion/completions/quillon-convert
  ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
quillon_completion(fish fish/vendor_completions.d/quillon-convert.fish
  ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
quillon_completion(zsh zsh/site-functions/_quillon-convert ${QUILLON_ZSH_FOLDER})
get_property(completions GLOBAL PROPERTY QUILLON_COMPLETIONS)
add_custom_target(quillon_completions ALL DEPENDS ${completions})

# Man pages are made from the programs' help by help2man, where it is installed.
find_program(QUILLON_HELP2MAN help2man)

# quillon_man_page(<program> <component>)
function(quillon_man_page program component)
  if(NOT QUILLON_HELP2MAN)
    return()
  endif()
  set(page ${QUILLON_SHARE}/man/man1/${program}.1)
  set(make ${PROJECT_SOURCE_DIR}/packaging/man/make_page.sh)
  set(more ${PROJECT_SOURCE_DIR}/packaging/man/${program}.h2m)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${QUILLON_SHARE}/man/man1
    COMMAND ${make} ${QUILLON_HELP2MAN} $<TARGET_FILE:${program}> ${PROJECT_VERSION} ${more} ${page}
    DEPENDS ${program} ${make} ${more}
    COMMENT "Making the man page of ${program}"
    VERBATIM)
  add_custom_target(${program}-man ALL DEPENDS ${page})
  install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
endfunction()
quillon_man_page(quillon-convert headless)
