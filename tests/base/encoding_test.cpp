#include "base/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace quillon::base {
namespace {

/// Every letter with an upper-case form here, and those forms in the same order.
constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšžœÿ";
constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŽŒŸ";

/// The characters of the Windows-1252 bytes 0x80 to 0x9F.
constexpr std::string_view kHighControls[] = {
    "€", "\xC2\x81", "‚",        "ƒ", "„",        "…",        "†", "‡",        "ˆ", "‰", "Š",
    "‹", "Œ",        "\xC2\x8D", "Ž", "\xC2\x8F", "\xC2\x90", "‘", "’",        "“", "”", "•",
    "–", "—",        "˜",        "™", "š",        "›",        "œ", "\xC2\x9D", "ž", "Ÿ"};

std::string allBytes() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

std::string windows1252(std::string_view utf8) { return fromUtf8(utf8, Encoding::Windows1252); }

TEST(UpperCase, MapsTheAccentedLettersOfBothEncodings) {
  EXPECT_EQ(upperCase(kLower, Encoding::Utf8), kUpper);
  EXPECT_EQ(upperCase(windows1252(kLower), Encoding::Windows1252), windows1252(kUpper));
}

TEST(UpperCase, LeavesEveryOtherByteOfWindows1252) {
  const std::string lower = windows1252(kLower);
  for (const char c : allBytes()) {
    if (lower.find(c) != std::string::npos) continue;
    const std::string text(1, c);
    EXPECT_EQ(upperCase(text, Encoding::Windows1252), text) << static_cast<int>(c);
  }
}

TEST(UpperCase, LeavesOtherCharactersOfUtf8) {
  for (const std::string_view text : {"÷", "×", "ß", "µ", "ƒ", "ª", "ı", "ā", "ş", "λ", "ж", "ſ",
                                      "€", "…", "ﬁ", "𝕩", "😀", "ÀŸ09_-*$"}) {
    EXPECT_EQ(upperCase(text, Encoding::Utf8), text);
  }
}

TEST(UpperCase, ReadsTheSameBytesByTheirEncoding) {
  EXPECT_EQ(upperCase("\xE4", Encoding::Windows1252), "\xC4");
  EXPECT_EQ(upperCase("\xE4", Encoding::Utf8), "\xE4");
  // In Windows-1252 the two bytes of an "ä" are a capital and a currency sign.
  EXPECT_EQ(upperCase("\xC3\xA4", Encoding::Windows1252), "\xC3\xA4");
  EXPECT_EQ(upperCase("\xC3\xA4", Encoding::Utf8), "\xC3\x84");
}

TEST(UpperCase, KeepsMalformedBytesOfUtf8AndMapsWhatFollows) {
  EXPECT_EQ(upperCase("\xE9"
                      "a\xC3",
                      Encoding::Utf8),
            "\xE9"
            "A\xC3");
  EXPECT_EQ(upperCase("\xC3"
                      "z\xF0\x9Fö",
                      Encoding::Utf8),
            "\xC3"
            "Z\xF0\x9FÖ");
}

TEST(LowerCase, MapsWhatUpperCaseMaps) {
  EXPECT_EQ(lowerCase("ABZ @[`{ 019"), "abz @[`{ 019");
  EXPECT_EQ(lowerCase("ÀÖØÞŠŽŒŸ"), "àöøþšžœÿ");
  EXPECT_EQ(upperCase(lowerCase("ÄÖÜŸ"), Encoding::Utf8), "ÄÖÜŸ");
}

TEST(LowerCase, LeavesEveryOtherCharacter) {
  EXPECT_EQ(lowerCase("×ßĀΩЖ国€"), "×ßĀΩЖ国€");
  EXPECT_EQ(lowerCase("A\xC3"), "a\xC3");
  EXPECT_EQ(lowerCase("\xC3\xC3\x84\xFF"), "\xC3\xC3\xA4\xFF");
}

TEST(EqualsUpperCased, ComparesWithoutRegardToAsciiCase) {
  EXPECT_TRUE(equalsUpperCased("EndSec", "ENDSEC"));
  EXPECT_TRUE(equalsUpperCased("", ""));
  EXPECT_TRUE(equalsUpperCased("$angdir", "$ANGDIR"));
  EXPECT_FALSE(equalsUpperCased("ENDSEC ", "ENDSEC"));
  EXPECT_FALSE(equalsUpperCased("ENDSE", "ENDSEC"));
  EXPECT_FALSE(equalsUpperCased("ENDSEK", "ENDSEC"));
}

TEST(IsValidUtf8, AcceptsWellFormedText) {
  for (const std::string_view text :
       {"", "plain", "ä", "€uro", "😀", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
        "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(isValidUtf8(text)) << text;
  }
  EXPECT_TRUE(isValidUtf8(std::string_view("a\0b", 3)));
}

TEST(IsValidUtf8, RefusesMalformedTextWhereverItStands) {
  for (const std::string_view bad :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3z", "\xE2\x82", "\xE2z\x82",
        "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x9F\x98", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\xFF", "\xFE"}) {
    for (std::size_t before = 0; before < 20; ++before) {
      const std::string text = std::string(before, 'x') + std::string(bad);
      EXPECT_FALSE(isValidUtf8(text)) << before;
      EXPECT_FALSE(isValidUtf8("ä" + text + std::string(20, 'y'))) << before;
    }
  }
}

TEST(Windows1252ToUtf8, KnowsEveryByte) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    std::string expected;
    if (byte < 0x80) {
      expected = static_cast<char>(byte);
    } else if (byte < 0xA0) {
      expected = kHighControls[byte - 0x80];
    } else {
      expected = {static_cast<char>(byte < 0xC0 ? 0xC2 : 0xC3),
                  static_cast<char>(0x80 | (byte & 0x3F))};
    }
    EXPECT_EQ(windows1252ToUtf8(std::string(1, static_cast<char>(byte))), expected) << byte;
  }
}

TEST(FromUtf8, GivesEveryByteOfWindows1252Back) {
  EXPECT_EQ(windows1252(windows1252ToUtf8(allBytes())), allBytes());
}

TEST(FromUtf8, WritesAQuestionMarkForCharactersThatTheEncodingLacks) {
  EXPECT_EQ(windows1252("aλbжc😀d€"), "a?b?c?d\x80");
  EXPECT_EQ(windows1252("\xC2\x80\xC2\x81\xC2\x82"), "?\x81?");
  EXPECT_EQ(fromUtf8("aλ😀", Encoding::Utf8), "aλ😀");
}

TEST(ToUtf8, TakesMalformedBytesAsWindows1252) {
  EXPECT_EQ(toUtf8("Grün", Encoding::Utf8), "Grün");
  EXPECT_EQ(toUtf8("Gr\xFCn \x80", Encoding::Utf8), "Grün €");
  EXPECT_EQ(toUtf8("Gr\xFCn", Encoding::Windows1252), "Grün");
}

}  // namespace
}  // namespace quillon::base
