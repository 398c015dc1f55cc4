#include "dxf/number_text.h"

#include <gtest/gtest.h>

namespace quillon::dxf {
namespace {

TEST(NumberText, ReadsAPlainNumber) { EXPECT_EQ(numberValue(" 12.5"), 12.5); }

}  // namespace
}  // namespace quillon::dxf
