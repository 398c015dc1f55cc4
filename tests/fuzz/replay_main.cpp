// Without libFuzzer: runs a fuzz target on every file in the given folders.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

int main(int argc, char** argv) {
  int files = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream in(entry.path(), std::ios::binary);
      const std::string bytes{std::istreambuf_iterator<char>(in), {}};
      std::fprintf(stderr, "%s\n", entry.path().c_str());
      LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
      ++files;
    }
  }
  std::fprintf(stderr, "%d inputs\n", files);
  return files > 0 ? 0 : 1;
}
