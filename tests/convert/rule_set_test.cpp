#include <stdexcept>

#include "convert/driver_fixture.h"

namespace quillon::convert {
namespace {

class RuleSetTest : public DriverTest {};

TEST_F(RuleSetTest, AJobFollowsTheClassicRulesUnlessItSaysOtherwise) {
  EXPECT_EQ(ConversionJob().rules, Rules::Classic);
}

TEST_F(RuleSetTest, RulesThatAreNoneAreAFaultOfTheProgramAndLeaveNoScript) {
  folder.write("drawing.scr", "old");
  job.overwriteScript = true;
  job.rules = static_cast<Rules>(7);
  EXPECT_THROW(convert(), std::invalid_argument);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(script(), "old");
  EXPECT_EQ(folder.entries(), 2U) << "the drawing and the old script";
}

}  // namespace
}  // namespace quillon::convert
