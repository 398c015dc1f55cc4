#include "base/text_hash.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <string>
#include <string_view>

namespace quillon::base {
namespace {

/// The key of the published test vectors and the start of their text: 00 01 02 …
constexpr HashKey kPublishedKey = {0x0706050403020100U, 0x0F0E0D0C0B0A0908U};

std::string publishedText(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<char>(i);
  return text;
}

TEST(SipHash, HasThePublishedValues) {
  EXPECT_EQ(sipHash24(publishedText(0), kPublishedKey), 0x726FDB47DD0E0E31U);
  EXPECT_EQ(sipHash24(publishedText(1), kPublishedKey), 0x74F839C593DC67FDU);
  EXPECT_EQ(sipHash24(publishedText(2), kPublishedKey), 0x0D6C8009D9A94F5AU);
  EXPECT_EQ(sipHash24(publishedText(3), kPublishedKey), 0x85676696D7FB7E2DU);
  EXPECT_EQ(sipHash24(publishedText(15), kPublishedKey), 0xA129CA6149BE45E5U);
  EXPECT_EQ(sipHash13(publishedText(0), kPublishedKey), 0xABAC0158050FC4DCU);
}

TEST(SipHash, DependsOnEveryByteAndOnTheKey) {
  for (std::size_t length = 1; length < 40; ++length) {
    const std::string text = publishedText(length);
    const std::uint64_t hash = sipHash13(text, kPublishedKey);
    EXPECT_NE(sipHash13(text, {1, 2}), hash);
    EXPECT_NE(sipHash13(text.substr(1), kPublishedKey), hash);
    for (std::size_t i = 0; i < length; ++i) {
      std::string other = text;
      other[i] = static_cast<char>(other[i] ^ 1);
      EXPECT_NE(sipHash13(other, kPublishedKey), hash) << length << ' ' << i;
    }
  }
}

TEST(TextHash, HasOneRandomKeyForTheProcess) {
  EXPECT_EQ(TextHash()("LAYER"), TextHash()("LAYER"));
  EXPECT_EQ(TextHash()("LAYER"), sipHash13("LAYER", processHashKey()));
  EXPECT_NE(processHashKey().low, 0U);
  EXPECT_NE(processHashKey().low, processHashKey().high);
}

}  // namespace
}  // namespace quillon::base
