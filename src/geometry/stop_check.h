#pragma once

#include <functional>
#include <utility>

namespace quillon::geometry {

/// What long work asks now and then whether it is to end early; it never is without a function.
class StopCheck {
 public:
  StopCheck() = default;
  explicit StopCheck(std::function<bool()> isWanted) : isWanted_(std::move(isWanted)) {}

  /// True when the work is to end. What it returns then means nothing.
  bool operator()() const { return isWanted_ && isWanted_(); }

 private:
  std::function<bool()> isWanted_;
};

}  // namespace quillon::geometry
