#include "convert/input_check.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::convert {
namespace {

using namespace std::string_literals;

TEST(InputCheck, TakesAnyTextWithALineEnd) {
  EXPECT_EQ(checkInput("  0\nSECTION\n"), InputKind::Text);
  EXPECT_EQ(checkInput("  0\rSECTION"), InputKind::Text);
  EXPECT_EQ(checkInput("\n"), InputKind::Text);
  EXPECT_EQ(checkInput("999\nT\xFCr \x81\n"), InputKind::Text);
}

TEST(InputCheck, RefusesAnEmptyFile) { EXPECT_EQ(checkInput(""), InputKind::Empty); }

TEST(InputCheck, RefusesABinaryDxf) {
  EXPECT_EQ(checkInput("AutoCAD Binary DXF\r\n\x1a\0\0\0"s), InputKind::BinaryDxf);
}

TEST(InputCheck, RefusesADwg) {
  EXPECT_EQ(checkInput("AC1015\0\0\0\0\0\x06\x01"s), InputKind::Dwg);
  EXPECT_EQ(checkInput("AC1032\0"s), InputKind::Dwg);
  EXPECT_EQ(checkInput("AC2.10\0\n"s), InputKind::Dwg);
}

TEST(InputCheck, ATextThatStartsLikeADwgIsNotADwg) {
  EXPECT_EQ(checkInput("AC1015\n  0\nSECTION\n"), InputKind::Text);
  EXPECT_EQ(checkInput("ACTION\0\n"s), InputKind::NoText);
}

TEST(InputCheck, RefusesANulByte) {
  EXPECT_EQ(checkInput("  0\nSECT\0ION\n"s), InputKind::NoText);
  EXPECT_EQ(checkInput("\0"s), InputKind::NoText);
}

TEST(InputCheck, RefusesATextWithoutALineEnd) {
  EXPECT_EQ(checkInput("  0 SECTION"), InputKind::NoText);
  EXPECT_EQ(checkInput(std::string(kCheckedBytes, 'x')), InputKind::NoText);
}

}  // namespace
}  // namespace quillon::convert
