// Widths of polyline segments, for POLYLINE and LWPOLYLINE.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::drawingOf;
using testing::DxfBuilder;
using testing::GroupList;
using testing::joined;
using testing::translate;

constexpr double kPolyWidth = 0.125;

/// Widths of a two-vertex polyline, of its first and of its second vertex, "" for none; whether its
/// segment is an arc.
struct Widths {
  std::string_view own;
  std::string_view first;
  std::string_view second = "9";
  bool arc = false;
};

void addWidth(GroupList& groups, int code, std::string_view width) {
  if (!width.empty()) groups.emplace_back(code, width);
}

DxfBuilder polyline(const Widths& widths) {
  GroupList header = {{8, "0"}};
  addWidth(header, 40, widths.own);
  GroupList first = {{8, "0"}, {10, "1"}, {20, "0"}, {42, widths.arc ? "1" : "0"}};
  addWidth(first, 40, widths.first);
  GroupList second = {{8, "0"}, {10, "5"}, {20, "0"}};
  addWidth(second, 40, widths.second);
  DxfBuilder dxf;
  dxf.entity("POLYLINE", header).entity("VERTEX", first).entity("VERTEX", second);
  dxf.entity("SEQEND", GroupList{});
  return dxf;
}

DxfBuilder lwPolyline(const Widths& widths) {
  GroupList groups;
  addWidth(groups, 43, widths.own);
  groups.insert(groups.end(), {{10, "1"}, {20, "0"}, {42, widths.arc ? "1" : "0"}});
  addWidth(groups, 40, widths.first);
  groups.insert(groups.end(), {{10, "5"}, {20, "0"}});
  addWidth(groups, 40, widths.second);
  return drawingOf("LWPOLYLINE", groups);
}

/// The width of a script's only segment.
std::string widthIn(const std::string& script) {
  EXPECT_EQ(testing::countOf("Layer", script), 1U);
  const std::size_t end = script.find(" (");
  const std::size_t start = script.rfind(' ', end - 1) + 1;
  return script.substr(start, end - start);
}

void expectWidth(const Widths& widths, int mode, std::string_view expected,
                 const Placement& placement = {}) {
  const Settings settings{.poly = mode, .polyWidth = kPolyWidth};
  EXPECT_EQ(widthIn(translate(polyline(widths), placement, settings)), expected) << mode;
  EXPECT_EQ(widthIn(translate(lwPolyline(widths), placement, settings)), expected) << mode;
}

TEST(PolylineWidth, IsThatOfTheVertexWhereASegmentStarts) {
  for (const int mode : {1, 2, -1, 3}) {
    for (const bool arc : {false, true}) {
      expectWidth({.own = "2", .first = "0.5", .second = "9", .arc = arc}, mode, "0.5000000");
      expectWidth({.own = "", .first = "0.5", .second = "9", .arc = arc}, mode, "0.5000000");
    }
  }
}

TEST(PolylineWidth, IsThePolylinesOwnWhenTheVertexHasNone) {
  for (const int mode : {1, 2, -1, 3}) {
    for (const bool arc : {false, true}) {
      expectWidth({.own = "2", .first = "", .second = "9", .arc = arc}, mode, "2.0000000");
      expectWidth({.own = "2", .first = "0.0", .second = "9", .arc = arc}, mode, "2.0000000");
    }
  }
}

TEST(PolylineWidth, IsThatOfTheJobWhenThereIsNoOther) {
  for (const int mode : {1, 2, -1, 3}) {
    for (const bool arc : {false, true}) {
      expectWidth({.own = "", .first = "", .second = "9", .arc = arc}, mode, "0.1250000");
      expectWidth({.own = "0", .first = "0", .second = "9", .arc = arc}, mode, "0.1250000");
    }
  }
}

TEST(PolylineWidth, IsZeroInTheModeWithoutWidth) {
  for (const bool arc : {false, true}) {
    expectWidth({.own = "2", .first = "0.5", .second = "9", .arc = arc}, 0, "0.0000000");
    expectWidth({.own = "", .first = "", .second = "", .arc = arc}, 0, "0.0000000");
  }
}

TEST(PolylineWidth, IsMultipliedOnceByTheLargerScale) {
  for (const bool arc : {false, true}) {
    const Widths widths{.own = "2", .first = "", .second = "", .arc = arc};
    expectWidth(widths, 1, "6.0000000", {.scaleX = 3, .scaleY = 2});
    expectWidth(widths, 1, "6.0000000", {.scaleX = 2, .scaleY = 3});
    expectWidth(widths, 1, "4.0000000", {.scaleX = 2, .scaleY = -3});
    expectWidth({.own = "", .first = "", .second = "", .arc = arc}, 1, "0.5000000",
                {.scaleX = 4, .scaleY = 4});
  }
}

TEST(PolylineWidth, LosesItsSignOnWiresAndKeepsItOnArcs) {
  const Placement mirrored{.scaleX = -1, .scaleY = -1};
  expectWidth({.own = "2", .first = "", .second = ""}, 1, "2.0000000", mirrored);
  expectWidth({.own = "2", .first = "", .second = "", .arc = true}, 1, "-2.0000000", mirrored);
}

TEST(PolylineWidth, OfAPolylineDoesNotComeFromItsEndWidth) {
  DxfBuilder dxf;
  dxf.entity("POLYLINE", {{8, "0"}, {41, "3"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "1"}, {20, "0"}, {41, "4"}});
  dxf.entity("VERTEX", {{8, "0"}, {10, "5"}, {20, "0"}, {41, "5"}});
  EXPECT_EQ(widthIn(translate(dxf, {}, {.poly = 1, .polyWidth = kPolyWidth})), "0.1250000");
}

TEST(PolylineWidth, OfALeaderIsItsOwnOrTheJobs) {
  const GroupList points = {{10, "1"}, {20, "0"}, {10, "5"}, {20, "0"}};
  const Settings settings{.poly = 1, .polyWidth = kPolyWidth};
  EXPECT_EQ(widthIn(translate(drawingOf("LEADER", points), {}, settings)), "0.1250000");
  EXPECT_EQ(widthIn(translate(drawingOf("LEADER", joined({{43, "2"}}, points)), {}, settings)),
            "2.0000000");
}

}  // namespace
}  // namespace quillon::classic
