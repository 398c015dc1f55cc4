#include "convert/run_control.h"

#include <gtest/gtest.h>

#include "support/conversion.h"

namespace quillon::convert {
namespace {

using testing::RecordingHost;
using Strings = std::vector<std::string>;
using Progress = std::vector<std::pair<bool, int>>;

class RunControlTest : public ::testing::Test {
 protected:
  RecordingHost host;
  texts::Texts english{texts::kEnglish};
  texts::Texts german{texts::kGerman};
};

TEST_F(RunControlTest, WordsThePhasesOfReading) {
  RunControl control(host, english, {});
  control.setStatus(base::ReadPhase::Header, 0);
  control.setStatus(base::ReadPhase::Blocks, 0);
  control.setStatus(base::ReadPhase::Entities, 0);
  EXPECT_EQ(host.statuses, (Strings{"Processing Header of DXF", "Processing Blocks of DXF",
                                    "Processing Entities of DXF"}));
}

TEST_F(RunControlTest, PutsABlankBeforeTheCount) {
  RunControl control(host, english, {});
  control.setStatus(base::ReadPhase::Blocks, 3);
  RunControl(host, german, {}).setStatus(base::ReadPhase::Entities, 12);
  EXPECT_EQ(host.statuses,
            (Strings{"Processing Blocks of DXF 3", "Verarbeiten der DXF Entities  12"}));
}

TEST_F(RunControlTest, ShowsTheTextOfAnId) {
  RunControl control(host, german, {});
  control.setStatusText(texts::TextId::StatusConverting);
  EXPECT_EQ(host.statuses, Strings{"Konvertiere Daten"});
  EXPECT_GT(host.events, 0);
}

TEST_F(RunControlTest, RoundsProgressToPercent) {
  RunControl control(host, english, {});
  control.setProgress(false, 1, 3);
  control.setProgress(false, 2, 3);
  control.setProgress(true, 3, 3);
  EXPECT_EQ(host.progress, (Progress{{false, 33}, {false, 67}, {true, 100}}));
}

TEST_F(RunControlTest, ShowsNoProgressOfNothing) {
  RunControl control(host, english, {});
  control.setProgress(false, 0, 0);
  control.setProgress(true, 5, 0);
  EXPECT_TRUE(host.progress.empty());
}

TEST_F(RunControlTest, ShowsTheSamePercentageOnce) {
  RunControl control(host, english, {});
  control.setProgress(false, 500, 1000);
  control.setProgress(false, 501, 1000);
  control.setProgress(true, 500, 1000);
  EXPECT_EQ(host.progress, (Progress{{false, 50}, {true, 50}}));
}

TEST_F(RunControlTest, LetsNoMoreUpdatesThroughThanTheIntervalAllowsButTheLastOne) {
  RunControl control(host, english, std::chrono::hours(1));
  control.setProgress(false, 1, 100);
  control.setProgress(false, 2, 100);
  control.setProgress(false, 100, 100);
  EXPECT_EQ(host.progress, (Progress{{false, 1}, {false, 100}}));
  control.setStatus(base::ReadPhase::Entities, 1);
  control.setStatus(base::ReadPhase::Entities, 2);
  EXPECT_EQ(host.statuses, Strings{"Processing Entities of DXF 1"});
}

TEST_F(RunControlTest, RemembersACancel) {
  RunControl control(host, english, {});
  EXPECT_FALSE(control.cancelRequested());
  host.cancelWhen = [] { return true; };
  EXPECT_FALSE(control.cancelled());
  EXPECT_TRUE(control.cancelRequested());
  host.cancelWhen = nullptr;
  EXPECT_TRUE(control.cancelRequested());
  EXPECT_TRUE(control.cancelled());
}

TEST_F(RunControlTest, StopsAsACancelDoes) {
  RunControl control(host, english, {});
  control.stop();
  EXPECT_TRUE(control.cancelled());
  EXPECT_TRUE(control.cancelRequested());
}

TEST_F(RunControlTest, LetsEventsRunWhileItPollsAndWaits) {
  RunControl control(host, english, {});
  control.cancelRequested();
  EXPECT_EQ(host.events, 1);
  control.waitForUser();
  EXPECT_EQ(host.events, 2);
}

}  // namespace
}  // namespace quillon::convert
