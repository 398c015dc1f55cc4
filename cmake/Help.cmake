# Target help_chm: the help pages as Larkspur.chm, which the window opens on Windows. Built only on
# request, because its tool and what that needs from the system are not available everywhere.
find_program(QUILLON_CHMCMD chmcmd)
find_program(QUILLON_UNSHARE unshare)
if(QUILLON_CHMCMD AND QUILLON_UNSHARE)
  file(GLOB_RECURSE help_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/help/*)
  set(chm_folder ${PROJECT_BINARY_DIR}/help)
  add_custom_command(OUTPUT ${chm_folder}/Larkspur.chm
    COMMAND ${CMAKE_COMMAND} -E make_directory ${chm_folder}
    COMMAND ${PROJECT_SOURCE_DIR}/tools/make_chm.sh ${chm_folder}
    DEPENDS ${help_sources} ${PROJECT_SOURCE_DIR}/tools/make_chm.sh
    COMMENT "Compiling the help pages into ${chm_folder}/Larkspur.chm"
    VERBATIM)
  add_custom_target(help_chm DEPENDS ${chm_folder}/Larkspur.chm)
endif()
