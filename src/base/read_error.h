#pragma once

#include <stdexcept>
#include <system_error>

namespace quillon::base {

/// A file could not be read; carries the system's errno.
class ReadError : public std::runtime_error {
 public:
  explicit ReadError(int reason)
      : std::runtime_error(std::generic_category().message(reason)), reason_(reason) {}
  int reason() const { return reason_; }

 private:
  int reason_;
};

}  // namespace quillon::base
