#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace quillon::fuzz {

/// A folder for this process, in memory where the system supports that.
class MemoryFolder {
 public:
  MemoryFolder() {
    std::error_code ignored;
    const std::filesystem::path memory = "/dev/shm";
    const bool inMemory = std::filesystem::is_directory(memory, ignored);
    path_ = (inMemory ? memory : std::filesystem::temp_directory_path()) /
            ("quillon-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path_);
  }
  ~MemoryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  MemoryFolder(const MemoryFolder&) = delete;
  MemoryFolder& operator=(const MemoryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string write(const std::string& name, std::string_view bytes) const {
    const std::string file = (path_ / name).string();
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quillon::fuzz
