#pragma once

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "platform.h"

namespace quillon::testing {

/// A pipe filled with given bytes.
class FilledPipe {
 public:
  explicit FilledPipe(std::string bytes) : bytes_(std::move(bytes)) {
    std::FILE* writer = nullptr;
    if (!openPipe(reader_, writer)) throw std::runtime_error("no pipe");
    thread_ = std::thread([this, writer] {
      std::fwrite(bytes_.data(), 1, bytes_.size(), writer);
      std::fclose(writer);
    });
  }
  ~FilledPipe() {
    char rest[4096];
    while (std::fread(rest, 1, sizeof rest, reader_) > 0) {
    }
    thread_.join();
    std::fclose(reader_);
  }
  FilledPipe(const FilledPipe&) = delete;
  FilledPipe& operator=(const FilledPipe&) = delete;

  std::FILE* get() const { return reader_; }

 private:
  std::string bytes_;
  std::FILE* reader_ = nullptr;
  std::thread thread_;
};

}  // namespace quillon::testing
