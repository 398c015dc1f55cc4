// A program with a buffer that could be guarded, built without any guard: what hardened.sh refuses.

#include <cstdio>
#include <cstring>

int main(int argc, char** argv) {
  char name[16];
  std::strcpy(name, argv[argc - 1]);
  return std::puts(name) < 0 ? 1 : 0;
}
