// Dummy source for the headers that tests/CMakeLists.txt precompiles for all tests.
