#include "app/headless/config_file.h"

#include <gtest/gtest.h>

namespace quillon::headless {
namespace {

std::string errorIn(std::string_view text) {
  try {
    configEntries(text);
  } catch (const ConfigError& error) {
    return std::to_string(error.line()) + ": " + error.what();
  }
  return "none";
}

/// The value of an option with that text after "x = ".
std::string value(const std::string& text) {
  const std::vector<ConfigEntry> entries = configEntries("x = " + text);
  return entries.size() == 1 ? entries[0].value : "no entry";
}

TEST(ConfigFile, HasOneOptionOnEachLineAndComments) {
  const std::vector<ConfigEntry> entries = configEntries(
      "\xEF\xBB\xBF# mine\r\n"
      "\r\n"
      "unit = \"mm\"  # of the drawing\r\n"
      "  jobs=4\n"
      "\tnewer = true");
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].key, "unit");
  EXPECT_EQ(entries[0].value, "mm");
  EXPECT_EQ(entries[0].line, 3U);
  EXPECT_FALSE(entries[0].isSwitch);
  EXPECT_EQ(entries[1].value, "4");
  EXPECT_EQ(entries[1].line, 4U);
  EXPECT_EQ(entries[2].value, "true");
  EXPECT_TRUE(entries[2].isSwitch);
  EXPECT_TRUE(configEntries("").empty());
  EXPECT_TRUE(configEntries("# only this").empty());
}

TEST(ConfigFile, TextsMayHoldWhatElseHasAMeaning) {
  EXPECT_EQ(value(R"x("20 Dimension, # (B)")x"), "20 Dimension, # (B)");
  EXPECT_EQ(value(R"('C:\new\"plates" # 1')"), R"(C:\new\"plates" # 1)");
  EXPECT_EQ(value(R"("a\"b\\c\td")"), "a\"b\\c\td");
  EXPECT_EQ(value(R"("\u00fc\u20ac\U0001F600")"), "ü€😀");
  EXPECT_EQ(value(R"("")"), "");
  EXPECT_EQ(value("''"), "");
  EXPECT_EQ(value(R"("true")"), "true");
  EXPECT_FALSE(configEntries("x = \"true\"")[0].isSwitch);
  EXPECT_EQ(value("-0.5e3"), "-0.5e3");
}

TEST(ConfigFile, SaysInWhichLineWhatIsWrong) {
  EXPECT_EQ(errorIn("unit = 1\n[table]"), "2: tables are not used here: leave out this line");
  EXPECT_EQ(errorIn("= 1"), "1: this is not the name of an option");
  EXPECT_EQ(errorIn("\n\n--unit = 1"), "none");
  EXPECT_EQ(errorIn("ünit = 1"), "1: this is not the name of an option");
  EXPECT_EQ(errorIn("unit"), "1: unit lacks = and a value");
  EXPECT_EQ(errorIn("unit mm"), "1: unit lacks = and a value");
  EXPECT_EQ(errorIn("unit ="), "1: unit lacks a value");
  EXPECT_EQ(errorIn("unit = # mm"), "1: unit lacks a value");
  EXPECT_EQ(errorIn("unit = mm"), "1: the value of unit needs quotation marks");
  EXPECT_EQ(errorIn("unit = \"mm"), "1: a text lacks the \" at its end");
  EXPECT_EQ(errorIn("unit = \"mm\\"),
            "1: \\ starts an escape sequence between \"\": put texts with "
            "\\ between '' instead");
  EXPECT_EQ(errorIn("unit = 'mm"), "1: a text lacks the ' at its end");
  EXPECT_EQ(errorIn("unit = 'mm' 'mil'"), "1: there is more after the value of unit");
  EXPECT_EQ(errorIn("unit = \"\"\"mm\"\"\""),
            "1: a text has to be on one line: begin it with one quotation mark");
  EXPECT_EQ(errorIn("holes = ['A', 'B']"), "1: lists are not used here: write one text");
  EXPECT_EQ(errorIn(R"(name = "\u00")"), "1: \\u needs 4 digits, and \\U 8, of a character");
  EXPECT_EQ(errorIn(R"(name = "\ud800")"), "1: \\u needs 4 digits, and \\U 8, of a character");
  EXPECT_EQ(errorIn(R"(name = "\UFFFFFFFF")"), "1: \\u needs 4 digits, and \\U 8, of a character");
  EXPECT_EQ(errorIn(R"(name = "\u0000")"), "1: a text contains a NUL character");
  EXPECT_EQ(errorIn("unit = 'mm'\nunit = 'mil'"), "2: unit is there twice");
  EXPECT_EQ(errorIn("unit = '\xFF'"), "1: this is not UTF-8");
}

TEST(ConfigFile, OfAnyBytesIsReadOrRefused) {
  // All short texts of characters that mean something.
  const std::string characters = "x=\"'\\#[u0 \n";
  std::size_t count = 1;
  for (int length = 1; length <= 5; ++length) {
    count *= characters.size();
    for (std::size_t number = 0; number < count; ++number) {
      std::string text;
      std::size_t rest = number;
      for (int i = 0; i < length; ++i, rest /= characters.size()) {
        text += characters[rest % characters.size()];
      }
      const std::string error = errorIn(text);
      EXPECT_FALSE(error.empty());
    }
  }
}

}  // namespace
}  // namespace quillon::headless
