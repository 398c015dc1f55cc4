// A source for the headers that tests share; see the list of tests.
