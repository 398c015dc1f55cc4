#pragma once

#include <sys/resource.h>

#include <csignal>

namespace quillon::testing {

/// Files cannot grow beyond a size as long as it lives: writing fails in the middle of a file, as
/// it does on a disk that gets full.
class FullDisk {
 public:
  explicit FullDisk(rlim_t mostBytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit full = before_;
    full.rlim_cur = mostBytes;
    setrlimit(RLIMIT_FSIZE, &full);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  void (*handler_)(int);
  rlimit before_{};
};

}  // namespace quillon::testing
