#include "base/utf8_check.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillon::base {
namespace {

bool isComplete(std::initializer_list<std::string_view> pieces) {
  Utf8Check check;
  for (const std::string_view piece : pieces) check.add(piece);
  return check.complete();
}

TEST(Utf8SequenceLength, IsThatOfTheCharacterOrZero) {
  const auto lengthOf = [](std::string_view text) {
    return utf8SequenceLength(text.data(), text.data() + text.size());
  };
  EXPECT_EQ(lengthOf("a€"), 1U);
  EXPECT_EQ(lengthOf("ä!"), 2U);
  EXPECT_EQ(lengthOf("€!"), 3U);
  EXPECT_EQ(lengthOf("😀!"), 4U);
  for (const std::string_view bad : {"\x80", "\xC3", "\xC3!", "\xE2\x82", "\xED\xA0\x80",
                                     "\xF0\x9F\x98", "\xC0\x80", "\xF8\x88\x80\x80\x80"}) {
    EXPECT_EQ(lengthOf(bad), 0U);
  }
}

TEST(Utf8Check, AcceptsATextCutAtAnyTwoPlaces) {
  const std::string_view text = "aäb€c😀dÿ";
  for (std::size_t first = 0; first <= text.size(); ++first) {
    for (std::size_t second = first; second <= text.size(); ++second) {
      EXPECT_TRUE(isComplete(
          {text.substr(0, first), text.substr(first, second - first), text.substr(second)}))
          << first << ' ' << second;
    }
  }
}

TEST(Utf8Check, AcceptsATextByteByByte) {
  Utf8Check check;
  for (const char c : std::string_view("ä€😀ä")) check.add({&c, 1});
  EXPECT_TRUE(check.complete());
}

TEST(Utf8Check, RefusesAMalformedTextCutAnywhere) {
  for (const std::string_view bad :
       {"x\x80y", "x\xC3yz", "x\xE2\x82yz", "x\xE2yzz", "x\xF0\x9F\x98yz", "x\xED\xA0\x80",
        "x\xC0\x80", "x\xFF", "x\xC3\xC3\xA4", "x\xF4\x90\x80\x80", "x\xE0\x9F\xBF"}) {
    for (std::size_t cut = 0; cut <= bad.size(); ++cut) {
      Utf8Check check;
      check.add(bad.substr(0, cut));
      check.add(bad.substr(cut));
      EXPECT_FALSE(check.complete()) << bad << ' ' << cut;
      check.add("more");
      EXPECT_FALSE(check.valid()) << bad << ' ' << cut;
      check.add("more");
      EXPECT_FALSE(check.complete());
    }
  }
}

TEST(Utf8Check, IsNotCompleteInsideACharacter) {
  for (const std::string_view start :
       {"\xC3", "\xE2\x82", "\xE2", "\xF0\x9F\x98", "\xF0", "ä\xC3"}) {
    Utf8Check check;
    check.add(start);
    EXPECT_TRUE(check.valid()) << start;
    EXPECT_FALSE(check.complete()) << start;
  }
  EXPECT_TRUE(isComplete({}));
  EXPECT_TRUE(isComplete({"", ""}));
}

}  // namespace
}  // namespace quillon::base
