// A source for the headers that tests/CMakeLists.txt has read once for all tests.
