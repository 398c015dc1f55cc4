#include "dxf/section_walker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_text.h"
#include "support/dxf_builder.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::joinLines;
using testing::OpenFile;
using testing::PlainLineReader;
using testing::TextWalk;
using Lines = std::vector<std::string>;

TEST(FindSection, StopsAfterTheLineThatItFound) {
  TextWalk walk("  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n");
  EXPECT_TRUE(findSection(walk.reader, "TABLES", true));
  EXPECT_EQ(walk.reader.linesRead(), 4U);
  EXPECT_EQ(walk.reader.readDxfLine(true), "  0");
}

TEST(FindSection, ComparesTheTrimmedLineExactly) {
  struct Case {
    std::string_view line;
    bool found;
  };
  for (const auto& [line, found] : {Case{"TABLES", true},
                                    {"  TABLES ", true},
                                    {"tables", false},
                                    {"Tables", false},
                                    {"TABLE", false},
                                    {"TABLESX", false},
                                    {"\tTABLES", false},
                                    {"TABLES\t", false},
                                    {"", false}}) {
    TextWalk walk(joinLines({"2", line, "0", "EOF"}));
    EXPECT_EQ(findSection(walk.reader, "TABLES", true), found) << '"' << line << '"';
  }
}

TEST(FindSection, RewindsAtTheEndOfTheFile) {
  TextWalk walk("a\nb\nc\n");
  walk.reader.readDxfLine(true);
  EXPECT_FALSE(findSection(walk.reader, "TABLES", true));
  EXPECT_EQ(walk.reader.linesRead(), 0U);
  EXPECT_EQ(walk.reader.readDxfLine(true), "a");
}

TEST(FindSection, DoesNotFindANameOnTheLastLine) {
  for (const std::string_view bytes : {"2\nTABLES", "2\nTABLES\n", "2\rTABLES\r", "TABLES"}) {
    TextWalk walk(bytes);
    EXPECT_FALSE(findSection(walk.reader, "TABLES", true)) << bytes;
    EXPECT_EQ(walk.reader.linesRead(), 0U);
  }
}

TEST(FindSection, SearchesOnlyForward) {
  TextWalk walk("TABLES\nx\nBLOCKS\ny\n");
  EXPECT_TRUE(findSection(walk.reader, "BLOCKS", true));
  EXPECT_FALSE(findSection(walk.reader, "TABLES", true));
  EXPECT_TRUE(findSection(walk.reader, "TABLES", true));
}

TEST(FindSection, FindsNothingInAnEmptyFile) {
  TextWalk walk("");
  EXPECT_FALSE(findSection(walk.reader, "TABLES", true));
  EXPECT_EQ(walk.reader.linesRead(), 0U);
}

TEST(FindSection, StopsWhenTheUserCancels) {
  constexpr std::size_t kLines = 2'000'000;
  const OpenFile file(std::string(kLines, '\n') + "TABLES\nx\n");
  TextWalk walk(file.get());
  walk.monitor.cancelWhen = [] { return true; };
  EXPECT_FALSE(findSection(walk.reader, "TABLES", true));
  EXPECT_GT(walk.reader.linesRead(), 0U);
  EXPECT_LT(walk.reader.linesRead(), kLines / 2);
}

TEST(FindSection, AgreesWithASearchLineByLine) {
  constexpr std::string_view kParts[] = {"TABLES", "TABLES", " ",  "X",  "TABLE", "S",
                                         "\t",     "\n",     "\n", "\n", "\r"};
  std::mt19937 random(12);
  for (int i = 0; i < 100'000; ++i) {
    std::string bytes;
    for (auto left = random() % 16; left > 0; --left) bytes += kParts[random() % std::size(kParts)];
    PlainLineReader plain(bytes);
    std::uint64_t lines = 0;
    bool found = false;
    while (!plain.atEnd() && !found) {
      found = base::trimBlanks(plain.next()) == "TABLES";
      ++lines;
    }
    found = found && !plain.atEnd();
    TextWalk walk(bytes);
    ASSERT_EQ(findSection(walk.reader, "TABLES", true), found) << i;
    ASSERT_EQ(walk.reader.linesRead(), found ? lines : 0U) << i;
    ASSERT_EQ(walk.reader.readDxfLine(true), found ? plain.next() : PlainLineReader(bytes).next());
  }
}

TEST(FindSection, FindsANameAtTheBorderOfTwoWindows) {
  for (std::size_t place = testing::kSmallWindow - 20; place < testing::kSmallWindow + 20;
       ++place) {
    for (const std::string_view lineEnd : {"\n", "\r\n"}) {
      std::string bytes = "x" + std::string(lineEnd);
      while (bytes.size() + 100 < place) bytes += "  2" + std::string(lineEnd);
      bytes.append(place - bytes.size(), 'x').append(lineEnd);
      const std::string before = bytes;
      for (const std::string_view line : {"  TABLES ", "next"}) bytes.append(line).append(lineEnd);
      const OpenFile file(bytes);
      TextWalk walk(file.get());
      ASSERT_TRUE(findSection(walk.reader, "TABLES", true)) << place;
      EXPECT_EQ(walk.reader.linesRead(), static_cast<std::uint64_t>(std::count(
                                             before.begin(), before.end(), lineEnd.front())) +
                                             1);
      EXPECT_EQ(walk.reader.readDxfLine(true), "next");
    }
  }
}

