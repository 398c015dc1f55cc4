#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>

namespace quillon::fuzz {

/// A file in memory with a path by which it can be opened.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("fuzz", MFD_CLOEXEC)) {
    if (descriptor_ < 0) std::abort();
  }
  ~MemoryFile() { close(descriptor_); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  int descriptor() const { return descriptor_; }
  std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  void set(std::string_view bytes) const {
    if (ftruncate(descriptor_, 0) != 0) std::abort();
    std::size_t at = 0;
    while (at < bytes.size()) {
      const ssize_t written =
          pwrite(descriptor_, bytes.data() + at, bytes.size() - at, static_cast<off_t>(at));
      if (written <= 0) std::abort();
      at += static_cast<std::size_t>(written);
    }
    if (lseek(descriptor_, 0, SEEK_SET) != 0) std::abort();
  }
  std::string get() const {
    std::string bytes(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
    std::size_t at = 0;
    while (at < bytes.size()) {
      const ssize_t got =
          pread(descriptor_, bytes.data() + at, bytes.size() - at, static_cast<off_t>(at));
      if (got <= 0) std::abort();
      at += static_cast<std::size_t>(got);
    }
    return bytes;
  }

 private:
  int descriptor_;
};

}  // namespace quillon::fuzz
