#include "errors/value.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillon::errors {
namespace {

TEST(RenderedValue, OfAnArrayIsItsKind) {
  EXPECT_EQ(renderValue(toValue(std::vector<int>{1, 2})), "[ARRAY]");
  EXPECT_EQ(renderValue(Array{}), "[ARRAY]");
}
TEST(RenderedValue, OfNullIsItsKind) { EXPECT_EQ(renderValue(toValue(std::nullopt)), "[NULL]"); }
TEST(RenderedValue, OfAnEmptyValueIsItsKind) {
  EXPECT_EQ(renderValue(toValue(std::monostate{})), "[EMPTY]");
}
TEST(RenderedValue, OfAnUnsetObjectIsItsKind) {
  EXPECT_EQ(renderValue(toValue(nullptr)), "[NOTHING]");
}
TEST(RenderedValue, OfAnObjectIsItsType) {
  EXPECT_EQ(renderValue(Object{"QLineEdit"}), "[OBJECT:QLineEdit]");
}
TEST(RenderedValue, OfAnythingElseIsItsText) {
  EXPECT_EQ(renderValue(toValue("Maße.dxf")), "Maße.dxf");
  EXPECT_EQ(renderValue(toValue(std::string())), "");
  EXPECT_EQ(renderValue(toValue(-17)), "-17");
  EXPECT_EQ(renderValue(toValue(0.25)), "0.25");
  EXPECT_EQ(renderValue(toValue(true)), "True");
  EXPECT_EQ(renderValue(toValue(false)), "False");
}
TEST(RenderedValue, StaysOnOneLine) {
  const std::string text = renderValue(toValue("a\r\nb"));
  EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace quillon::errors
