# Builds for 64-bit Windows with the distribution's mingw-w64 (posix threads). QUILLON_WINDOWS_QT is
# a static Qt built with it, which the windows need.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
if(QUILLON_WINDOWS_QT)
  list(APPEND CMAKE_FIND_ROOT_PATH ${QUILLON_WINDOWS_QT})
  list(APPEND CMAKE_PREFIX_PATH ${QUILLON_WINDOWS_QT})
  # Qt's build tools run on this machine.
  set(QT_HOST_PATH /usr CACHE PATH "")
  file(GLOB quillonHostQt /usr/lib/*/cmake/Qt6 /usr/lib64/cmake/Qt6)
  if(quillonHostQt)
    list(GET quillonHostQt 0 quillonHostQt)
    get_filename_component(quillonHostQt ${quillonHostQt} DIRECTORY)
    set(QT_HOST_PATH_CMAKE_DIR ${quillonHostQt} CACHE PATH "")
  endif()
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUILLON_WINDOWS_QT)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Each program is a single file that needs nothing but Windows.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
# The same sources give the same bytes: no time of linking.
add_link_options(-Wl,--no-insert-timestamp)
# Tests and other programs run during the build use Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine.sh)
