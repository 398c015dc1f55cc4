#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "errors/attempt.h"
#include "support/temp_folder.h"

namespace quillon::errors {

/// Keeps the reports, and answers with what it was told to.
class ScriptedView : public FaultView {
 public:
  Continuation show(const FaultReport& report) override {
    reports.push_back(report);
    if (whileShown) whileShown();
    if (answers.empty()) return kLeave;
    const Continuation answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void endProgram() override { ++ends; }

  std::vector<FaultReport> reports;
  std::deque<Continuation> answers;
  std::function<void()> whileShown;
  int ends = 0;
};

/// Calls itself until the stack is used up.
inline unsigned useUpTheStack(unsigned depth = 0) {
  constexpr unsigned kRoom = 1024;
  volatile char room[kRoom];
  room[depth % kRoom] = 'x';
  // Never: but the compiler shall not see that this has no end.
  if (depth == ~0U) return 0;
  return useUpTheStack(depth + 1) + static_cast<unsigned char>(room[depth % kRoom]);
}

class ScribeTest : public ::testing::Test {
 protected:
  std::vector<std::string> stack(const FaultReport& report) const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < report.callStack.size(); ++i) {
      lines.push_back(entryText(report.callStack.entry(i)));
    }
    return lines;
  }

  testing::TempFolder folder;
  int language = texts::kEnglish;
  ScriptedView view;
  FaultScribe faults{
      {"Quillon", folder.path(), "quillon", "support@quillon.example"}, language, view};
};

}  // namespace quillon::errors
