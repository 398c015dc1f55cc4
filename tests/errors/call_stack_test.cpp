#include "errors/call_stack.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace quillon::errors {
namespace {

std::vector<std::string> lines(const CallStackList& list) {
  std::vector<std::string> out;
  for (std::size_t i = 0; i < list.size(); ++i) out.push_back(entryText(list.entry(i)));
  return out;
}
using Lines = std::vector<std::string>;

TEST(CallStack, PutsTheNewestJustBelowTheFirstLine) {
  CallStackList list;
  for (const char* text : {"first", "second", "third", "fourth"}) list.record(text);
  EXPECT_EQ(lines(list), (Lines{"first", "fourth", "third", "second"}));
}

TEST(CallStack, KeepsFortyEntriesAndDropsTheLast) {
  CallStackList list;
  for (int i = 0; i < 40; ++i) list.record(std::to_string(i));
  EXPECT_EQ(list.size(), 40U);
  EXPECT_EQ(lines(list).back(), "1");
  list.record("40");
  EXPECT_EQ(list.size(), 40U);
  EXPECT_EQ(lines(list)[0], "0");
  EXPECT_EQ(lines(list)[1], "40");
  EXPECT_EQ(lines(list)[2], "39");
  EXPECT_EQ(lines(list).back(), "2");
  for (int i = 41; i < 200; ++i) list.record(std::to_string(i));
  EXPECT_EQ(list.size(), 40U);
  EXPECT_EQ(lines(list)[0], "0");
  EXPECT_EQ(lines(list)[1], "199");
  EXPECT_EQ(lines(list).back(), "161");
}

TEST(CallStack, RecordsNothingWhileRecordingIsOff) {
  CallStackList list;
  list.setRecording(false);
  list.record("text");
  { const Procedure running(list, "module", "name"); }
  EXPECT_EQ(list.size(), 0U);
  list.setRecording(true);
  list.record("text");
  EXPECT_EQ(list.size(), 1U);
}

TEST(Procedure, StandsInTheListWhileItRuns) {
  CallStackList list;
  {
    const Procedure outer(list, "frmDXF", "befStart_Click");
    {
      Procedure inner(list, "frmDXF", "setDrawing");
      inner.parameter("path", "C:\\A.DXF");
      inner.parameter("owner", nullptr);
      EXPECT_EQ(lines(list), (Lines{"frmDXF.befStart_Click", "owner:\t[NOTHING]",
                                    "path:\tC:\\A.DXF", "frmDXF.setDrawing"}));
    }
    EXPECT_EQ(lines(list), Lines{"frmDXF.befStart_Click"});
  }
  EXPECT_EQ(list.size(), 0U);
}

TEST(Procedure, StaysInTheListWhenAnExceptionLeavesIt) {
  CallStackList list;
  const std::uint64_t mark = list.mark();
  try {
    const Procedure outer(list, "a", "outer");
    { const Procedure done(list, "a", "done"); }
    const Procedure inner(list, "a", "inner");
    throw std::runtime_error("stop");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(lines(list), (Lines{"a.outer", "a.inner"}));
  }
  list.backTo(mark);
  EXPECT_EQ(list.size(), 0U);
}

/// A procedure that runs during unwinding returns normally.
TEST(Procedure, OfADestructorLeavesTheListWhileAnExceptionIsOnItsWay) {
  struct Cleaner {
    explicit Cleaner(CallStackList& records) : list(records) {}
    ~Cleaner() { const Procedure cleaning(list, "a", "clean"); }
    Cleaner(const Cleaner&) = delete;
    Cleaner& operator=(const Cleaner&) = delete;
    CallStackList& list;
  };
  CallStackList list;
  try {
    const Procedure outer(list, "a", "outer");
    const Cleaner cleaner(list);
    throw std::runtime_error("stop");
  } catch (const std::runtime_error&) {
    EXPECT_EQ(lines(list), Lines{"a.outer"});
  }
}

TEST(Procedure, DeeperThanTheListLeavesItAsItWas) {
  CallStackList list;
  const Procedure outer(list, "a", "outer");
  const std::function<void(int)> dive = [&](int depth) {
    const Procedure running(list, "a", "dive");
    if (depth > 0) dive(depth - 1);
  };
  dive(100);
  EXPECT_EQ(lines(list), Lines{"a.outer"});
}

TEST(Procedure, KnowsTheLineOfItsBeginning) {
  CallStackList list;
  EXPECT_EQ(list.newestLine(), 0);
  const Procedure running(list, "a", "b");
  const SourceLine line = __LINE__ - 1;
  list.record("a parameter");
  EXPECT_EQ(list.newestLine(), line);
}

}  // namespace
}  // namespace quillon::errors
