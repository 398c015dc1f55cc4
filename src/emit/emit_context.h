#pragma once

#include <cstdint>

#include "dxf/drawing.h"
#include "dxf/run_monitor.h"
#include "emit/script_writer.h"

namespace quillon::emit {

/// EAGLE's layer number for elements that are not converted: every emitter then writes nothing.
inline constexpr int kNotConverted = 999;

/// Pi as the geometry uses it everywhere, and degrees in a radian.
inline constexpr double kPi = 3.14159265358979;
inline constexpr double kTwoPi = 6.28318530717958;
inline constexpr double kDegreesPerRadian = 180.0 / kPi;
inline double radians(double degrees) { return degrees * kPi / 180.0; }

/// Switches and header values that the emitters read.
struct EmitSettings {
  bool dotted = false;         ///< dash emulation
  bool ellipses = false;       ///< ellipses as wires; otherwise as circles
  bool arcRangeCheck = false;  ///< arcs whose diameter point is out of range become wires
  int poly = 2;                ///< PolyMode as a number; other numbers count as wires with width
  double polyWidth = 0.0;      ///< width of polylines that have none
  double fillWidth = 0.0;      ///< outline width of filled areas
  double angDir = 0.0;         ///< 1.0: angles run clockwise
  double ltScale = dxf::kNotGiven;
  double pointSize = dxf::kNotGiven;
};

/// Asks the monitor whether to stop, once every few steps of a loop whose length a drawing decides.
class CancelPoll {
 public:
  explicit CancelPoll(dxf::RunMonitor& monitor) : monitor_(monitor) {}

  /// From now on a script of this many lines is as good as a cancel.
  void limitLines(const ScriptWriter& script, std::uint64_t mostLines) {
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
  const ScriptWriter* script_ = nullptr;
  std::uint64_t mostLines_ = 0;
  bool limitReached_ = false;
};

/// What every emitter works with.
struct EmitContext {
  ScriptWriter& script;
  const EmitSettings& settings;
  CancelPoll cancelled;
};

}  // namespace quillon::emit
