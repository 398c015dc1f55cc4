#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "base/run_monitor.h"

namespace quillon::testing {

/// Records the reader's calls; cancels when `cancelWhen` says so.
class TestMonitor : public base::RunMonitor {
 public:
  void setStatus(base::ReadPhase phase, std::uint64_t count) override {
    statuses.emplace_back(phase, count);
  }
  void setProgress(bool writing, std::uint64_t value, std::uint64_t total) override {
    if (!writing) progress.emplace_back(value, total);
  }
  bool cancelRequested() override {
    ++polls;
    return cancelWhen && cancelWhen();
  }
  void waitForUser() override { ++waits; }

  std::function<bool()> cancelWhen;
  std::vector<std::pair<base::ReadPhase, std::uint64_t>> statuses;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> progress;
  std::uint64_t polls = 0;
  std::uint64_t waits = 0;
};

}  // namespace quillon::testing
