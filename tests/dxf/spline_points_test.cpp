#include "dxf/spline_points.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::Groups;
using testing::ReadDrawing;
using testing::readFault;
using Texts = std::vector<std::string>;

/// The control points of a spline as "x y".
Texts pointsOf(Groups groups) {
  DxfBuilder dxf;
  dxf.entity("SPLINE", groups);
  const ReadDrawing read(dxf.text());
  Texts points;
  for (const SplinePoint& point : readControlPoints(read.reader.groups(read.entity(0)))) {
    points.push_back(std::string(point.x) + ' ' + std::string(point.y));
  }
  return points;
}

TEST(ReadControlPoints, KeepsThemInFileOrderAndNothingElse) {
  EXPECT_EQ(pointsOf({{70, "8"},
                      {71, "3"},
                      {40, "0.0"},
                      {40, "0.50"},
                      {41, "1"},
                      {10, "0"},
                      {20, "1.50"},
                      {30, "9"},
                      {10, "2"},
                      {20, "3"}}),
            (Texts{"0 1.50", "2 3"}));
}

TEST(ReadControlPoints, NeedsXAndYForAControlPoint) {
  EXPECT_EQ(pointsOf({{20, "1"},
                      {10, "2"},
                      {10, "3"},
                      {20, "4"},
                      {10, ""},
                      {20, "5"},
                      {10, "6"},
                      {20, ""},
                      {10, "7"}}),
            Texts{"3 4"});
}

TEST(ReadControlPoints, MakesAPointOfEveryYAfterAnX) {
  EXPECT_EQ(pointsOf({{10, "1"}, {20, "2"}, {20, "3"}}), (Texts{"1 2", "1 3"}));
}

TEST(ReadControlPoints, KeepsNoFitPoints) {
  // Tangents before fit points, as in real drawings.
  const Texts points = pointsOf({{12, "1"},
                                 {22, "0"},
                                 {13, "0"},
                                 {23, "1"},
                                 {10, "0"},
                                 {20, "0"},
                                 {11, "5"},
                                 {21, "6"},
                                 {11, "7"},
                                 {21, "8"}});
  EXPECT_EQ(points, Texts{"0 0"});
}

struct FitCase {
  Groups groups;
  bool raises;
};

TEST(FitPointRule, RaisesAnErrorForAGroup12AfterAPendingX) {
  for (const auto& [groups, raises] : {FitCase{{{11, "1"}, {12, "2"}}, true},
                                       {{{11, "1"}, {21, "5"}, {40, "0"}, {12, "2"}}, true},
                                       {{{41, "1"}, {12, "2"}}, true},
                                       {{{11, "1"}, {20, "3"}, {12, "2"}}, true},
                                       {{{12, "2"}, {11, "1"}}, false},
                                       {{{12, "2"}}, false},
                                       {{{11, "1"}, {12, ""}}, false},
                                       {{{11, ""}, {12, "2"}}, false},
                                       {{{11, "1"}, {10, "0"}, {12, "2"}}, false},
                                       {{{11, "1"}, {41, ""}, {12, "2"}}, false},
                                       {{{11, "1"}, {22, "2"}, {13, "3"}}, false}}) {
    DxfBuilder entities;
    entities.entity("SPLINE", groups).entity("POINT", {{8, "0"}});
    EXPECT_EQ(ReadDrawing(entities.text()).entities().size(), raises ? 1U : 2U);

    DxfBuilder blocks;
    blocks.beginBlock("A").entity("SPLINE", groups).endBlock();
    const auto fault = readFault(blocks.text());
    ASSERT_EQ(fault.has_value(), raises);
    if (!raises) continue;
    EXPECT_EQ(fault->fault, base::Fault::TooManyPoints);
  }
}

TEST(FitPointRule, HoldsForSplinesOnly) {
  DxfBuilder dxf;
  for (const std::string_view kind : {"SOLID", "TRACE", "3DFACE", "DIMENSION", "LINE"}) {
    dxf.entity(kind, {{11, "1"}, {12, "2"}});
  }
  EXPECT_EQ(ReadDrawing(dxf.text()).entities().size(), 5U);
}

TEST(FitPointRule, RestartsWithEverySpline) {
  DxfBuilder dxf;
  dxf.entity("SPLINE", {{11, "1"}, {21, "2"}}).entity("SPLINE", {{12, "3"}, {22, "4"}});
  EXPECT_EQ(ReadDrawing(dxf.text()).entities().size(), 2U);
}

}  // namespace
}  // namespace quillon::dxf
