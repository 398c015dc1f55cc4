#include "dxf/text_arena.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::dxf {
namespace {

TEST(TextArena, KeepsCopiesOfShortAndLongTexts) {
  TextArena arena;
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < 3000; ++i) {
    const std::size_t length = i % 100 == 0 ? i * 50 : i % 90;
    texts.emplace_back(length, static_cast<char>('a' + i % 26));
  }
  std::vector<std::string_view> kept;
  for (const std::string& text : texts) kept.push_back(arena.keep(std::string(text)));
  for (std::size_t i = 0; i < texts.size(); ++i) ASSERT_EQ(kept[i], texts[i]) << i;
}

TEST(TextArena, PutsAMarginAfterATextOnRequest) {
  TextArena arena;
  std::vector<std::string_view> kept;
  for (const std::size_t length : {0U, 1U, 1000U, 100'000U}) {
    kept.push_back(arena.keep(std::string(length, 'x'), 128, '\n'));
    arena.keep("behind");
  }
  for (const std::string_view text : kept) {
    EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), static_cast<std::ptrdiff_t>(text.size()));
    EXPECT_EQ(std::string_view(text.data() + text.size(), 128), std::string(128, '\n'));
  }
}

TEST(TextArena, GivesBackTheRoomThatATextDidNotNeed) {
  TextArena arena;
  char* const text = arena.beginText(1000);
  arena.endText(text + 10);
  EXPECT_EQ(arena.keep("behind").data(), text + 10);
}

TEST(TextArena, LeavesTheRoomOfATextAloneWhereAnotherWasKeptMeanwhile) {
  TextArena arena;
  for (const std::size_t most : {1000U, 100'000U}) {
    char* const text = arena.beginText(most);
    const std::string_view other = arena.keep("other");
    std::fill_n(text, most, 'x');
    arena.endText(text + 10);
    const std::string_view behind = arena.keep("behind");
    EXPECT_EQ(other, "other");
    EXPECT_EQ(behind, "behind");
    EXPECT_EQ(std::string_view(text, 10), std::string(10, 'x'));
  }
}

TEST(TextArena, KeepsAnEmptyText) {
  TextArena arena;
  EXPECT_EQ(arena.keep(""), "");
  EXPECT_EQ(arena.keep(std::string_view{}), "");
}

}  // namespace
}  // namespace quillon::dxf
