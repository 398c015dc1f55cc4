// Drawings made to break a converter: each gives a script of known lines, or a message and no
// script.
#include <chrono>

#include "convert/driver_fixture.h"
#include "convert/script_frame.h"
#include "support/script_grammar.h"
#include "support/timing.h"

namespace quillon::convert {
namespace {

using testing::DxfBuilder;

class HostileTest : public DriverTest {
 protected:
  HostileTest() {
    job.overwriteScript = true;
    job.ellipses = true;
    surroundings.limits.lines = 3000;
    surroundings.keepPartial = true;
  }

  /// Converts with every combination of the options that select code paths. Returns the number of
  /// conversions that produced a script.
  int convertInAllWays(const DxfBuilder& dxf) {
    draw(dxf);
    int scripts = 0;
    for (const bool dotted : {false, true}) {
      for (const bool arcToLine : {false, true}) {
        for (const int poly : {0, 1, 2}) {
          for (const int blocks : {kDrawBlocks, kAllBlocksAsParts}) {
            job.dotted = dotted;
            job.arcToLine = arcToLine;
            job.poly = poly;
            job.blocks = blocks;
            job.drawingName = "x";
            scripts += convertOnce() ? 1 : 0;
          }
        }
      }
    }
    return scripts;
  }
  static constexpr int kWays = 24;

