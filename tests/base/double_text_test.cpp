#include "base/double_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <string>

namespace quillon::base {
namespace {

std::string fixed(double value, int decimals) {
  std::array<char, 400> room{};
  return {room.data(), putFixed(value, decimals, room.data(), room.data() + room.size())};
}

std::string shortText(double value, int digits) {
  std::array<char, 400> room{};
  return {room.data(), putShort(value, digits, room.data(), room.data() + room.size())};
}

double valueOf(const std::string& digits, bool isLarge = false) {
  return valueOfDigits(digits.data(), digits.data() + digits.size(), isLarge);
}

TEST(DoubleText, RoundsDecimalsByTheExactValue) {
  EXPECT_EQ(fixed(0.125, 2), "0.12");
  EXPECT_EQ(fixed(2.675, 2), "2.67");
  EXPECT_EQ(fixed(-1e22, 1), "-10000000000000000000000.0");
  EXPECT_EQ(fixed(0.5, 0), "0");
}

TEST(DoubleText, LeavesOutWhatIsNotNeeded) {
  EXPECT_EQ(shortText(0.1, 15), "0.1");
  EXPECT_EQ(shortText(1e15, 15), "1e+15");
  EXPECT_EQ(shortText(123456789012345.0, 15), "123456789012345");
  EXPECT_EQ(shortText(1.5e-7, 15), "1.5e-07");
}

TEST(DoubleText, TellsThatThereIsNoRoom) {
  std::array<char, 4> room{'?', '?', '?', '?'};
  EXPECT_EQ(putFixed(12.25, 2, room.data(), room.data() + room.size()), nullptr);
  EXPECT_EQ(putShort(0.123, 15, room.data(), room.data() + room.size()), nullptr);
  EXPECT_EQ(putFixed(1.25, 2, room.data(), room.data() + room.size()), room.data() + 4);
  EXPECT_EQ(std::string(room.data(), 4), "1.25");
}

TEST(DoubleText, ReadsNumbersOfAnyLength) {
  EXPECT_EQ(valueOf("0.1"), 0.1);
  EXPECT_EQ(valueOf("1" + std::string(400, '0') + "e-400"), 1.0);
  EXPECT_EQ(valueOf("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(valueOf("1e999", true), std::numeric_limits<double>::infinity());
  EXPECT_EQ(valueOf("1e-999"), 0.0);
}

}  // namespace
}  // namespace quillon::base