/// The result of collectBetween with the markers of a table.
struct Collected {
  bool result;
  Lines lines;
  std::string nextLine;
};

Collected collectTable(std::string_view bytes) {
  TextWalk walk(bytes);
  LineRange range;
  Collected collected;
  collected.result = collectBetween(walk.reader, "TABLE", "ENDTAB", "ENDSEC", range, true);
  for (LineCursor cursor(range, walk.source.lineEnds()); !cursor.atEnd();) {
    collected.lines.emplace_back(base::trimBlanks(cursor.next()));
  }
  collected.nextLine = walk.reader.readDxfLine(true);
  return collected;
}

TEST(CollectBetween, CollectsFromTheStartMarkerToTheEndMarker) {
  const Collected table = collectTable(
      joinLines({"  0", "TABLE", "  2", " Layer ", "\tx", "  0", "  ENDTAB ", "next"}));
  EXPECT_TRUE(table.result);
  EXPECT_EQ(table.lines, (Lines{"2", "Layer", "\tx", "0", "ENDTAB"}));
  EXPECT_EQ(table.nextLine, "next");
}

TEST(CollectBetween, FindsTheStartMarkerInAnyCase) {
  for (const std::string_view start : {"table", "Table", "  tAbLe "}) {
    EXPECT_EQ(collectTable(joinLines({start, "x", "ENDTAB"})).lines, (Lines{"x", "ENDTAB"}))
        << start;
  }
}

TEST(CollectBetween, ComparesTheWholeLineWithTheStartMarker) {
  const Collected table = collectTable(joinLines({"TABLES", "ATABLE", "TABLE", "x", "ENDTAB"}));
  EXPECT_EQ(table.lines, (Lines{"x", "ENDTAB"}));
}

TEST(CollectBetween, NeedsTheEndMarkerInUpperCase) {
  const Collected table = collectTable(joinLines({"TABLE", "endtab", "EndTab", "ENDTAB", "next"}));
  EXPECT_EQ(table.lines, (Lines{"endtab", "EndTab", "ENDTAB"}));
}

TEST(CollectBetween, IsStoppedInAnyCaseWhileItSearches) {
  for (const std::string_view stop : {"ENDSEC", "endsec", " EndSec "}) {
    const Collected table = collectTable(joinLines({"0", stop, "next", "TABLE", "x", "ENDTAB"}));
    EXPECT_FALSE(table.result) << stop;
    EXPECT_EQ(table.lines, Lines{});
    EXPECT_EQ(table.nextLine, "next");
  }
}

TEST(CollectBetween, IsNotStoppedWhileItCollects) {
  const Collected table = collectTable(joinLines({"TABLE", "ENDSEC", "x", "ENDTAB", "next"}));
  EXPECT_TRUE(table.result);
  EXPECT_EQ(table.lines, (Lines{"ENDSEC", "x", "ENDTAB"}));
}

TEST(CollectBetween, IsTrueAtTheEndOfTheFile) {
  struct Case {
    std::string_view bytes;
    Lines lines;
  };
  for (const auto& [bytes, lines] : {Case{"", {}},
                                     {"a\nb\n", {}},
                                     {"a\nTABLE\n", {}},
                                     {"a\nTABLE", {}},
                                     {"TABLE\na\nb\n", {"a", "b"}},
                                     {"TABLE\na\nb", {"a", "b"}}}) {
    const Collected table = collectTable(bytes);
    EXPECT_TRUE(table.result) << bytes;
    EXPECT_EQ(table.lines, lines) << bytes;
  }
}

TEST(CollectBetween, ForgetsWhatItCollectedBefore) {
  TextWalk walk("TABLE\na\nENDTAB\nENDSEC\n");
  LineRange lines;
  EXPECT_TRUE(collectBetween(walk.reader, "TABLE", "ENDTAB", "ENDSEC", lines, true));
  EXPECT_NE(lines.begin, lines.end);
  EXPECT_FALSE(collectBetween(walk.reader, "TABLE", "ENDTAB", "ENDSEC", lines, true));
  EXPECT_EQ(lines.begin, lines.end);
}

TEST(CollectBetween, IsFalseAfterACancelInEitherPhase) {
  constexpr std::size_t kLines = 2'000'000;
  const std::string manyLines(kLines, '\n');
  for (const std::string& bytes :
       {manyLines + "TABLE\nx\nENDTAB\n", "TABLE\n" + manyLines + "ENDTAB\n"}) {
    const OpenFile file(bytes);
    TextWalk walk(file.get());
    walk.monitor.cancelWhen = [] { return true; };
    LineRange lines;
    EXPECT_FALSE(collectBetween(walk.reader, "TABLE", "ENDTAB", "ENDSEC", lines, true));
    EXPECT_LT(walk.reader.linesRead(), kLines / 2);
  }
}

TEST(CollectBetween, ReadsNothingAfterACancel) {
  TextWalk walk("TABLE\nx\nENDTAB\n");
  walk.monitor.cancelWhen = [] { return true; };
  walk.reader.poll(true);
  LineRange lines;
  EXPECT_FALSE(collectBetween(walk.reader, "TABLE", "ENDTAB", "ENDSEC", lines, true));
  EXPECT_EQ(walk.reader.linesRead(), 0U);
}

}  // namespace
}  // namespace quillon::dxf