  bool convertOnce() {
    std::filesystem::remove(job.scriptFile);
    host.messages.clear();
    if (convert() == Outcome::Ended) {
      EXPECT_EQ(host.messages.size(), 1U);
      EXPECT_EQ(folder.entries(), 1U);
      return false;
    }
    const ScriptFrame frame = parseFrame(defaultFrameText());
    const testing::ScriptFacts facts =
        testing::checkScript(script(), {true, frame.startBlock, frame.endBlock});
    EXPECT_EQ(facts.fault, "");
    EXPECT_EQ(result.commandCount, facts.lines + facts.namedPolygons);
    return true;
  }
  std::string detail() const { return host.messages.empty() ? "" : host.messages[0].detail; }
};

constexpr const char* kNotFinite =
    "A coordinate or size is not a finite number. Please correct the entity in the drawing or "
    "check the scale factor.";

TEST_F(HostileTest, BlocksThatContainEachOtherAreDrawnOnce) {
  DxfBuilder dxf;
  dxf.beginBlock("A").entity("POINT", {{8, "0"}, {10, "1"}, {20, "1"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}}).endBlock();
  dxf.beginBlock("B").entity("POINT", {{8, "0"}, {10, "2"}, {20, "2"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}}).entity("INSERT", {{8, "0"}, {2, "B"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}});
  EXPECT_EQ(convertInAllWays(dxf), kWays);
  job.blocks = kDrawBlocks;
  convertOnce();
  EXPECT_EQ(result.counts[static_cast<std::size_t>(dxf::EntityKind::Point)], 2U);
}

TEST_F(HostileTest, LineTypesThatNeverAdvanceEndTheirLines) {
  for (const auto& lengths : {std::initializer_list<std::string_view>{"0"},
                              {"0", "0"},
                              {"1e-400", "-1e-400"},
                              {"nan"},
                              {"-0"},
                              {""}}) {
    DxfBuilder dxf;
    dxf.header("$LTSCALE", 40, "1");
    dxf.dashes("D", "1", lengths);
    dxf.entity("LINE", {{8, "0"}, {6, "D"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
    dxf.entity("CIRCLE", {{8, "0"}, {6, "D"}, {10, "0"}, {20, "0"}, {40, "1"}});
    dxf.entity("ARC", {{8, "0"}, {6, "D"}, {10, "0"}, {20, "0"}, {40, "1"}, {50, "0"}, {51, "9"}});
    surroundings.limits = {};
    EXPECT_EQ(convertInAllWays(dxf), kWays);
    EXPECT_LT(result.commandCount, 60U);
  }
}

TEST_F(HostileTest, DashesABillionTimesShorterThanTheirLineCanBeCancelled) {
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "1");
  dxf.dashes("DASHES", "1", {"1e-9", "-1e-9"}).dashes("GAPS", "1", {"-1e-9", "-1e-9"});
  for (const std::string_view lineType : {"DASHES", "GAPS"}) {
    DxfBuilder drawing = dxf;
    drawing.entity("LINE", {{8, "0"}, {6, lineType}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
    drawing.entity("CIRCLE", {{8, "0"}, {6, lineType}, {10, "0"}, {20, "0"}, {40, "1"}});
    draw(drawing);
    job.dotted = true;
    surroundings.limits = {};
    int polls = 0;
    host.cancelWhen = [&polls] { return ++polls > 2000; };
    EXPECT_TRUE(convertOnce());
    EXPECT_EQ(result.outcome, Outcome::Cancelled) << lineType;
    EXPECT_LT(polls, 2100);
  }
}

/// Unusual numeric texts, in every field of every entity.
class HostileNumberTest : public HostileTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(HostileNumberTest, GivesAScriptOrAMessage) {
  const std::string_view value = GetParam();
  for (const std::string_view kind :
       {"LINE", "3DLINE", "ARC", "CIRCLE", "ELLIPSE", "SPLINE", "LWPOLYLINE", "LEADER", "POINT",
        "SOLID", "TRACE", "3DFACE", "TEXT", "MTEXT", "ATTRIB", "ATTDEF", "INSERT", "DIMENSION"}) {
    constexpr std::array<int, 18> kCodes = {10, 20, 11, 21, 12, 22, 13,  23,  40,
                                            41, 42, 43, 50, 51, 70, 210, 220, 230};
    for (const int code : kCodes) {
      if (kind == "SPLINE" && (code == 12 || code == 22)) continue;
      DxfBuilder dxf;
      dxf.header("$LTSCALE", 40, "1");
      dxf.dashes("D", "1", {"0.25", "-0.25"});
      dxf.beginBlock("A").entity("CIRCLE", {{8, "0"}, {10, "1"}, {20, "1"}, {40, "1"}}).endBlock();
      std::vector<std::pair<int, std::string_view>> groups = {
          {8, "0"}, {6, "D"}, {2, "A"}, {1, "text"}};
      for (const int each : kCodes) {
        if (kind == "SPLINE" && (each == 11 || each == 12)) continue;
        groups.emplace_back(each, each == code ? value : each < 40 ? "2" : "1");
        if (each == 20) groups.insert(groups.end(), {{10, "7"}, {20, "8"}, {10, "3"}, {20, "3"}});
      }
      dxf.entity(kind, groups);
      draw(dxf);
      for (const bool dotted : {false, true}) {
        job.dotted = dotted;
        const bool written = convertOnce();
        EXPECT_TRUE(written || detail().find("finite number") != std::string::npos)
            << kind << " " << code << ": " << detail();
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Values, HostileNumberTest,
                         ::testing::Values("1e308", "-1e308", "1e309", "nan", "inf", "-inf", "0",
                                           "-0", "-1", "1e300", "1e9", "1e-320", "", "1e", "0x10",
                                           "1,5", "99999999999999999999999999"));

TEST_F(HostileTest, NanAndInfAreNotNumbersAndCountAsZero) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "nan"}, {20, "inf"}, {11, "-inf"}, {21, "1"}});
  draw(dxf);
  EXPECT_EQ(convert(), Outcome::Converted);
  EXPECT_EQ(script(), framed("Layer  20 ;\r\n"
                             "Wire 0.0000000 (R0.0000000 0.0000000) (R0.0000000 1.0000000);\r\n"));
}

TEST_F(HostileTest, ANumberBeyondAllNumbersIsAnError) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "1e309"}, {20, "0"}, {11, "0"}, {21, "1"}});
  draw(dxf);
  EXPECT_FALSE(convertOnce());
  EXPECT_EQ(detail(), job.dxfFile + ":7: " + kNotFinite);
}

TEST_F(HostileTest, TheLargestNumbersAreWrittenInFull) {
  DxfBuilder dxf;
  dxf.entity("LINE", {{8, "0"}, {10, "1e308"}, {20, "-1e308"}, {11, "0"}, {21, "1"}});
  draw(dxf);
  EXPECT_TRUE(convertOnce());
  EXPECT_TRUE(result.rangeWarning);
  EXPECT_NE(script().find("(R1" + std::string(3, '0')), std::string::npos);
}

TEST_F(HostileTest, RadiiOfZeroAndBelow) {
  for (const std::string_view radius : {"0", "-1", "-1e-9"}) {
    DxfBuilder dxf;
    dxf.dashes("D", "1", {"0.25", "-0.25"});
    dxf.header("$LTSCALE", 40, "1");
    dxf.entity("CIRCLE", {{8, "0"}, {6, "D"}, {10, "5"}, {20, "2"}, {40, radius}});
    dxf.entity("ARC",
               {{8, "0"}, {6, "D"}, {10, "5"}, {20, "2"}, {40, radius}, {50, "0"}, {51, "90"}});
    dxf.entity("ELLIPSE",
               {{8, "0"}, {10, "5"}, {20, "2"}, {11, "0"}, {21, "0"}, {40, radius}, {42, "6"}});
    EXPECT_EQ(convertInAllWays(dxf), kWays) << radius;
  }
}

TEST_F(HostileTest, IdenticalPoints) {
  DxfBuilder dxf;
  for (const std::string_view kind : {"LWPOLYLINE", "LEADER", "SPLINE"}) {
    std::vector<std::pair<int, std::string_view>> groups = {{8, "0"}, {70, "1"}};
    for (int i = 0; i < 50; ++i) {
      groups.insert(groups.end(), {{10, "3"}, {20, "3"}, {42, kind == "SPLINE" ? "0" : "1"}});
    }
    dxf.entity(kind, groups);
  }
  dxf.entity("POLYLINE", {{8, "0"}, {70, "1"}});
  for (int i = 0; i < 50; ++i) dxf.entity("VERTEX", {{8, "0"}, {10, "3"}, {20, "3"}, {42, "-1"}});
  dxf.entity("SEQEND", {});
  dxf.entity("SOLID", {{8, "0"}, {10, "3"}, {20, "3"}, {11, "3"}, {21, "3"}, {12, "3"}, {22, "3"}});
  surroundings.limits = {};
  EXPECT_EQ(convertInAllWays(dxf), kWays);
}

TEST_F(HostileTest, AnglesOfManyTurns) {
  DxfBuilder dxf;
  dxf.entity("ARC", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {50, "1e300"}, {51, "-1e300"}});
  dxf.entity("TEXT", {{8, "0"}, {10, "0"}, {20, "0"}, {40, "1"}, {50, "1e300"}, {1, "x"}});
  dxf.beginBlock("A").entity("POINT", {{8, "0"}, {10, "1"}, {20, "1"}}).endBlock();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}, {10, "0"}, {20, "0"}, {50, "1e300"}});
  surroundings.limits = {};
  EXPECT_EQ(convertInAllWays(dxf), kWays);
}

