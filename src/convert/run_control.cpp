#include "convert/run_control.h"

#include <cmath>
#include <string>

namespace quillon::convert {
namespace {

using texts::TextId;

constexpr int kComplete = 100;

TextId statusId(base::ReadPhase phase) {
  switch (phase) {
    case base::ReadPhase::Header:
      return TextId::StatusHeader;
    case base::ReadPhase::Blocks:
      return TextId::StatusBlocks;
    case base::ReadPhase::Entities:
      break;
  }
  return TextId::StatusEntities;
}

}  // namespace

void RunControl::setStatus(base::ReadPhase phase, std::uint64_t count) {
  if (count == 0) {
    setStatusText(statusId(phase));
    return;
  }
  const Clock::time_point now = Clock::now();
  if (!statusThrottle_.passes(now, interval_)) return;
  host_.setStatus(std::string(texts_(statusId(phase))) + " " + std::to_string(count));
  letEventsRun(now);
}

void RunControl::setStatusText(TextId id) {
  host_.setStatus(texts_(id));
  letEventsRun(Clock::now());
}

void RunControl::setProgress(bool writing, std::uint64_t value, std::uint64_t total) {
  if (total == 0) return;
  const double share = static_cast<double>(value) * kComplete / static_cast<double>(total);
  const int percent = static_cast<int>(std::nearbyint(share));
  int& last = lastPercent_[writing ? 1 : 0];
  if (percent == last) return;
  const Clock::time_point now = Clock::now();
  if (!progressThrottle_.passes(now, interval_) && percent < kComplete) return;
  last = percent;
  host_.setProgress(writing, percent);
}

bool RunControl::cancelRequested() {
  letEventsRun(Clock::now());
  cancelled_ = cancelled_ || host_.cancelRequested();
  return cancelled_;
}

void RunControl::waitForUser() { host_.waitForEvents(); }

void RunControl::letEventsRun(Clock::time_point now) {
  constexpr int kEventsPerUpdate = 4;  // a button must respond faster than a bar moves
  if (eventThrottle_.passes(now, interval_ / kEventsPerUpdate)) host_.processEvents();
}

}  // namespace quillon::convert
