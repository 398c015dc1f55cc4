#include "preview/svg_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon::preview {
namespace {

struct Collected : base::ByteSink {
  void write(std::string_view block) override {
    text += block;
    ++blocks;
  }
  std::string text;
  int blocks = 0;
};

std::string numberText(double value, double finest) {
  Collected sink;
  SvgText text(sink, finest);
  text.number(value).flush();
  return sink.text;
}

TEST(SvgText, NumbersHaveTheDecimalsThatCanBeSeen) {
  EXPECT_EQ(numberText(12.3456789, 0.01), "12.35");
  EXPECT_EQ(numberText(12.3456789, 1.0), "12");
  EXPECT_EQ(numberText(12.3456789, 1e-12), "12.345679");
  EXPECT_EQ(numberText(12.5, 0.0001), "12.5");
  EXPECT_EQ(numberText(100.0, 0.0001), "100");
  EXPECT_EQ(numberText(-0.05, 0.01), "-0.05");
  EXPECT_EQ(numberText(-0.0001, 0.01), "0");
}

TEST(SvgText, NumbersOfNoDrawingAreZero) {
  EXPECT_EQ(numberText(1e300, 0.01), "0");
  EXPECT_EQ(numberText(std::numeric_limits<double>::quiet_NaN(), 0.01), "0");
  EXPECT_EQ(numberText(-std::numeric_limits<double>::infinity(), 0.01), "0");
}

TEST(SvgText, YIsTurnedOver) {
  Collected sink;
  SvgText text(sink, 0.1);
  text.point({1.0, 2.5}).flush();
  EXPECT_EQ(sink.text, "1 -2.5");
}

TEST(SvgText, IsHandedOnInLargeBlocks) {
  Collected sink;
  SvgText text(sink, 0.1);
  for (int i = 0; i < 100'000; ++i) text.text("ab");
  text.flush();
  EXPECT_EQ(sink.text.size(), 200'000U);
  EXPECT_LE(sink.blocks, 5);
}

TEST(SvgText, FixedAndShortNumbers) {
  EXPECT_EQ(fixedText(12.0, 1), "12.0");
  EXPECT_EQ(fixedText(3.9996, 3), "4.000");
  EXPECT_EQ(fixedText(7.0, 0), "7");
  EXPECT_EQ(shortText(12.50, 3), "12.5");
  EXPECT_EQ(shortText(200.0, 3), "200");
}

TEST(SvgText, TextsCannotLeaveTheirPlace) {
  EXPECT_EQ(xmlText("a<b>&\"c\"\x01 \x1B[0m"), "a&lt;b&gt;&amp;&quot;c&quot; [0m");
}

}  // namespace
}  // namespace quillon::preview
