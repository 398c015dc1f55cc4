#include "convert/job.h"

#include <gtest/gtest.h>

namespace quillon::convert {
namespace {

TEST(Job, HasTheDefaultsOfAProgramWithoutSettings) {
  const ConversionJob job;
  EXPECT_EQ(job.dxfFile, "");
  EXPECT_EQ(job.scriptFile, "");
  EXPECT_EQ(job.drawingName, "");
  EXPECT_EQ(job.layerFile, "");
  EXPECT_EQ(job.targetKind, kBoard);
  EXPECT_EQ(job.defaultLayer, "20 Dimension (B)");
  EXPECT_EQ(job.version, 1);
  EXPECT_EQ(job.unit, base::Unit::Mil);
  EXPECT_EQ(job.scale, 1.0);
  EXPECT_EQ(job.scaleText, "1.000");
  EXPECT_FALSE(job.dotted);
  EXPECT_FALSE(job.ellipses);
  EXPECT_EQ(job.poly, 2);
  EXPECT_EQ(job.blocks, kDrawBlocks);
  EXPECT_FALSE(job.arcToLine);
  EXPECT_EQ(job.offsetX, 0.0);
  EXPECT_EQ(job.offsetY, 0.0);
  EXPECT_EQ(job.polyWidth, 0.0);
  EXPECT_FALSE(job.overwriteScript);
}

TEST(Job, NamesTheEntryOfTheVersionList) {
  EXPECT_EQ(versionText(0), "3.5");
  EXPECT_EQ(versionText(1), "4.x/5.x");
}

TEST(Job, NamesTheEntryOfTheUnitList) {
  EXPECT_EQ(unitText(base::Unit::Mic), "mic");
  EXPECT_EQ(unitText(base::Unit::Mm), "mm");
  EXPECT_EQ(unitText(base::Unit::Mil), "mil");
  EXPECT_EQ(unitText(base::Unit::Inch), "inch");
}

TEST(Job, AnIndexOutsideItsListHasAnEmptyText) {
  EXPECT_EQ(versionText(-1), "");
  EXPECT_EQ(versionText(2), "6 and later, Fusion");
  EXPECT_EQ(versionText(3), "");
  EXPECT_EQ(unitText(base::Unit::None), "");
}

}  // namespace
}  // namespace quillon::convert
