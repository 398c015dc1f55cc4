#include "geometry/stabbing_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "base/ranges.h"

namespace quillon::geometry {
namespace {

using Span = StabbingTree::Span;

std::vector<Span> randomSpans(int seed) {
  std::mt19937 random(static_cast<unsigned>(seed));
  // Few different numbers, so that many begin or end together.
  std::uniform_int_distribution<int> place(0, 30);
  std::uniform_int_distribution<int> length(0, 6);
  std::vector<Span> spans;
  for (int i = 0; i < 200; ++i) {
    const double low = place(random);
    const double across = place(random);
    spans.push_back({low, low + length(random), {across, across + length(random)}});
  }
  return spans;
}

bool contains(const Span& span, double at, double across) {
  return span.low <= at && at <= span.high && span.across.low <= across &&
         across <= span.across.high;
}

TEST(StabbingTree, FindsWhatContainsANumberInBothDirections) {
  std::size_t found = 0;
  for (int seed = 0; seed < 20; ++seed) {
    const std::vector<Span> spans = randomSpans(seed);
    const StabbingTree tree(spans);
    for (double at = -1.0; at < 38.0; at += 0.5) {
      for (double across = -1.0; across < 38.0; across += 2.5) {
        std::vector<std::size_t> hits;
        tree.find({at, at, {across, across}}, hits);
        base::ranges::sort(hits);
        std::vector<std::size_t> wanted;
        for (std::size_t i = 0; i < spans.size(); ++i) {
          if (contains(spans[i], at, across)) wanted.push_back(i);
        }
        ASSERT_EQ(hits, wanted) << seed << ": " << at << ", " << across;
        found += hits.size();
      }
    }
  }
  EXPECT_GT(found, 10000U);
}

TEST(StabbingTree, AcrossCountsOnlyWhereItIsAskedFor) {
  const StabbingTree tree({{0, 2, {5, 6}}, {1, 3, {7, 8}}});
  std::vector<std::size_t> hits;
  tree.find({1.5, 1.5}, hits);
  EXPECT_EQ(hits.size(), 2U);
}

TEST(StabbingTree, FindsTheNextSpanBelowByNarrowing) {
  for (int seed = 0; seed < 20; ++seed) {
    const std::vector<Span> spans = randomSpans(seed);
    const StabbingTree tree(spans);
    for (double at = 0.0; at < 30.0; at += 1.5) {
      double best = -1.0;
      Span wanted{at, at, {.high = 15.0}};
      tree.visitBackwards(wanted, [&](std::size_t i) {
        best = std::max(best, spans[i].across.low);
        wanted.across.low = best;
      });
      double expected = -1.0;
      for (const Span& span : spans) {
        const bool isBelow = span.low <= at && at <= span.high && span.across.low <= 15.0;
        if (isBelow) expected = std::max(expected, span.across.low);
      }
      EXPECT_EQ(best, expected) << seed << ": " << at;
    }
  }
}

/// The next one below each of many spans above each other is found without looking at all of them.
TEST(StabbingTree, NarrowingLeavesOutWhatIsFarBelow) {
  constexpr int kSpans = 1000;
  std::vector<Span> spans;
  for (int i = 0; i < kSpans; ++i) spans.push_back({0.0, 1.0, {2.0 * i, 2.0 * i + 1.0}});
  const StabbingTree tree(spans);
  int visits = 0;
  for (int i = 1; i < kSpans; ++i) {
    Span wanted{0.5, 0.5, {.high = 2.0 * i - 0.5}};
    tree.visitBackwards(wanted, [&](std::size_t hit) {
      ++visits;
      wanted.across.low = spans[hit].across.high + 0.5;
    });
  }
  EXPECT_EQ(visits, kSpans - 1);
}

}  // namespace
}  // namespace quillon::geometry
