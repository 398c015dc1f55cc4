# Header-only and source-only libraries. When building for another system or standard library, this
# machine's copies will do, but their folder must not precede the target's own headers.

# quillon_find_cli11(): defines CLI11::CLI11.
function(quillon_find_cli11)
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(CLI11 REQUIRED GLOBAL)
    return()
  endif()
  find_path(QUILLON_CLI11 CLI/CLI.hpp PATHS /usr/include /usr/local/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(COPY ${QUILLON_CLI11}/CLI DESTINATION ${PROJECT_BINARY_DIR}/cli11)
  add_library(quillon_cli11 INTERFACE)
  target_include_directories(quillon_cli11 SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/cli11)
  add_library(CLI11::CLI11 ALIAS quillon_cli11)
endfunction()

# quillon_find_gtest(): defines GTest::gtest and GTest::gtest_main.
function(quillon_find_gtest)
  if(NOT CMAKE_CROSSCOMPILING AND NOT QUILLON_LIBCXX)
    find_package(GTest REQUIRED GLOBAL)
    return()
  endif()
  find_path(QUILLON_GTEST_SOURCES googletest/CMakeLists.txt PATHS /usr/src/googletest
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(INSTALL_GTEST OFF)
  add_subdirectory(${QUILLON_GTEST_SOURCES}/googletest ${PROJECT_BINARY_DIR}/googletest
    EXCLUDE_FROM_ALL)
endfunction()
