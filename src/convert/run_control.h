#pragma once

#include <chrono>
#include <cstdint>

#include "base/run_monitor.h"
#include "convert/host.h"
#include "texts/string_table.h"

namespace quillon::convert {

/// Sits between the loops of a conversion and its host: words the status, rounds the progress, and
/// throttles both to what a person can see.
class RunControl : public base::RunMonitor {
 public:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kInterval{40};

  /// `interval` is the minimum time between updates.
  RunControl(ConversionHost& host, const texts::Texts& texts, Clock::duration interval = kInterval)
      : host_(host), texts_(texts), interval_(interval) {}

  void setStatus(base::ReadPhase phase, std::uint64_t count) override;
  void setProgress(bool writing, std::uint64_t value, std::uint64_t total) override;
  bool cancelRequested() override;
  void waitForUser() override;

  /// Shows a string-table text immediately.
  void setStatusText(texts::TextId id);
  /// Called by the error handler; stops everything like a cancel.
  void stop() { cancelled_ = true; }
  /// True once a cancel has been seen.
  bool cancelled() const { return cancelled_; }

 private:
  class Throttle {
   public:
    bool passes(Clock::time_point now, Clock::duration interval) {
      if (shown_ && now - last_ < interval) return false;
      shown_ = true;
      last_ = now;
      return true;
    }

   private:
    bool shown_ = false;
    Clock::time_point last_;
  };

  void letEventsRun(Clock::time_point now);

  ConversionHost& host_;
  const texts::Texts& texts_;
  Clock::duration interval_;
  Throttle statusThrottle_;
  Throttle progressThrottle_;
  Throttle eventThrottle_;
  int lastPercent_[2] = {-1, -1};
  bool cancelled_ = false;
};

}  // namespace quillon::convert
