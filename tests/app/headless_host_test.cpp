#include "app/headless/headless_host.h"

#include <gtest/gtest.h>

namespace quillon::headless {
namespace {

using convert::MessageKind;

class HeadlessHostTest : public ::testing::Test {
 protected:
  console::Console console{false};
  texts::Texts texts{texts::kEnglish};
  HeadlessHost host{console, texts, ""};
};

TEST_F(HeadlessHostTest, AnswersTheQuestionWithNoAndSaysHowToReplaceTheScript) {
  EXPECT_FALSE(host.ask({MessageKind::Question, "Warning", "text", "a.scr"}));
  ASSERT_EQ(host.messages().size(), 1U);
  EXPECT_EQ(host.messages()[0].kind, MessageKind::Error);
  EXPECT_EQ(host.messages()[0].detail, "a.scr exists already. Use --force to replace it.");
}

TEST_F(HeadlessHostTest, ChoosesNoDrawing) { EXPECT_EQ(host.chooseDxfFile({}), ""); }

TEST_F(HeadlessHostTest, KeepsMessagesInTheirOrder) {
  host.tell({MessageKind::Warning, "", "", "first"});
  host.tell({MessageKind::Error, "", "", "second"});
  ASSERT_EQ(host.messages().size(), 2U);
  EXPECT_EQ(host.messages()[0].detail, "first");
  EXPECT_EQ(host.messages()[1].detail, "second");
}

TEST_F(HeadlessHostTest, HasNoCancelButtonAndIsNotCancelledOfItself) {
  EXPECT_FALSE(host.hasCancelButton());
  EXPECT_FALSE(host.cancelRequested());
}

}  // namespace
}  // namespace quillon::headless
