#include "errors/attempt.h"

#include "errors/scribe_fixture.h"

namespace quillon::errors {
namespace {

class AttemptTest : public ScribeTest {
 protected:
  bool attemptFailing(int failures, unsigned allowed = kEveryContinuation) {
    return attempt(
        faults, "frmDXF", "befSave_Click",
        [this, failures] {
          if (++runs <= failures) throw std::runtime_error("failure");
        },
        allowed);
  }
  int runs = 0;
};

TEST_F(AttemptTest, GoesOnAfterASuccess) {
  EXPECT_TRUE(attemptFailing(0));
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(view.reports.empty());
}

TEST_F(AttemptTest, RetryRunsTheStepAgain) {
  view.answers = {kRetry, kRetry};
  EXPECT_TRUE(attemptFailing(2));
  EXPECT_EQ(runs, 3);
  EXPECT_EQ(view.reports.size(), 2U);
}

TEST_F(AttemptTest, ResumeGoesOnAfterTheStep) {
  view.answers = {kResume};
  EXPECT_TRUE(attemptFailing(1));
  EXPECT_EQ(runs, 1);
}

TEST_F(AttemptTest, LeaveLeavesTheProcedure) {
  view.answers = {kLeave};
  EXPECT_FALSE(attemptFailing(1));
  EXPECT_EQ(runs, 1);
  EXPECT_FALSE(faults.ending());
}

TEST_F(AttemptTest, EndLeavesTheProcedureAndEndsTheProgram) {
  view.answers = {kEnd};
  EXPECT_FALSE(attemptFailing(1));
  EXPECT_TRUE(faults.ending());
  EXPECT_EQ(view.ends, 1);
}

TEST_F(AttemptTest, ReportsTheNamesTheLineAndThePathThere) {
  const SourceLine line = __LINE__ + 3;
  attempt(faults, "Main", "Main", [this] {
    attempt(faults, "frmDXF", "LoadSettings", [this] {
      const Procedure inner(faults.callStack(), "ini", "ReadIni");
      throw std::runtime_error("failure");
    });
  });
  ASSERT_EQ(view.reports.size(), 1U);  // trapped once
  EXPECT_EQ(view.reports[0].values[1], "frmDXF");
  EXPECT_EQ(view.reports[0].values[2], "LoadSettings");
  EXPECT_EQ(view.reports[0].values[3], std::to_string(line));
  EXPECT_EQ(stack(view.reports[0]),
            (std::vector<std::string>{"Main.Main", "ini.ReadIni", "frmDXF.LoadSettings"}));
  EXPECT_EQ(faults.callStack().size(), 0U);
}

TEST_F(AttemptTest, TrapsWhatIsNoException) {
  EXPECT_FALSE(attempt(faults, "a", "b", [] { throw 42; }));
  EXPECT_EQ(view.reports[0].fault.description, "Unknown error");
}

TEST_F(AttemptTest, HandsOnWhatIsAllowed) {
  attemptFailing(1, kWholeProcedure);
  EXPECT_EQ(view.reports[0].allowed, kMayRetry | kMayLeave | kMayEnd);
}

}  // namespace
}  // namespace quillon::errors
