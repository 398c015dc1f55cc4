# cmake -DSOURCE=... -DFOLDER=... -DPROGRAM=... -DSHARE=... -DCOMPILER=... -DGENERATOR=... -P
# install_without_windows.cmake: what a build without windows installs. PROGRAM takes the place of
# the headless program that such a build would produce, and SHARE of the folder that it makes.
file(REMOVE_RECURSE ${FOLDER})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${FOLDER}/build -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release
  -DQUILLON_BUILD_WINDOWS=OFF -DQUILLON_BUILD_TESTS=OFF
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(COPY ${PROGRAM} DESTINATION ${FOLDER}/build/src)
file(COPY ${SHARE} DESTINATION ${FOLDER}/build)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${FOLDER}/build --prefix ${FOLDER}/installed
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${FOLDER}/installed ${FOLDER}/installed/*)
set(wanted bin/quillon-convert share/bash-completion/completions/quillon-convert
  share/fish/vendor_completions.d/quillon-convert.fish)
find_program(QUILLON_HELP2MAN help2man)
if(QUILLON_HELP2MAN)
  list(APPEND wanted share/man/man1/quillon-convert.1)
endif()
list(APPEND wanted share/zsh/site-functions/_quillon-convert)
if(NOT installed STREQUAL wanted)
  message(FATAL_ERROR "Installed: '${installed}'")
endif()
execute_process(COMMAND ${FOLDER}/installed/bin/quillon-convert --version
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${FOLDER})
