#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quillon::testing {

/// A temporary folder for a test; removed with its contents.
class TempFolder {
 public:
  TempFolder() {
    static std::atomic<int> counter{0};
    std::random_device random;
    path_ = std::filesystem::temp_directory_path() /
            ("quillon-test-" + std::to_string(random()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// The path of a file in the folder, in UTF-8 with the system's separators; names are UTF-8 too.
  std::string file(std::string_view name) const {
    const std::u8string path = pathOf(name).make_preferred().u8string();
    return {path.begin(), path.end()};
  }

  std::string write(std::string_view name, std::string_view bytes) const {
    std::ofstream(pathOf(name), std::ios::binary) << bytes;
    return file(name);
  }
  std::string read(std::string_view name) const {
    std::ifstream in(pathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  bool has(std::string_view name) const { return std::filesystem::exists(pathOf(name)); }
  /// Number of entries in the folder.
  std::size_t entries() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
  }

 private:
  std::filesystem::path pathOf(std::string_view name) const {
    return path_ / std::u8string(name.begin(), name.end());
  }

  std::filesystem::path path_;
};

}  // namespace quillon::testing
