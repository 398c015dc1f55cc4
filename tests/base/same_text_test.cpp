#include "base/same_text.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::base {
namespace {

TEST(IsSameText, IsEquality) {
  for (std::size_t size = 0; size < 40; ++size) {
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i % 26);
    const std::string copy = text;
    EXPECT_TRUE(isSameText(text, copy)) << size;
    EXPECT_TRUE(isSameText(text, text)) << size;
    EXPECT_FALSE(isSameText(text, copy + "x")) << size;
    for (std::size_t i = 0; i < size; ++i) {
      std::string other = text;
      other[i] = '\xff';
      EXPECT_FALSE(isSameText(text, other)) << size << " " << i;
    }
  }
  EXPECT_TRUE(isSameText({}, ""));
}

}  // namespace
}  // namespace quillon::base
