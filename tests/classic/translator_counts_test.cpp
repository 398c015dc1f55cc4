// What the translator counts.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "classic/translation.h"

namespace quillon::classic {
namespace {

using dxf::EntityKind;
using testing::DxfBuilder;
using testing::GroupList;
using testing::Translation;

/// The eighteen kinds with a counter of their own.
constexpr std::array<std::pair<std::string_view, EntityKind>, 18> kCounted = {
    {{"LINE", EntityKind::Line},
     {"3DLINE", EntityKind::Line3d},
     {"POLYLINE", EntityKind::Polyline},
     {"CIRCLE", EntityKind::Circle},
     {"ARC", EntityKind::Arc},
     {"ELLIPSE", EntityKind::Ellipse},
     {"SPLINE", EntityKind::Spline},
     {"TEXT", EntityKind::Text},
     {"INSERT", EntityKind::Insert},
     {"DIMENSION", EntityKind::Dimension},
     {"POINT", EntityKind::Point},
     {"ATTDEF", EntityKind::Attdef},
     {"ATTRIB", EntityKind::Attrib},
     {"TRACE", EntityKind::Trace},
     {"SOLID", EntityKind::Solid},
     {"3DFACE", EntityKind::Face3d},
     {"LWPOLYLINE", EntityKind::LwPolyline},
     {"SHAPE", EntityKind::Shape}}};

/// The counters of a drawing by kind, except VERTEX and SEQEND, which are never used.
void expectCounts(const DxfBuilder& dxf,
                  std::initializer_list<std::pair<EntityKind, std::uint64_t>> expected) {
  Translation translation(dxf);
  translation.run();
  for (const auto& [name, kind] : kCounted) {
    std::uint64_t count = 0;
    for (const auto& [expectedKind, expectedCount] : expected) {
      if (expectedKind == kind) count = expectedCount;
    }
    EXPECT_EQ(translation.counted(kind), count) << name;
  }
}

TEST(EntityCounts, GrowByOneForEveryEntityOfAKind) {
  for (const auto& [name, kind] : kCounted) {
    DxfBuilder dxf;
    for (int i = 0; i < 3; ++i) dxf.entity(name, {{8, "0"}});
    expectCounts(dxf, {{kind, 3}});
  }
}

TEST(EntityCounts, GrowWhateverTheLayer) {
  for (const auto& [name, kind] : kCounted) {
    DxfBuilder dxf;
    dxf.entity(name, {{8, "NOWHERE"}}).entity(name, {{8, "0"}});
    expectCounts(dxf, {{kind, 2}});
  }
}

TEST(EntityCounts, TakeMtextAsTextAndLeaderAsLightPolyline) {
  DxfBuilder dxf;
  dxf.entity("TEXT", {{8, "0"}}).entity("MTEXT", {{8, "0"}}).entity("MTEXT", {{8, "NOWHERE"}});
  dxf.entity("LEADER", {{8, "0"}}).entity("LWPOLYLINE", {{8, "0"}});
  expectCounts(dxf, {{EntityKind::Text, 3}, {EntityKind::LwPolyline, 2}});
}

TEST(EntityCounts, DoNotTakeVerticesForAnythingElse) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}});
  for (int i = 0; i < 4; ++i) dxf.entity("VERTEX", {{8, "0"}, {10, "1"}, {20, "2"}});
  dxf.entity("SEQEND", GroupList{});
  expectCounts(dxf, {{EntityKind::Polyline, 1}});
}

TEST(EntityCounts, TakeTheEntitiesOfABlockAsOftenAsItIsExpanded) {
  DxfBuilder dxf;
  dxf.beginBlock("INNER").entity("CIRCLE", {{8, "0"}}).entity("SHAPE", {{8, "0"}}).endBlock();
  dxf.beginBlock("OUTER").entity("LINE", {{8, "0"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "INNER"}}).entity("INSERT", {{8, "0"}, {2, "INNER"}});
  dxf.endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "OUTER"}}).entity("INSERT", {{8, "0"}, {2, "OUTER"}});
  dxf.entity("DIMENSION", {{8, "0"}, {2, "INNER"}});
  expectCounts(dxf, {{EntityKind::Insert, 6},
                     {EntityKind::Line, 2},
                     {EntityKind::Circle, 5},
                     {EntityKind::Shape, 5},
                     {EntityKind::Dimension, 1}});
}

TEST(EntityCounts, DoNotTakeTheEntitiesOfABlockThatIsNotExpanded) {
  DxfBuilder dxf;
  dxf.beginBlock("B").entity("CIRCLE", {{8, "0"}}).endBlock();
  dxf.entity("INSERT", {{8, "NOWHERE"}, {2, "B"}}).entity("INSERT", {{8, "0"}, {2, "NONE"}});
  expectCounts(dxf, {{EntityKind::Insert, 2}});
}

TEST(EntityCounts, TakeAnEntityOnceWhateverItBecomes) {
  DxfBuilder dxf;
  dxf.entity("ARC", {{8, "0"}, {40, "1"}, {50, "30"}, {51, "30"}});
  dxf.entity("ELLIPSE", {{8, "0"}, {11, "1"}, {40, "1"}, {42, "6"}});
  dxf.entity("SPLINE", {{8, "0"}, {10, "1"}, {20, "1"}, {10, "2"}, {20, "2"}});
  expectCounts(dxf, {{EntityKind::Arc, 1}, {EntityKind::Ellipse, 1}, {EntityKind::Spline, 1}});
}

TEST(EntityCounts, AreEmptyAtFirst) {
  Translation translation((DxfBuilder()));
  for (const std::uint64_t count : translation.translator.counts()) EXPECT_EQ(count, 0U);
}

}  // namespace
}  // namespace quillon::classic
