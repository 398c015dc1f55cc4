#include "convert/driver.h"

#include <gtest/gtest.h>

#include "support/conversion.h"
#include "support/dxf_builder.h"

namespace quillon::convert {
namespace {

using testing::Conversion;
using testing::DxfBuilder;

TEST(ConvertDxf, WritesFrameAndLine) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
  const Conversion done(dxf.text());
  EXPECT_EQ(done.script,
            "Set Wire_Bend 2;\r\nChange Pour Solid;\r\nGrid mil;\r\nSet Optimizing off;\r\n"
            "Set Undo_Log off;\r\nLayer  20 ;\r\n"
            "Wire 0.0000000 (R0.0000000 0.0000000) (R1.0000000 2.0000000);\r\n"
            "Set Undo_Log on;\r\nWindow Fit;\r\n");
}

}  // namespace
}  // namespace quillon::convert
