#pragma once

#include <sys/types.h>
#include <unistd.h>

namespace quillon::testing {

/// The user that stands for "anybody" on every system.
inline constexpr uid_t kNobody = 65534;

/// Takes the root user's rights away as long as it lives: root may write everything. Changes
/// nothing for other users.
class Unprivileged {
 public:
  Unprivileged() {
    if (geteuid() == 0) dropped_ = seteuid(kNobody) == 0;
  }
  ~Unprivileged() {
    if (dropped_) static_cast<void>(seteuid(0) == 0);
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  bool dropped_ = false;
};

}  // namespace quillon::testing
