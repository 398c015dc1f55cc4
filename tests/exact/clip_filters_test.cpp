// Insertions that a CAD program shows only in part.
#include <gtest/gtest.h>

#include <string>

#include "exact_drawing.h"
#include "support/timing.h"

namespace quillon::testing {
namespace {

/// An INSERT of B with the extension dictionary 1F; a group 360 of its own follows.
DxfBuilder insertWithDictionary() {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock();
  return dxf.entity("INSERT", {{5, "1E"},
                               {102, "{ACAD_XDICTIONARY"},
                               {360, "1F"},
                               {102, "}"},
                               {8, "A"},
                               {2, "B"},
                               {10, "5"},
                               {20, "7"},
                               {360, "FF"}});
}

std::string object(const std::string& kind, const std::string& handle,
                   const std::string& groups = {}) {
  return "  0\n" + kind + "\n  5\n" + handle + "\n" + groups;
}
std::string dictionary(const std::string& handle, const std::string& entry,
                       const std::string& entryHandle) {
  return object("DICTIONARY", handle,
                "330\n1E\n100\nAcDbDictionary\n280\n1\n  3\nOTHER\n360\n99\n  3\n" + entry +
                    "\n360\n" + entryHandle + "\n");
}
const std::string kFilterDictionary = dictionary("1F", "ACAD_FILTER", "20");
const std::string kSpatialDictionary = dictionary("20", "SPATIAL", "21");
const std::string kFilter = object("SPATIAL_FILTER", "21", "330\n20\n 70\n2\n");

/// The losses of a drawing with these objects.
std::string lossesWith(const std::string& objects, const DxfBuilder& dxf = insertWithDictionary()) {
  std::string text = dxf.text();
  const std::string start = "OBJECTS\n";
  text.insert(text.find(start) + start.size(), objects);
  const ExactDrawing drawing(text);
  EXPECT_EQ(drawing.shapes(), "7 wire 0 (5 7) (6 7)\n");
  return drawing.losses();
}

TEST(ExactClipping, AClippedInsertionIsDrawnWholeAndNamed) {
  const std::string named = "clipped-insert INSERT 1 line 39\n";
  EXPECT_EQ(lossesWith(kFilterDictionary + kSpatialDictionary + kFilter), named);
  EXPECT_EQ(lossesWith(kFilter + kSpatialDictionary + kFilterDictionary), named);
}

TEST(ExactClipping, HandlesAreNumbersInLettersOfEitherCase) {
  EXPECT_EQ(lossesWith(dictionary("1f", "ACAD_FILTER", "2a") + dictionary("2A", "SPATIAL", "21")),
            "clipped-insert INSERT 1 line 39\n");
}

TEST(ExactClipping, OtherExtensionDictionariesMeanNothing) {
  EXPECT_EQ(lossesWith({}), "");
  EXPECT_EQ(lossesWith(dictionary("1F", "ACAD_FILTER", "20")), "");
  EXPECT_EQ(lossesWith(dictionary("1F", "ACAD_SORTENTS", "20") + kSpatialDictionary), "");
  EXPECT_EQ(lossesWith(dictionary("FF", "ACAD_FILTER", "20") + kSpatialDictionary), "");
  EXPECT_EQ(lossesWith(object("XRECORD", "1F", "  3\nACAD_FILTER\n360\n20\n") + kSpatialDictionary),
            "");
}

TEST(ExactClipping, WithoutExtensionDictionaryNoObjectIsRead) {
  DxfBuilder dxf;
  dxf.beginBlock("B").endBlock().entity("INSERT", {{8, "A"}, {2, "B"}});
  dxf::Drawing drawing;
  drawing.everyKind = true;
  TestMonitor monitor;
  dxf::TextSource source(dxf.text());
  dxf::LineReader reader(source, monitor);
  dxf::readDefinitions(drawing, reader);
  rules::CancelPoll poll(monitor);
  LayersOfTest layers;
  ShapeLog log;
  exact::LossList losses;
  const exact::Options options;
  exact::Translator translator(options, drawing, layers, log, losses, poll, {});
  dxf::readContents(drawing, reader, translator, true);
  EXPECT_EQ(translator.objectSink(), nullptr);
}

TEST(ExactClipping, ASectionThatBreaksOffIsReadUpToItsEnd) {
  std::string text = insertWithDictionary().text();
  const std::string start = "OBJECTS\n";
  text.erase(text.find(start) + start.size());
  const std::string objects = kFilterDictionary + kSpatialDictionary;
  EXPECT_EQ(ExactDrawing(text + objects + "  0\nXRECORD\n  5\n30\n").losses(),
            "clipped-insert INSERT 1 line 39\n");
  EXPECT_EQ(ExactDrawing(text + kFilterDictionary + "  0\n").losses(), "");
  EXPECT_EQ(ExactDrawing(text + "nonsense\n-1\n99999999\nx\n" + objects + "  0\nENDSEC\n").losses(),
            "clipped-insert INSERT 1 line 39\n");
}

TEST(ExactClipping, InsertionsWithinBlocksCountEachTimeTheyAreDrawn) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "A"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock()
      .beginBlock("OUTER")
      .entity("INSERT", {{102, "{ACAD_XDICTIONARY"}, {360, "1F"}, {102, "}"}, {8, "A"}, {2, "B"}})
      .endBlock()
      .entity("INSERT", {{8, "A"}, {2, "OUTER"}, {70, "3"}, {44, "10"}});
  std::string text = dxf.text();
  const std::string start = "OBJECTS\n";
  text.insert(text.find(start) + start.size(), kFilterDictionary + kSpatialDictionary);
  const ExactDrawing drawing(text);
  EXPECT_EQ(drawing.lossList().countOf(exact::LossRule::ClippedInsert), 3U);
}

TEST(ExactClipping, ManyDictionariesTakeLinearTime) {
  std::string objects;
  for (int i = 0; i < 50000; ++i) {
    objects += dictionary(std::to_string(i), "ACAD_FILTER", std::to_string(i + 1));
  }
  const double seconds = leastSeconds([&] { EXPECT_EQ(lossesWith(objects), ""); });
  EXPECT_LT(seconds, 1.0 * patience());
}

}  // namespace
}  // namespace quillon::testing
