#include "batch/drawing_files.h"

#include <gtest/gtest.h>

namespace quillon::batch {
namespace {

TEST(NameFromFile, ReplacesWhatAScriptCannotHold) {
  EXPECT_EQ(nameFromFile("Grundplatte 2'ü"), "Grundplatte_2__");
  EXPECT_EQ(nameFromFile("a;b\nc/d\\e"), "a_b_c_d_e");
}

TEST(NameFromFile, KeepsLettersDigitsUnderscoreHyphenAndDot) {
  EXPECT_EQ(nameFromFile("Az_09-b.v2"), "Az_09-b.v2");
  EXPECT_EQ(nameFromFile(""), "");
}

TEST(NameFromFile, ReplacesACharacterOfSeveralBytesByOneUnderscore) {
  EXPECT_EQ(nameFromFile("a→b"), "a_b");
  EXPECT_EQ(nameFromFile("\xFF"), "_");
}

}  // namespace
}  // namespace quillon::batch
