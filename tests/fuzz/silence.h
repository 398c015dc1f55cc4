#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>

namespace quillon::fuzz {

/// Discards the program's output for its lifetime.
class Silence {
 public:
  Silence() : output_(dup(STDOUT_FILENO)), error_(dup(STDERR_FILENO)) {
    static const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
  }
  ~Silence() {
    std::fflush(stdout);
    std::cout.flush();
    dup2(output_, STDOUT_FILENO);
    dup2(error_, STDERR_FILENO);
    close(output_);
    close(error_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  int output_;
  int error_;
};

}  // namespace quillon::fuzz
