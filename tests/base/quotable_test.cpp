#include "base/quotable.h"

#include <gtest/gtest.h>

namespace quillon::base {
namespace {

TEST(Quotable, EscapesControlCharacters) {
  EXPECT_EQ(quotable("a\nb\r\tc\x7f\x01"), "a\\x0ab\\x0d\\x09c\\x7f\\x01");
  EXPECT_EQ(quotable("Grundriß 1.dxf"), "Grundriß 1.dxf");
}

TEST(Quotable, EscapesTheControlCharactersBeyondAscii) {
  // U+009B alone starts a terminal control sequence, like ESC [.
  const std::string quoted = quotable(
      "a\xC2\x9B"
      "b");
  EXPECT_EQ(quoted.find("\xC2\x9B"), std::string::npos);
  EXPECT_TRUE(quoted.starts_with("a"));
  EXPECT_TRUE(quoted.ends_with("b"));
}

TEST(Quotable, CutsALongTextBetweenCharacters) {
  EXPECT_EQ(quotable(std::string(200, 'x')), std::string(200, 'x'));
  EXPECT_EQ(quotable(std::string(201, 'x')), std::string(200, 'x') + "…");
  EXPECT_EQ(quotable(std::string(199, 'x') + "äöü"), std::string(199, 'x') + "ä…");
}

}  // namespace
}  // namespace quillon::base