TEST_F(HostileTest, EllipsesOfManyTurnsEndWithACancel) {
  for (const std::string_view end : {"1e9", "1e300"}) {
    DxfBuilder dxf;
    dxf.entity(
        "ELLIPSE",
        {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}, {40, "1"}, {41, "0"}, {42, end}});
    draw(dxf);
    surroundings.limits = {};
    int polls = 0;
    host.cancelWhen = [&polls] { return ++polls > 100; };
    EXPECT_TRUE(convertOnce());
    EXPECT_EQ(result.outcome, Outcome::Cancelled);
    EXPECT_LT(result.commandCount, 20000U);
  }
}

TEST_F(HostileTest, AChainOfNestedBlocksIsAnErrorBeforeTheStackEnds) {
  DxfBuilder dxf;
  constexpr int kLength = 20000;
  for (int i = 0; i < kLength; ++i) {
    dxf.beginBlock("B" + std::to_string(i));
    dxf.entity("INSERT", {{8, "0"}, {2, "B" + std::to_string(i + 1)}}).endBlock();
  }
  dxf.entity("INSERT", {{8, "0"}, {2, "B0"}});
  draw(dxf);
  EXPECT_FALSE(convertOnce());
  EXPECT_NE(detail().find("Blocks are nested more than 1000 levels deep (\"B1000\")."),
            std::string::npos)
      << detail();
}

