#include "emit/number_format.h"

#include <gtest/gtest.h>

namespace quillon::emit {
namespace {

TEST(FormatNumber, WritesSevenDecimals) {
  EXPECT_EQ(formatNumber(2.5), "2.5000000");
  EXPECT_EQ(formatNumber(-0.00000004), "-0.0000000");
}

}  // namespace
}  // namespace quillon::emit
