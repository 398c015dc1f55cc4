#include "base/byte_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

namespace quillon::base {
namespace {

std::string randomText(std::mt19937& random, std::size_t size, std::string_view characters) {
  std::string text;
  for (std::size_t i = 0; i < size; ++i) text += characters[random() % characters.size()];
  return text;
}

TEST(CountByte, CountsInTextsOfEveryLength) {
  std::mt19937 random(1);
  for (std::size_t size = 0; size < 400; ++size) {
    const std::string text = randomText(random, size, "ab\n\xFF");
    EXPECT_EQ(countByte(text, '\n'),
              static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
    EXPECT_EQ(countByte(text, '\xFF'),
              static_cast<std::size_t>(std::count(text.begin(), text.end(), '\xFF')));
  }
}

TEST(CountByte, DoesNotOverflow) {
  for (const std::size_t size : {16'319U, 16'320U, 16'321U, 16'384U, 100'000U}) {
    EXPECT_EQ(countByte(std::string(size, 'x'), 'x'), size);
  }
}

TEST(FindText, FindsTheFirstOccurrence) {
  EXPECT_EQ(findText("", "ab"), std::string_view::npos);
  EXPECT_EQ(findText("a", "ab"), std::string_view::npos);
  EXPECT_EQ(findText("ab", "ab"), 0U);
  EXPECT_EQ(findText("aab ab", "ab"), 1U);
  EXPECT_EQ(findText("xxxb", "b"), 3U);
}

TEST(FindText, FindsATextAtEveryPlace) {
  for (std::size_t place = 0; place < 5000; ++place) {
    std::string text(5006, 'T');
    text.replace(place, 6, "TABLES");
    EXPECT_EQ(findText(text, "TABLES"), place);
  }
}

TEST(FindText, AgreesWithTheLibraryOnRandomText) {
  std::mt19937 random(2);
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = randomText(random, random() % 300, "ab");
    const std::string wanted = randomText(random, 1 + random() % 8, "ab");
    ASSERT_EQ(findText(text, wanted), text.find(wanted)) << text << ' ' << wanted;
  }
}

TEST(HasWithoutBefore, AgreesWithALookAtEveryByte) {
  std::mt19937 random(3);
  for (std::size_t i = 0; i < 5000; ++i) {
    std::string text(i * 3, 'x');
    for (std::size_t at = random() % 40; at + 1 < text.size(); at += 2 + random() % 2000) {
      text.replace(at, 2, random() % 500 == 0 ? "x\n" : "\r\n");
    }
    bool expected = false;
    for (std::size_t at = 1; at < text.size(); ++at) {
      expected = expected || (text[at] == '\n' && text[at - 1] != '\r');
    }
    ASSERT_EQ(hasWithoutBefore(text, '\n', '\r'), expected) << i;
  }
}

TEST(HasWithoutBefore, LeavesTheFirstByteOut) {
  EXPECT_FALSE(hasWithoutBefore("", '\n', '\r'));
  EXPECT_FALSE(hasWithoutBefore("\nx", '\n', '\r'));
  EXPECT_TRUE(hasWithoutBefore("\n\n", '\n', '\r'));
  EXPECT_FALSE(hasWithoutBefore("\r\n", '\n', '\r'));
}

}  // namespace
}  // namespace quillon::base
