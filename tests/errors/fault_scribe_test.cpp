#include "errors/fault_scribe.h"

#include "errors/scribe_fixture.h"
#include "files/output_file.h"

namespace quillon::errors {
namespace {

std::int16_t reportError(FaultScribe& faults, unsigned allowed = kEveryContinuation) {
  try {
    throw files::WriteError(ENOSPC);
  } catch (...) {
    return faults.OnError("frmDXF", "befStart_Click", allowed);
  }
}

TEST_F(ScribeTest, ReportsNumberModuleProcedureAndLine) {
  const Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
  const std::string line = std::to_string(__LINE__ - 1);
  reportError(faults);
  ASSERT_EQ(view.reports.size(), 1U);
  EXPECT_EQ(view.reports[0].values,
            (std::array<std::string, 4>{"61", "frmDXF", "befStart_Click", line}));
  EXPECT_EQ(view.reports[0].caption, "Quillon - Fehlermeldung");
  EXPECT_FALSE(view.reports[0].date.empty());
  EXPECT_FALSE(view.reports[0].time.empty());
  EXPECT_EQ(stack(view.reports[0]), std::vector<std::string>{"frmDXF.befStart_Click"});
}

TEST_F(ScribeTest, DescribesTheErrorInThePresentLanguage) {
  reportError(faults);
  language = texts::kGerman;
  reportError(faults);
  EXPECT_NE(view.reports[0].fault.description, view.reports[1].fault.description);
}

TEST_F(ScribeTest, ReturnsTheUsersChoice) {
  view.answers = {kRetry, kResume, kLeave, kEnd};
  EXPECT_EQ(reportError(faults), 0);
  EXPECT_EQ(reportError(faults), 1);
  EXPECT_EQ(reportError(faults), 2);
  EXPECT_FALSE(faults.ending());
  EXPECT_EQ(view.ends, 0);
  EXPECT_EQ(reportError(faults), 3);
  EXPECT_TRUE(faults.ending());
  EXPECT_EQ(view.ends, 1);
}

TEST_F(ScribeTest, HandsOnWhichContinuationsAreAllowed) {
  reportError(faults, kMayRetry | kMayEnd);
  reportError(faults);
  EXPECT_EQ(view.reports[0].allowed, 9U);
  EXPECT_EQ(view.reports[1].allowed, 15U);
}

TEST_F(ScribeTest, ProtocolHasTheProgramInfoWhenItIsSet) {
  reportError(faults);
  EXPECT_EQ(view.reports[0].protocol().find("Version"),
            view.reports[0].protocol().rfind("Version"));
  faults.SetProgInfo("Quillon Version 1.0.0");
  reportError(faults);
  EXPECT_NE(view.reports[1].protocol().find("Fehlermeldung\r\nQuillon Version 1.0.0\r\n---"),
            std::string::npos);
}

TEST_F(ScribeTest, RecordsNothingWhileTheWindowIsShown) {
  view.whileShown = [this] { faults.CallStack("record"); };
  reportError(faults);
  EXPECT_EQ(faults.callStack().size(), 0U);
  faults.CallStack("record");
  EXPECT_EQ(faults.callStack().size(), 1U);
}

TEST_F(ScribeTest, ShowsNoSecondWindowAboveTheFirst) {
  std::int16_t second = -1;
  view.whileShown = [&] { second = reportError(faults); };
  reportError(faults);
  EXPECT_EQ(view.reports.size(), 1U);
  EXPECT_EQ(second, kLeave);
  const std::string trace = folder.read("quillon.EPT");
  EXPECT_NE(trace.find("befStart_Click"), trace.rfind("befStart_Click")) << trace;
}

TEST_F(ScribeTest, NeverThrows) {
  view.whileShown = [] { throw std::runtime_error("the window fails"); };
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(reportError(faults), kLeave);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "quillon: frmDXF.befStart_Click\n");
  EXPECT_EQ(reportError(faults, kMayEnd), kEnd);
  view.whileShown = nullptr;
  reportError(faults);
  EXPECT_EQ(view.reports.size(), 3U);  // it still works
}

TEST_F(ScribeTest, TracesEachErrorWithItsCallStack) {
  faults.CallStack("path:\tC:\\A.DXF");
  reportError(faults);
  const std::string first = folder.read("quillon.EPT");
  EXPECT_NE(first.find("frmDXF.befStart_Click"), std::string::npos) << first;
  EXPECT_NE(first.find("\t61\t"), std::string::npos) << first;
  EXPECT_NE(first.find("\r\n\tpath:\tC:\\A.DXF\r\n"), std::string::npos) << first;
  reportError(faults);
  const std::string second = folder.read("quillon.EPT");
  EXPECT_EQ(second.substr(0, first.size()), first);
  EXPECT_GT(second.size(), first.size());
}

TEST_F(ScribeTest, TraceOfEndlessErrorsStaysSmall) {
  for (int i = 0; i < 40; ++i) faults.CallStack(std::string(200, 'x'));
  for (int i = 0; i < 100; ++i) reportError(faults);
  EXPECT_LT(folder.read("quillon.EPT").size(), 512U * 1024U);
  EXPECT_EQ(view.reports.size(), 100U);
}

TEST_F(ScribeTest, ReportsAlsoWhereNoFileCanBeWritten) {
  FaultScribe lost({"Quillon", "/dev/null/none", "quillon", ""}, language, view);
  reportError(lost);
  FaultScribe homeless({"Quillon", {}, "quillon", ""}, language, view);
  reportError(homeless);
  EXPECT_EQ(view.reports.size(), 2U);
  EXPECT_FALSE(saveProtocol(lost.program(), "text"));
  EXPECT_FALSE(saveProtocol(homeless.program(), "text"));
}

TEST_F(ScribeTest, SavesTheProtocolInTheProgramFolder) {
  EXPECT_TRUE(saveProtocol(faults.program(), "first"));
  EXPECT_EQ(folder.read("quillon.ERR"), "first");
  EXPECT_TRUE(saveProtocol(faults.program(), "second"));
  EXPECT_EQ(folder.read("quillon.ERR"), "second");
}

}  // namespace
}  // namespace quillon::errors
