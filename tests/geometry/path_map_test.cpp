#include "geometry/path_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstddef>
#include <random>
#include <vector>

#include "geometry/dense_path.h"
#include "geometry/ellipse.h"
#include "geometry/fine_settings.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

using testing::DensePath;
using testing::densePoints;
using testing::kFine;
using testing::pointOf;

const Path kSlot{
    {{{0.0, 0.0}, 0.0}, {{20.0, 0.0}, 180.0}, {{20.0, 10.0}, 0.0}, {{0.0, 10.0}, 180.0}}, true};

TEST(MapPath, KeepsArcsWhereTheyStayArcs) {
  Path expected = kSlot;
  transform(expected, Affine::scaling(-2.0, 2.0), kFine.resolution);
  EXPECT_EQ(mapPath(kSlot, Affine::scaling(-2.0, 2.0), kFine).path, expected);
}

TEST(MapPath, KeepsVerticesAndLinesWhereArcsBecomeEllipses) {
  const Affine map{2.0, 0.3, 0.1, 0.7, 5.0, 6.0};
  const CurvePath result = mapPath(kSlot, map, kFine);
  EXPECT_EQ(result.report, CurveReport{});
  EXPECT_TRUE(result.path.closed);
  const std::vector<Vertex>& vertices = result.path.vertices;
  ASSERT_GT(vertices.size(), 20u);
  EXPECT_EQ(vertices[0], (Vertex{map({0.0, 0.0}), 0.0}));
  EXPECT_EQ(vertices[1].at, map({20.0, 0.0}));
  EXPECT_NE(vertices[1].curve, 0.0);
  std::size_t found = 0;
  for (std::size_t i = 2; i < vertices.size(); ++i) {
    if (vertices[i].at == map({20.0, 10.0})) {
      EXPECT_EQ(vertices[i].curve, 0.0);
      EXPECT_EQ(vertices[i + 1].at, map({0.0, 10.0}));
      ++found;
    }
  }
  EXPECT_EQ(found, 1u);
}

TEST(MapPath, KeepsWithinTheToleranceOfTheMappedArcs) {
  std::mt19937 random(15);
  std::uniform_real_distribution<double> number(-2.0, 2.0);
  for (int i = 0; i < 8; ++i) {
    const Affine map{number(random), number(random), number(random),
                     number(random), number(random), number(random)};
    const Path path{{{{0.0, 0.0}, 100.0 * number(random)},
                     {{9.0, 3.0}, 170.0 * number(random)},
                     {{5.0, 20.0}, 0.0}},
                    false};
    const CurvePath result = mapPath(path, map, kFine);
    EXPECT_EQ(result.report, CurveReport{});
    const DensePath dense(result.path);
    for (std::size_t k = 0; k < arcCount(path); ++k) {
      const Arc arc = arcAt(path, k);
      for (const auto& point : densePoints(arc.start, arc.end, arc.curve, 500)) {
        EXPECT_LT(dense.distance(map(pointOf(point))), kFine.tolerance);
      }
    }
  }
}

TEST(MapPath, DrawsCirclesAsEllipses) {
  const Path circlePath = ellipsePath(circle({0.0, 0.0}, 50.0), kFine).path;
  const CurvePath result = mapPath(circlePath, Affine::scaling(1.0, 0.5), kFine);
  EXPECT_LE(result.path.vertices.size(), 112u);
  EXPECT_NEAR(bounds(result.path).high.y, 25.0, 1e-9);
  EXPECT_TRUE(result.path.closed);
}

TEST(MapPath, FlattensOntoALine) {
  const CurvePath result = mapPath(kSlot, Affine::scaling(1.0, 0.0), kFine);
  EXPECT_FALSE(result.report.unusable);
  EXPECT_NEAR(bounds(result.path).low.x, -5.0, 1e-3);
  EXPECT_NEAR(bounds(result.path).high.x, 25.0, 1e-3);
  EXPECT_EQ(bounds(result.path).high.y, 0.0);
}

TEST(MapPath, RefusesHostileNumbers) {
  const double nan = std::nan("");
  EXPECT_TRUE(mapPath(kSlot, Affine::scaling(nan, 1.0), kFine).report.unusable);
  EXPECT_TRUE(mapPath(kSlot, Affine::scaling(1e300, 1.0), kFine).report.unusable);
  const Path wild{{{{0.0, 0.0}, nan}, {{1.0, 1.0}, 0.0}}, false};
  EXPECT_TRUE(mapPath(wild, Affine{}, kFine).report.unusable);
  EXPECT_TRUE(mapPath(wild, Affine{}, kFine).path.vertices.empty());
  EXPECT_EQ(mapPath(Path{}, Affine::scaling(1.0, 2.0), kFine).path, Path{});
}

TEST(MapPath, SharesTheLimitAmongItsArcs) {
  Path path{{}, false};
  for (int i = 0; i < 50; ++i) path.vertices.push_back({{i * 1.0, 0.0}, 90.0});
  const CurveSettings settings{.tolerance = 1e-7, .resolution = 1e-9, .maxVertices = 200};
  const CurvePath result = mapPath(path, Affine::scaling(1.0, 2.0), settings);
  EXPECT_TRUE(result.report.limitReached);
  EXPECT_LT(result.path.vertices.size(), 300u);
  EXPECT_EQ(result.path.vertices.back().at, (Point{49.0, 0.0}));
}

}  // namespace
}  // namespace quillon::geometry
