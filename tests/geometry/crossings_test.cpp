#include "geometry/crossings.h"

#include <gtest/gtest.h>

#include "base/ranges.h"
#include "geometry/area.h"
#include "geometry/path_samples.h"
#include "geometry/region_area.h"
#include "geometry/slits.h"

namespace quillon::geometry {
namespace {

using testing::areaOf;

double areaOf(const CrossingFaces& faces) {
  double area = 0.0;
  for (const Region& face : faces.faces) area += areaOf(face);
  return area;
}

TEST(FacesOf, CutsABowTieIntoTwoTriangles) {
  const CrossingFaces faces =
      facesOf(std::vector<Path>{closedPath({{{0, 0}}, {{4, 4}}, {{4, 0}}, {{0, 4}}})});
  EXPECT_TRUE(faces.complete);
  ASSERT_EQ(faces.faces.size(), 2U);
  for (const Region& face : faces.faces) {
    EXPECT_EQ(face.outer.vertices.size(), 3U);
    EXPECT_NEAR(signedArea(face.outer), 4.0, 1e-9);
  }
}

TEST(FacesOf, LeavesOutWhatTwoLoopsShare) {
  const CrossingFaces faces =
      facesOf(std::vector<Path>{rectangle(0, 0, 2, 2), rectangle(1, 1, 3, 3)});
  ASSERT_EQ(faces.faces.size(), 2U);
  EXPECT_NEAR(areaOf(faces), 6.0, 1e-9);
  EXPECT_EQ(faces.faces[0].outer.vertices.size(), 6U);
}

TEST(FacesOf, JoinsLoopsThatShareAnEdge) {
  const CrossingFaces faces =
      facesOf(std::vector<Path>{rectangle(0, 0, 2, 2), rectangle(2, 1, 4, 3)});
  ASSERT_EQ(faces.faces.size(), 1U);
  EXPECT_NEAR(areaOf(faces), 8.0, 1e-9);
  EXPECT_FALSE(crossesItself(faces.faces[0].outer));
}

TEST(FacesOf, FindsNothingInEqualLoops) {
  const std::vector<Path> loops = {circlePath({3, 4}, 2), circlePath({3, 4}, 2)};
  EXPECT_TRUE(facesOf(loops).faces.empty());
  EXPECT_TRUE(facesOf(loops).complete);
}

TEST(FacesOf, HasAHoleInAPentagram) {
  Path star{.vertices = {}, .closed = true};
  for (int i = 0; i < 5; ++i) {
    const double angle = 4.0 * std::numbers::pi * i / 5;
    star.vertices.push_back({{std::cos(angle), std::sin(angle)}});
  }
  EXPECT_EQ(facesOf(std::vector<Path>{star}).faces.size(), 5U);
}

TEST(FacesOf, PutsHolesAndIslandsIntoTheirFaces) {
  const CrossingFaces faces = facesOf(
      std::vector<Path>{rectangle(4, 4, 6, 6), rectangle(0, 0, 10, 10), rectangle(3, 3, 7, 7),
                        rectangle(20, 0, 21, 1), rectangle(1, 1, 2, 2)});
  ASSERT_EQ(faces.faces.size(), 3U);
  EXPECT_NEAR(areaOf(faces), 100 - 16 + 4 + 1 - 1, 1e-9);
  const auto outer = base::ranges::max_element(faces.faces, {},
                                               [](const Region& r) { return signedArea(r.outer); });
  EXPECT_EQ(outer->holes.size(), 2U);
}

TEST(FacesOf, TakesTheCornerOffWhereAFaceTouchesItself) {
  // The hole touches the outline in a corner of its own, inside of an edge and in a corner.
  for (const Path& hole :
       {closedPath({{{0, 5}}, {{5, 4}}, {{5, 6}}}), closedPath({{{0, 0}}, {{5, 4}}, {{4, 5}}})}) {
    const CrossingFaces faces = facesOf(std::vector<Path>{rectangle(0, 0, 10, 10), hole});
    ASSERT_EQ(faces.faces.size(), 1U);
    EXPECT_FALSE(crossesItself(faces.faces[0].outer));
    EXPECT_TRUE(faces.faces[0].holes.empty());
    EXPECT_NEAR(areaOf(faces), 100.0 - std::fabs(signedArea(hole)), 1e-5);
  }
}

TEST(FacesOf, FlattensArcs) {
  const CrossingFaces faces = facesOf(
      std::vector<Path>{circlePath({0, 0}, 10), circlePath({10, 0}, 10)}, {.tolerance = 1e-4});
  ASSERT_EQ(faces.faces.size(), 2U);
  const double lens = 100 * (2 * std::numbers::pi / 3 - std::sqrt(3.0) / 2);
  EXPECT_NEAR(areaOf(faces), 2 * (100 * std::numbers::pi - lens), 0.02);
}

TEST(FacesOf, AgreesWithTheEvenOddRuleForRandomLoops) {
  std::mt19937 random(17);
  std::uniform_real_distribution<double> coordinate(0, 100);
  std::uniform_real_distribution<double> curve(-200, 200);
  for (int round = 0; round < 40; ++round) {
    std::vector<Path> loops(1 + static_cast<std::size_t>(round) % 4,
                            Path{.vertices = {}, .closed = true});
    for (Path& loop : loops) {
      for (int k = 0; k < 3 + round % 17; ++k) {
        // Some in steps of ten, for points and lines that meet exactly.
        Point p{coordinate(random), coordinate(random)};
        if (round % 2 == 0) p = {std::round(p.x / 10) * 10, std::round(p.y / 10) * 10};
        loop.vertices.push_back({p, round % 3 == 0 ? curve(random) : 0.0});
      }
    }
    const CrossingFaces faces = facesOf(loops);
    ASSERT_TRUE(faces.complete);
    std::vector<Path> rings;
    for (const Region& face : faces.faces) {
      EXPECT_FALSE(crossesItself(face.outer)) << round;
      rings.push_back(face.outer);
      rings.insert(rings.end(), face.holes.begin(), face.holes.end());
      for (const Path& outline : withoutHoles(face)) EXPECT_FALSE(crossesItself(outline)) << round;
    }
    const PointLocator wanted(loops);
    const PointLocator found(rings);
    int differ = 0;
    for (int i = 0; i < 400; ++i) {
      const Point p{coordinate(random), coordinate(random)};
      if (wanted.locate(p) != found.locate(p)) ++differ;
    }
    EXPECT_LE(differ, 1) << round;  // on a chord beside its arc
  }
}

TEST(FacesOf, EndsForManyCrossings) {
  std::mt19937 random(19);
  std::uniform_real_distribution<double> coordinate(0, 1000);
  Path scribble{.vertices = {}, .closed = true};
  for (int i = 0; i < 1200; ++i) {
    scribble.vertices.push_back({{coordinate(random), coordinate(random)}});
  }
  const CrossingFaces faces = facesOf(std::vector<Path>{scribble});
  EXPECT_TRUE(faces.complete);
  EXPECT_GT(faces.faces.size(), 50000U);
  for (int i = 0; i < 20000; ++i) {
    scribble.vertices.push_back({{coordinate(random), coordinate(random)}});
  }
  EXPECT_FALSE(facesOf(std::vector<Path>{scribble}).complete);
}

TEST(FacesOf, SurvivesHostilePaths) {
  for (const Path& one : hostilePaths()) {
    for (const Path& other : {rectangle(-1, -1, 3, 3), one, hostilePaths()[15]}) {
      const CrossingFaces faces = facesOf(std::vector<Path>{one, other});
      EXPECT_EQ(faces.complete, isUsable(one) && isUsable(other));
    }
    facesOf(std::vector<Path>{one}, {.tolerance = 0.0, .gap = 0.0});
    facesOf(std::vector<Path>{one}, {.tolerance = std::nan(""), .gap = std::nan("")});
  }
}

}  // namespace
}  // namespace quillon::geometry
