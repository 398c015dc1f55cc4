#pragma once

#include <cstdint>

#include "dxf/run_monitor.h"
#include "eagle/script_writer.h"

namespace quillon::rules {

/// Asks the monitor whether to stop, once every few steps of a loop whose length a drawing decides.
class CancelPoll {
 public:
  explicit CancelPoll(dxf::RunMonitor& monitor) : monitor_(monitor) {}

  /// From now on a script of this many lines is as good as a cancel.
  void limitLines(const eagle::ScriptWriter& script, std::uint64_t mostLines) {
    script_ = &script;
    mostLines_ = mostLines;
  }

  /// True once the user has cancelled or the script has all the lines that it may have.
  bool operator()() {
    if (cancelled_ || atLimit()) return true;
    if (pacer_.due()) cancelled_ = monitor_.cancelRequested();
    return cancelled_;
  }

  /// True when something more was to be written and the script has all its lines.
  bool atLimit() {
    limitReached_ = limitReached_ || (script_ != nullptr && script_->commandCount() >= mostLines_);
    return limitReached_;
  }
  /// True once atLimit() was.
  bool limitReached() const { return limitReached_; }

 private:
  static constexpr std::uint32_t kStepsPerPoll = 64;

  dxf::RunMonitor& monitor_;
  dxf::Pacer pacer_{kStepsPerPoll};
  bool cancelled_ = false;
  const eagle::ScriptWriter* script_ = nullptr;
  std::uint64_t mostLines_ = 0;
  bool limitReached_ = false;
};

}  // namespace quillon::rules
