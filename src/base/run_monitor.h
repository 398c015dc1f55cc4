#pragma once

#include <cstdint>

namespace quillon::base {

/// What the reader is busy with.
enum class ReadPhase : std::uint8_t { Header, Blocks, Entities };

/// The link between a long loop and whoever runs it. Every call may process user-interface events.
/// The implementation throttles what is shown; callers only pace themselves with a Pacer.
class RunMonitor {
 public:
  virtual ~RunMonitor() = default;

  /// The reader has entered a phase, or has read `count` blocks or entities in it (0: none yet).
  virtual void setStatus(ReadPhase phase, std::uint64_t count) = 0;
  /// Progress of reading (writing = false) or converting: `value` of `total`; ignored when `total`
  /// is 0.
  virtual void setProgress(bool writing, std::uint64_t value, std::uint64_t total) = 0;
  /// True once the user has cancelled; stays true.
  virtual bool cancelRequested() = 0;
  /// Called repeatedly where a loop can only wait for the user to cancel.
  virtual void waitForUser() = 0;
};

/// Tells a hot loop when to ask its monitor: once every `interval` steps.
class Pacer {
 public:
  explicit Pacer(std::uint32_t interval) : interval_(interval), left_(interval) {}

  bool due() {
    if (--left_ != 0) return false;
    left_ = interval_;
    return true;
  }

 private:
  std::uint32_t interval_;
  std::uint32_t left_;
};

}  // namespace quillon::base
