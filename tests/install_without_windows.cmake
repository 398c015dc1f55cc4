# cmake -DSOURCE=... -DFOLDER=... -DPROGRAM=... -DCOMPILER=... -DGENERATOR=... -P
# install_without_windows.cmake: what a build without windows installs. PROGRAM takes the place of
# the headless program that such a build would produce.
file(REMOVE_RECURSE ${FOLDER})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${FOLDER}/build -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Release
  -DQUILLON_BUILD_WINDOWS=OFF -DQUILLON_BUILD_TESTS=OFF
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(COPY ${PROGRAM} DESTINATION ${FOLDER}/build/src)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${FOLDER}/build --prefix ${FOLDER}/installed
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE installed RELATIVE ${FOLDER}/installed ${FOLDER}/installed/*)
if(NOT installed STREQUAL "bin/quillon-convert")
  message(FATAL_ERROR "Installed: '${installed}'")
endif()
execute_process(COMMAND ${FOLDER}/installed/bin/quillon-convert --version
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${FOLDER})
