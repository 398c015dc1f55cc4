#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

#include "base/run_monitor.h"
#include "eagle/script_writer.h"

namespace quillon::rules {

/// Limits for one conversion: lines of the script, and steps, which also count work that writes
/// nothing. A step is an entity of a block, a vertex, a dash or gap, or a piece of a curve; a long
/// entity of a block counts as several.
struct WorkLimits {
  static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

  std::uint64_t lines = kNone;
  std::uint64_t steps = kNone;
};

enum class LimitKind : std::uint8_t { Lines, Steps };

/// Counts steps in loops whose length depends on the drawing, and asks the monitor every few steps
/// whether to stop.
class CancelPoll {
 public:
  /// Asked once, when a limit is reached; returning true lifts the limits.
  using MayGoOn = std::function<bool(LimitKind)>;

  explicit CancelPoll(base::RunMonitor& monitor) : monitor_(monitor) {}

  /// Sets the limits for the script and the steps from now on.
  void setLimits(const eagle::ScriptWriter& script, const WorkLimits& limits, MayGoOn mayGoOn) {
    script_ = &script;
    limits_ = limits;
    mayGoOn_ = std::move(mayGoOn);
  }

  /// Ends the work after so many steps, without asking.
  void setLimit(std::uint64_t steps) { limits_.steps = steps; }

  /// Counts a step; true once the user has cancelled or a limit has ended the work.
  bool operator()() {
    ++steps_;
    if (cancelled_ || atLimit()) return true;
    if (pacer_.due()) cancelled_ = monitor_.cancelRequested();
    return cancelled_;
  }

  /// True once the user has cancelled; a limit is no cancel.
  bool cancelled() const { return cancelled_; }
  /// True while the script has as many lines as it may have.
  bool isScriptFull() const {
    return script_ != nullptr && script_->commandCount() >= limits_.lines;
  }

  /// Counts work that costs as much as this many steps.
  void addSteps(std::uint64_t steps) { steps_ += steps; }

  /// True when there is more to do but a limit forbids it.
  bool atLimit() {
    const bool within =
        steps_ < limits_.steps && (script_ == nullptr || script_->commandCount() < limits_.lines);
    return !within && endsAtLimit();
  }

  std::uint64_t steps() const { return steps_; }

 private:
  static constexpr std::uint32_t kStepsPerPoll = 64;

  bool endsAtLimit() {
    if (ended_) return true;
    const LimitKind kind = steps_ < limits_.steps ? LimitKind::Lines : LimitKind::Steps;
    ended_ = !mayGoOn_ || !mayGoOn_(kind);
    if (!ended_) limits_ = {};
    return ended_;
  }

  base::RunMonitor& monitor_;
  base::Pacer pacer_{kStepsPerPoll};
  bool cancelled_ = false;
  const eagle::ScriptWriter* script_ = nullptr;
  WorkLimits limits_;
  MayGoOn mayGoOn_;
  std::uint64_t steps_ = 0;
  bool ended_ = false;
};

}  // namespace quillon::rules