/// A table in which every value line starts an entry.
DxfBuilder tableOfNames(int lines) {
  DxfBuilder dxf;
  for (const std::string_view name : {"LTYPE", "LAYER", "STYLE"}) {
    for (int i = 0; i < lines; ++i) {
      if (name == "LTYPE") dxf.lineType("LTYPE", {{49, "LTYPE"}, {2, "LTYPE"}});
      if (name == "LAYER") dxf.layer("LAYER", {{6, "LAYER"}, {62, "LAYER"}});
      if (name == "STYLE") dxf.style("STYLE", {{40, "STYLE"}, {41, "STYLE"}});
    }
  }
  return dxf;
}

TEST_F(HostileTest, TablesFullOfEntriesInsideEntries) {
  surroundings.limits = {};
  DxfBuilder nested;
  std::string lines;
  for (int i = 0; i < 20000; ++i) lines += " 49\nLTYPE\n";
  folder.write("drawing.dxf", "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n" +
                                  lines + "  0\nENDTAB\n  0\nENDSEC\n  0\nEOF\n");
  EXPECT_TRUE(convertOnce());
  EXPECT_LT(testing::leastSeconds([this] { convertOnce(); }), 5.0);
  EXPECT_EQ(convertInAllWays(tableOfNames(50)), kWays);
}

/// Line types that share a long list of dashes, each used by a line.
std::string sharedDashes(int count) {
  std::string text = "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n";
  for (int i = 0; i < count; ++i) {
    text += "  2\nN" + std::to_string(i) + "\n 40\n1\n 49\n-50\n  3\nLTYPE\n";
  }
  text += "  0\nENDTAB\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
  for (int i = 0; i < count; ++i) {
    text += "  0\nLINE\n  8\n0\n  6\nN" + std::to_string(i) + "\n 10\n0\n 20\n0\n 11\n9\n 21\n0\n";
  }
  return text + "  0\nENDSEC\n  0\nEOF\n";
}

TEST_F(HostileTest, LineTypesThatShareALongListCostNoMoreThanTheirLines) {
  surroundings.limits = {};
  job.dotted = true;
  const auto seconds = [this](int count) {
    folder.write("drawing.dxf", sharedDashes(count));
    return testing::leastSeconds([this] { EXPECT_TRUE(convertOnce()); });
  };
  const double few = seconds(2000);
  EXPECT_LT(seconds(16000), 24.0 * few + 0.2);  // eight times as many
}

TEST_F(HostileTest, SplinesOfManyPointsCostWhatTheirPointsDo) {
  surroundings.limits = {};
  const auto seconds = [this](int points) {
    std::vector<std::pair<int, std::string_view>> groups = {{8, "0"}};
    for (int i = 0; i < points; ++i) {
      groups.insert(groups.end(), {{10, i % 2 == 0 ? "0" : "5"}, {20, i % 3 == 0 ? "0" : "7"}});
    }
    DxfBuilder dxf;
    dxf.entity("SPLINE", groups);
    draw(dxf);
    return testing::leastSeconds([this] { EXPECT_TRUE(convertOnce()); });
  };
  const double few = seconds(1000);
  EXPECT_LT(seconds(8000), 24.0 * few + 0.2);
}

}  // namespace
}  // namespace quillon::convert
