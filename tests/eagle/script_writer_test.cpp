#include "eagle/script_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "support/infinity.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::eagle {
namespace {

using geometry::Point;
using testing::kInfinity;
using testing::kRangeNote;
using testing::ScriptCapture;

const double kNaN = std::nan("");

TEST(FormatPoint, WritesBothNumbersInBracketsWithOneBlankBetween) {
  ScriptCapture capture;
  capture.script.formatPoint(1.0, 2.0).formatPoint(-0.5, 0.0);
  EXPECT_EQ(capture.take(), "(1.0000000 2.0000000)(-0.5000000 0.0000000)");
}

TEST(FormatPoint, OpensWithRWhenPointsCountFromTheMark) {
  ScriptCapture capture({.form = PointForm::FromMark});
  capture.script.formatPoint(1.0, 2.0);
  EXPECT_EQ(capture.take(), "(R1.0000000 2.0000000)");
}

TEST(FormatPoint, WritesAPointAsOftenAsItIsAskedFor) {
  ScriptCapture capture;
  capture.script.formatPoint(1.0, 2.0).formatPoint(1.0, 2.0).formatPoint(1.0, 3.0);
  capture.script.formatPoint(0.5, 3.0).formatPoint(1.0, 2.0);
  EXPECT_EQ(capture.take(),
            "(1.0000000 2.0000000)(1.0000000 2.0000000)(1.0000000 3.0000000)"
            "(0.5000000 3.0000000)(1.0000000 2.0000000)");
}

TEST(FormatPoint, WritesPointsOfAnyLengthAgain) {
  for (int xDigits = 0; xDigits < 40; ++xDigits) {
    for (int yDigits = 0; yDigits < 40; yDigits += 3) {
      const double x = -std::pow(10.0, xDigits);
      const double y = std::pow(10.0, yDigits);
      ScriptCapture capture;
      capture.script.formatPoint(x, y).formatPoint(x, y).text(" ").formatPoint(x, y);
      const std::string point = "(" + formatNumber(x) + " " + formatNumber(y) + ")";
      EXPECT_EQ(capture.take(), point + point + " " + point);
    }
  }
}

TEST(FormatPoint, WritesPointsThatShareOneCoordinate) {
  ScriptCapture capture;
  capture.script.formatPoint(1.0, 2.0).formatPoint(1.0, -2.5).formatPoint(100.25, -2.5);
  capture.script.formatPoint(-0.0, -2.5).formatPoint(0.0, 1.0).formatPoint(1e200, 1.0);
  EXPECT_EQ(capture.take(),
            "(1.0000000 2.0000000)(1.0000000 -2.5000000)(100.2500000 -2.5000000)"
            "(0.0000000 -2.5000000)(0.0000000 1.0000000)(" +
                formatNumber(1e200) + " 1.0000000)");
  EXPECT_EQ(capture.script.extents().minX, 0.0);
  EXPECT_EQ(capture.script.extents().maxX, 1e200);
  EXPECT_EQ(capture.script.extents().minY, -2.5);
  EXPECT_EQ(capture.script.extents().maxY, 2.0);
}

TEST(FormatPoint, WritesPointsAcrossTheEndOfTheBuffer) {
  ScriptCapture capture;
  std::string expected;
  for (int i = 0; i < 20'000; ++i) {
    capture.script.formatPoint(i % 3, i);
    expected.append("(").append(formatNumber(i % 3)).append(" ");
    expected.append(formatNumber(i)).append(")");
  }
  EXPECT_EQ(capture.take(), expected);
}

TEST(FormatPoint, WritesEachCoordinateAsFormatNumberDoes) {
  // Usual ones, zeros, eighth decimals of 5 (and beside it), and those of many digits.
  const double half = 250.0 + 1.0 / 256.0;
  const std::vector<double> values = {
      0.0,   -0.0,        1.5,          -1e-9,    half,   std::nextafter(half, 0.0),
      -half, 12.34567885, 999.99999996, -999.998, 1000.0, -123456.789,
      1e300};
  ScriptCapture capture({.unit = base::Unit::Mic});
  std::string expected;
  for (const double x : values) {
    for (const double y : values) {
      capture.script.formatPoint(x, y);
      expected.append("(").append(formatNumber(x)).append(" ");
      expected.append(formatNumber(y)).append(")");
    }
  }
  EXPECT_EQ(capture.take(), expected);
}

TEST(FormatPoint, WritesZeroWithoutASignInAPartToo) {
  ScriptCapture capture({.offsetX = 5.0});
  capture.script.beginPart();
  capture.script.formatPoint(-0.0, 1.0).formatPoint(2.0, -0.0);
  EXPECT_EQ(capture.take(), "(0.0000000 1.0000000)(2.0000000 0.0000000)");
}

TEST(LastPoints, StandBetweenBlanksBeforeTheEndOfTheCommand) {
  ScriptCapture capture;
  capture.script.text("Wire 0 ").lastPoints(Point{1.0, 2.0}, Point{3.0, 2.0}, Point{-4.0, 5.5});
  EXPECT_EQ(capture.take(),
            "Wire 0 (1.0000000 2.0000000) (3.0000000 2.0000000) (-4.0000000 5.5000000);\n");
  EXPECT_EQ(capture.script.commandCount(), 1U);
}

TEST(LastPoints, AreFollowedByTheNoteWhenOneIsOutOfRange) {
  ScriptCapture capture;
  capture.script.lastPoints(Point{900.0, 0.0}, Point{1.0, 2.0});
  EXPECT_EQ(capture.take(),
            "(900.0000000 0.0000000) (1.0000000 2.0000000);\n" + std::string(kRangeNote));
  EXPECT_EQ(capture.script.commandCount(), 2U);
}

TEST(LastPoints, AreWrittenUpToOneThatIsNotFinite) {
  ScriptCapture capture;
  EXPECT_THROW(capture.script.lastPoints(Point{1.0, 2.0}, Point{kNaN, 2.0}), base::RunTimeError);
  EXPECT_EQ(capture.take(), "(1.0000000 2.0000000) ");
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

TEST(FormatPoint, LeavesThePointBeforeOneThatIsNotFinite) {
  ScriptCapture capture;
  capture.script.formatPoint(1.0, 2.0);
  EXPECT_THROW(capture.script.formatPoint(5.0, kNaN), base::RunTimeError);
  EXPECT_THROW(capture.script.formatPoint(kInfinity, 2.0), base::RunTimeError);
  capture.script.formatPoint(1.0, 2.0);
  EXPECT_EQ(capture.take(), "(1.0000000 2.0000000)(1.0000000 2.0000000)");
  EXPECT_EQ(capture.script.extents().maxX, 1.0);
}

TEST(FormatPoint, AddsTheOffsets) {
  ScriptCapture capture({.offsetX = 10.25, .offsetY = -3.5});
  capture.script.formatPoint(1.0, 2.0);
  EXPECT_EQ(capture.take(), "(11.2500000 -1.5000000)");
}

TEST(FormatPoint, WritesASumOfZeroWithoutASign) {
  ScriptCapture capture({.offsetX = 0.0, .offsetY = 4.0});
  capture.script.formatPoint(-0.0, -4.0);
  EXPECT_EQ(capture.take(), "(0.0000000 0.0000000)");
}

TEST(FormatPoint, RefusesACoordinateThatIsNotFinite) {
  for (const double bad : {kInfinity, -kInfinity, kNaN}) {
    ScriptCapture capture;
    EXPECT_THROW(capture.script.formatPoint(bad, 0.0), base::RunTimeError);
    EXPECT_THROW(capture.script.formatPoint(0.0, bad), base::RunTimeError);
    EXPECT_THROW(capture.script.formatPoint(0.0, bad), base::RunTimeError) << "and again";
    EXPECT_EQ(capture.take(), "");
  }
  ScriptCapture moved({.offsetX = 1.7e308});
  EXPECT_THROW(moved.script.formatPoint(1.7e308, 0.0), base::RunTimeError);
}

TEST(WriteNumber, RefusesANumberThatIsNotFinite) {
  for (const double bad : {kInfinity, -kInfinity, kNaN}) {
    ScriptCapture capture;
    try {
      capture.script.number(bad);
      FAIL() << "wrote " << bad;
    } catch (const base::RunTimeError& error) {
      EXPECT_EQ(error.fault(), base::Fault::BadNumber);
    }
    EXPECT_EQ(capture.take(), "");
  }
}

struct UnitLimit {
  base::Unit unit;
  double limit;
};

/// The limits of all units, and without a unit.
constexpr std::initializer_list<UnitLimit> kLimits = {{base::Unit::Mic, 838860.0},
                                                      {base::Unit::Mm, 838.86},
                                                      {base::Unit::Mil, 33026.0},
                                                      {base::Unit::Inch, 33.026},
                                                      {base::Unit::None, 838.86}};

/// Whether a point causes a range note.
bool isNoted(base::Unit unit, double x, double y) {
  ScriptCapture capture({.unit = unit});
  capture.script.formatPoint(x, y);
  capture.take();
  capture.script.noteRange();
  const std::string note = capture.take();
  EXPECT_TRUE(note.empty() || note == kRangeNote);
  EXPECT_EQ(capture.script.rangeWarning(), !note.empty());
  EXPECT_EQ(capture.script.area().isOutside(x, y), !note.empty());
  return !note.empty();
}

TEST(RangeCheck, TakesACoordinateExactlyAtTheLimitAsInRange) {
  for (const auto& [unit, limit] : kLimits) {
    EXPECT_EQ(DrawingArea({.unit = unit}).limit(), limit);
    for (const double sign : {1.0, -1.0}) {
      EXPECT_FALSE(isNoted(unit, sign * limit, 0.0)) << base::unitRecord(unit).word;
      EXPECT_FALSE(isNoted(unit, 0.0, sign * limit)) << base::unitRecord(unit).word;
    }
    EXPECT_FALSE(isNoted(unit, limit, -limit)) << base::unitRecord(unit).word;
  }
}

TEST(RangeCheck, TakesTheNextNumberBeyondTheLimitAsOutOfRange) {
  for (const auto& [unit, limit] : kLimits) {
    const double beyond = std::nextafter(limit, kInfinity);
    for (const double sign : {1.0, -1.0}) {
      EXPECT_TRUE(isNoted(unit, sign * beyond, 0.0)) << base::unitRecord(unit).word;
      EXPECT_TRUE(isNoted(unit, 0.0, sign * beyond)) << base::unitRecord(unit).word;
    }
  }
}

TEST(RangeCheck, WritesThePointUnchangedAndTheNoteAfterTheCommand) {
  ScriptCapture capture;
  capture.script.text("Mark ").formatPoint(838.8600001, 1.0).text(";").endLine();
  capture.script.finishCommand(1);
  EXPECT_EQ(capture.take(), "Mark (838.8600001 1.0000000);\n" + std::string(kRangeNote));
}

TEST(RangeCheck, LooksAtTheCoordinateAfterTheOffset) {
  ScriptCapture capture({.offsetX = -100.0, .offsetY = 838.0});
  EXPECT_FALSE(capture.script.area().isOutside(900.0, 0.5));
  EXPECT_TRUE(capture.script.area().isOutside(0.0, 1.0));
  EXPECT_TRUE(capture.script.area().isOutside(-800.0, 0.0));
  capture.script.formatPoint(900.0, 0.5).noteRange();
  EXPECT_FALSE(capture.script.rangeWarning());
  capture.script.formatPoint(0.0, 1.0).noteRange();
  EXPECT_TRUE(capture.script.rangeWarning());
}

TEST(RangeCheck, CanBeAskedWithoutConsequences) {
  ScriptCapture capture;
  EXPECT_TRUE(capture.script.area().isOutside(1e6, 0.0));
  capture.script.noteRange();
  EXPECT_EQ(capture.take(), "");
  EXPECT_FALSE(capture.script.rangeWarning());
  EXPECT_TRUE(capture.script.extents().empty());
}

TEST(RangeNote, CountsAsACommandAndIsWrittenOnce) {
  ScriptCapture capture;
  capture.script.formatPoint(900.0, 900.0).formatPoint(901.0, 0.0);
  capture.take();
  capture.script.noteRange();
  EXPECT_EQ(capture.script.commandCount(), 1U);
  capture.script.noteRange();
  EXPECT_EQ(capture.script.commandCount(), 1U);
  EXPECT_EQ(capture.take(), kRangeNote);
}

TEST(RangeNote, DoesNotFollowTheNextCommand) {
  ScriptCapture capture;
  capture.script.formatPoint(900.0, 0.0).finishCommand(1);
  capture.take();
  capture.script.formatPoint(1.0, 0.0).finishCommand(1);
  EXPECT_EQ(capture.take(), "(1.0000000 0.0000000)");
  EXPECT_TRUE(capture.script.rangeWarning()) << "the warning stays for the whole conversion";
}

TEST(RangeNote, FollowsEveryCommandWithTheSamePointOutOfRange) {
  ScriptCapture capture;
  for (int i = 0; i < 3; ++i) {
    capture.script.text("Mark ").formatPoint(900.0, 1.0).text(";").endLine();
    capture.script.finishCommand(1);
    EXPECT_EQ(capture.take(), "Mark (900.0000000 1.0000000);\n" + std::string(kRangeNote));
  }
  EXPECT_EQ(capture.script.commandCount(), 6U);
}

TEST(RangeNote, IsNotWrittenForACommandInRange) {
  ScriptCapture capture;
  capture.script.formatPoint(1.0, 2.0).noteRange();
  EXPECT_EQ(capture.take(), "(1.0000000 2.0000000)");
  EXPECT_EQ(capture.script.commandCount(), 0U);
  EXPECT_FALSE(capture.script.rangeWarning());
}

TEST(RangeNote, EndsWithCrLf) {
  ScriptCapture capture;
  capture.script.formatPoint(900.0, 0.0).noteRange();
  capture.script.flush();
  EXPECT_TRUE(capture.sink.text.ends_with("out of range!\r\n"));
}

TEST(Extents, AreEmptyBeforeTheFirstPoint) {
  ScriptCapture capture;
  EXPECT_TRUE(capture.script.extents().empty());
  capture.script.line("Grid mm;");
  capture.script.number(3.0);
  EXPECT_TRUE(capture.script.extents().empty());
}

TEST(Extents, HoldAllPointsAsTheyAreWritten) {
  ScriptCapture capture({.offsetX = 100.0, .offsetY = -10.0});
  capture.script.formatPoint(1.0, 2.0);
  const Extents& extents = capture.script.extents();
  EXPECT_FALSE(extents.empty());
  EXPECT_EQ(extents.minX, 101.0);
  EXPECT_EQ(extents.maxX, 101.0);
  EXPECT_EQ(extents.minY, -8.0);
  EXPECT_EQ(extents.maxY, -8.0);
  capture.script.formatPoint(-5.0, 7.0).formatPoint(2000.0, 3.0);
  EXPECT_EQ(extents.minX, 95.0);
  EXPECT_EQ(extents.maxX, 2100.0) << "points out of range belong to it";
  EXPECT_EQ(extents.minY, -8.0);
  EXPECT_EQ(extents.maxY, -3.0);
}

TEST(Extents, HoldWhatAPartCoversInPlaceOfItsPoint) {
  testing::StringSink sink;
  ScriptWriter script(sink, {.unit = base::Unit::Mm, .offsetX = 100.0}, PointForm::Plain);
  script.beginPart();
  script.formatPoint(-50.0, 7.0);
  script.endPart();
  script.pointOfPart({-20.0, 0.0}, {{1.0, 2.0}, {3.0, 4.0}});
  script.flush();
  EXPECT_EQ(sink.text, "(-50.0000000 7.0000000)(80.0000000 0.0000000)");
  EXPECT_EQ(script.extents().minX, 101.0);
  EXPECT_EQ(script.extents().maxX, 103.0);
  EXPECT_EQ(script.extents().minY, 2.0);
  EXPECT_EQ(script.extents().maxY, 4.0);
  EXPECT_FALSE(script.rangeWarning());
  script.pointOfPart({0.0, 0.0}, {{1.0, 2.0}, {3.0, 840.0}});
  EXPECT_TRUE(script.rangeWarning());
}

TEST(WriteLayer, PutsABlankBeforeAndAfterTheNumber) {
  ScriptCapture capture;
  for (const int layer : {7, 16, 100, 255, 0, 32767}) capture.script.writeLayer(layer);
  EXPECT_EQ(capture.take(),
            "Layer  7 ;\nLayer  16 ;\nLayer  100 ;\nLayer  255 ;\nLayer  0 ;\nLayer  32767 ;\n");
}

TEST(WriteLayer, PutsTheSignInPlaceOfAPositiveNumbersBlank) {
  ScriptCapture capture;
  for (const int layer : {-1, -20, -32768}) capture.script.writeLayer(layer);
  EXPECT_EQ(capture.take(), "Layer -1 ;\nLayer -20 ;\nLayer -32768 ;\n");
}

TEST(WriteLayer, WritesTheSameLayerAgainAndThenAnotherOne) {
  ScriptCapture capture;
  for (const int layer : {0, 0, 7, 7, -7, 0}) capture.script.writeLayer(layer);
  EXPECT_EQ(capture.take(),
            "Layer  0 ;\nLayer  0 ;\nLayer  7 ;\nLayer  7 ;\nLayer -7 ;\nLayer  0 ;\n");
}

TEST(WriteLayer, DoesNotCountByItself) {
  ScriptCapture capture;
  capture.script.writeLayer(7);
  EXPECT_EQ(capture.script.commandCount(), 0U);
}

TEST(ScriptLines, EndWithCrLf) {
  ScriptCapture capture;
  capture.script.line("Grid mm;");
  capture.script.writeLayer(20);
  capture.script.text("Mark").endLine();
  capture.script.flush();
  EXPECT_EQ(capture.sink.text, "Grid mm;\r\nLayer  20 ;\r\nMark\r\n");
}

TEST(CommandCount, GrowsByOneForALineAndByWhatCommandsSay) {
  ScriptCapture capture;
  EXPECT_EQ(capture.script.commandCount(), 0U);
  capture.script.line("Grid mm;");
  EXPECT_EQ(capture.script.commandCount(), 1U);
  capture.script.count(3);
  EXPECT_EQ(capture.script.commandCount(), 4U);
  capture.script.finishCommand(2);
  EXPECT_EQ(capture.script.commandCount(), 6U);
  capture.script.formatPoint(900.0, 0.0).finishCommand(2);
  EXPECT_EQ(capture.script.commandCount(), 9U) << "two lines and the range note";
}

/// Collects the script and counts the blocks in which it arrives.
class BlockSink : public base::ByteSink {
 public:
  void write(std::string_view block) override {
    ++blocks;
    text.append(block);
  }
  std::string text;
  int blocks = 0;
};

TEST(ScriptBuffer, HandsOverNothingBeforeItIsFlushed) {
  BlockSink sink;
  ScriptWriter script(sink, {}, PointForm::Plain);
  script.line("Grid mm;");
  EXPECT_EQ(sink.text, "");
  script.flush();
  EXPECT_EQ(sink.text, "Grid mm;\r\n");
  script.flush();
  EXPECT_EQ(sink.blocks, 1) << "there was nothing more to hand over";
}

TEST(ScriptBuffer, KeepsEveryByteOfALongScriptInOrder) {
  BlockSink sink;
  ScriptWriter script(sink, {}, PointForm::Plain);
  std::string expected;
  for (int i = 0; i < 40'000; ++i) {
    const double x = i / 100.0;
    script.text("Mark ").formatPoint(x, -x).text(" ").number(x).text(";").endLine();
    const std::string number = formatNumber(x);
    expected.append("Mark (").append(number).append(" ").append(formatNumber(-x));
    expected.append(") ").append(number).append(";\r\n");
  }
  script.flush();
  EXPECT_TRUE(sink.text == expected);
  EXPECT_GT(sink.blocks, 2);
  EXPECT_LT(sink.blocks, 100);
}

TEST(ScriptBuffer, TakesNumbersOfAnyLengthAtItsEnd) {
  BlockSink sink;
  ScriptWriter script(sink, {}, PointForm::Plain);
  const double huge = -std::numeric_limits<double>::max();
  const std::string number = formatNumber(huge);
  std::string expected;
  for (int i = 0; i < 2'000; ++i) {
    script.text("x").formatPoint(huge, huge).number(huge);
    expected.append("x(").append(number).append(" ").append(number).append(")").append(number);
  }
  script.flush();
  EXPECT_TRUE(sink.text == expected);
}

TEST(ScriptBuffer, TakesTextsLongerThanItself) {
  BlockSink sink;
  ScriptWriter script(sink, {}, PointForm::Plain);
  const std::string longText(3'000'000, 'y');
  script.text("before").text(longText).text("behind");
  script.flush();
  EXPECT_TRUE(sink.text == "before" + longText + "behind");
}

TEST(ScriptBuffer, TakesATextThatNoLongerFits) {
  BlockSink sink;
  ScriptWriter script(sink, {}, PointForm::Plain);
  const std::string part(100'000, 'z');
  std::string expected;
  for (char c = 'a'; c < 'k'; ++c) {
    script.text(std::string(1, c)).text(part);
    expected += c + part;
  }
  script.flush();
  EXPECT_TRUE(sink.text == expected);
}

}  // namespace
}  // namespace quillon::eagle
