#pragma once

#include <sys/resource.h>

#include <csignal>

namespace quillon::testing {

/// Limits the size of files for its lifetime: writing fails in the middle of a file, as on a disk
/// that fills up.
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
