#include "errors/parameter.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillon::errors {
namespace {

TEST(RenderedValue, OfAnArrayIsItsKind) {
  EXPECT_EQ(rendered(std::vector<int>{1, 2}), "[ARRAY]");
  EXPECT_EQ(rendered(std::vector<std::string>()), "[ARRAY]");
}
TEST(RenderedValue, OfNullIsItsKind) { EXPECT_EQ(rendered(std::nullopt), "[NULL]"); }
TEST(RenderedValue, OfAnEmptyValueIsItsKind) { EXPECT_EQ(rendered(std::monostate{}), "[EMPTY]"); }
TEST(RenderedValue, OfAnUnsetObjectIsItsKind) {
  EXPECT_EQ(rendered(nullptr), "[NOTHING]");
  EXPECT_EQ(rendered(nullptr, "QLineEdit"), "[NOTHING]");
}
TEST(RenderedValue, OfAnObjectIsItsType) {
  const int object = 0;
  EXPECT_EQ(rendered(&object, "QLineEdit"), "[OBJECT:QLineEdit]");
}
TEST(RenderedValue, OfAnythingElseIsItsText) {
  EXPECT_EQ(rendered("Maße.dxf"), "Maße.dxf");
  EXPECT_EQ(rendered(std::string()), "");
  EXPECT_EQ(rendered(-17), "-17");
  EXPECT_EQ(rendered(0.25), "0.25");
  EXPECT_EQ(rendered(true), "True");
  EXPECT_EQ(rendered(false), "False");
}
TEST(RenderedValue, StaysOnOneLine) {
  const std::string text = rendered("a\r\nb");
  EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
}
TEST(ParameterRecord, IsNameColonTabAndValue) {
  EXPECT_EQ(parameterRecord("dxfFile", rendered("A.DXF")), "dxfFile:\tA.DXF");
  EXPECT_EQ(parameterRecord("owner", rendered(nullptr)), "owner:\t[NOTHING]");
}

}  // namespace
}  // namespace quillon::errors
