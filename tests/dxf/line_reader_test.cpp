#include "dxf/line_reader.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "support/dxf_builder.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::OpenFile;
using testing::PlainLineReader;
using testing::TextWalk;
using Lines = std::vector<std::string>;

Lines linesOf(std::string_view bytes) {
  TextWalk walk(bytes);
  Lines lines;
  while (!walk.reader.atEnd()) lines.emplace_back(walk.reader.readDxfLine(true));
  return lines;
}

TEST(ReadDxfLine, SplitsEveryLineEndConvention) {
  EXPECT_EQ(linesOf("  0\nLINE\n"), (Lines{"  0", "LINE"}));
  EXPECT_EQ(linesOf("  0\rLINE\r"), (Lines{"  0", "LINE"}));
  // The second character of a line end counts as part of the next line, at the end of the file too.
  EXPECT_EQ(linesOf("  0\r\nLINE\r\n"), (Lines{"  0", "LINE", ""}));
  EXPECT_EQ(linesOf("  0\n\rLINE\n\r"), (Lines{"  0", "LINE", ""}));
}

TEST(ReadDxfLine, GivesAnUnfinishedLastLine) {
  EXPECT_EQ(linesOf("a\nb"), (Lines{"a", "b"}));
  EXPECT_EQ(linesOf("a\r\nb"), (Lines{"a", "b"}));
  EXPECT_EQ(linesOf("no line end"), (Lines{"no line end"}));
}

TEST(ReadDxfLine, DropsTheOtherLineEndCharacterWhereverItOccurs) {
  EXPECT_EQ(linesOf("a\nb\rc\r\nd\r\r\n\re\r"), (Lines{"a", "bc", "d", "e"}));
  EXPECT_EQ(linesOf("a\rb\nc\n\rd\n\n\r\ne\n"), (Lines{"a", "bc", "d", "e"}));
  EXPECT_EQ(linesOf("a\r\n\nb\r\n"), (Lines{"a", "b", ""}));
}

TEST(ReadDxfLine, KeepsBlanksTabsCaseAndEmptyLines) {
  EXPECT_EQ(linesOf(" 10 \n\tText \n\n\nz\n"), (Lines{" 10 ", "\tText ", "", "", "z"}));
}

TEST(ReadDxfLine, FollowsTheLineRuleOnRandomText) {
  constexpr std::string_view kCharacters = "ab \n\n\r\r";
  std::mt19937 random(815);
  for (int i = 0; i < 40'000; ++i) {
    std::string bytes;
    for (auto left = random() % 60; left > 0; --left) {
      bytes += kCharacters[random() % kCharacters.size()];
    }
    TextWalk walk(bytes);
    LineReader& reader = walk.reader;
    PlainLineReader plain(bytes);
    for (std::uint64_t line = 0; line < 70; ++line) {
      ASSERT_EQ(reader.atEnd(), plain.atEnd()) << i << ", line " << line;
      ASSERT_EQ(reader.linesRead(), line);
      ASSERT_EQ(reader.readDxfLine(true), plain.next()) << i << ", line " << line;
    }
  }
}

TEST(ReadDxfLine, FindsLineEndsAfterAnyNumberOfCharacters) {
  for (std::size_t length = 0; length < 100; ++length) {
    for (const std::string_view lineEnd : {"\n", "\r", "\r\n"}) {
      const std::string longLine(length, '\xFF');
      const Lines lines = linesOf(longLine + std::string(lineEnd) + longLine);
      ASSERT_GE(lines.size(), 1U);
      EXPECT_EQ(lines.front(), longLine);
      if (length == 0) continue;
      EXPECT_EQ(lines, (Lines{longLine, longLine}));
    }
  }
}

TEST(ReadDxfLine, GivesEmptyLinesAtTheEndAndCountsThem) {
  TextWalk walk("only\n");
  LineReader& reader = walk.reader;
  EXPECT_EQ(reader.readDxfLine(true), "only");
  EXPECT_TRUE(reader.atEnd());
  EXPECT_EQ(reader.readDxfLine(true), "");
  EXPECT_EQ(reader.readDxfLine(true), "");
  EXPECT_EQ(reader.linesRead(), 3U);
}

TEST(LineReader, CountsFromZeroAgainAfterARewind) {
  TextWalk walk("a\nb\n");
  LineReader& reader = walk.reader;
  reader.readDxfLine(true);
  reader.readDxfLine(true);
  reader.rewind();
  EXPECT_EQ(reader.linesRead(), 0U);
  EXPECT_EQ(reader.readDxfLine(true), "a");
  EXPECT_EQ(reader.linesRead(), 1U);
}

TEST(LineReader, CountsTheLinesThatItSkips) {
  for (const std::string_view bytes :
       {"a\nbc\n\nd\ne", "a\r\nbc\r\n\r\nd\r\ne\r\n", "a\rbc\r\rd\re\r", "a\nb\rc\nd\n\re\n"}) {
    TextWalk ahead(bytes);
    while (!ahead.reader.atEnd()) {
      ahead.reader.readDxfLine(false);
      const std::ptrdiff_t offset = ahead.reader.window().begin - ahead.source.begin();
      for (std::uint64_t before = 0; before <= ahead.reader.linesRead(); ++before) {
        TextWalk walk(bytes);
        for (std::uint64_t i = 0; i < before; ++i) walk.reader.readDxfLine(false);
        walk.reader.skipTo(walk.source.begin() + offset);
        EXPECT_EQ(walk.reader.linesRead(), ahead.reader.linesRead())
            << bytes << ", from " << before;
        EXPECT_EQ(walk.reader.atEnd(), ahead.reader.atEnd());
      }
    }
  }
}

TEST(LineReader, NumbersTheLinesOfItsTextFromOne) {
  for (const std::string_view lineEnd : {"\n", "\r", "\r\n", "\n\r"}) {
    const std::string bytes = DxfBuilder::withLineEnds("first\n\nthird\nlast\n", lineEnd);
    TextWalk walk(bytes);
    for (int read = 0; read < 5; ++read) {
      const auto lineOf = [&walk, &bytes](std::string_view part) {
        return walk.reader.lineAt(walk.source.begin() + bytes.find(part));
      };
      EXPECT_EQ(lineOf("first"), 1U) << read;
      EXPECT_EQ(lineOf("irst"), 1U) << read;
      EXPECT_EQ(lineOf("third"), 3U) << read;
      EXPECT_EQ(lineOf("last"), 4U) << read;
      walk.reader.readDxfLine(false);
    }
  }
}

TEST(LineReader, NumbersLinesOfLaterWindowsToo) {
  std::string bytes;
  while (bytes.size() < 4 * testing::kSmallWindow) bytes += "some line\n";
  const OpenFile file(bytes);
  TextWalk walk(file.get());
  const std::size_t inWindow = testing::kSmallWindow / 10 / 2;
  for (int i = 0; i < 7; ++i) {
    const LineRange lines = walk.reader.window();
    EXPECT_EQ(walk.reader.lineAt(lines.begin), walk.reader.linesRead() + 1);
    for (std::size_t line = 0; line < inWindow; ++line) walk.reader.readDxfLine(false);
    EXPECT_FALSE(walk.reader.atEnd());
  }
}

TEST(LineReader, KnowsNoLineOutsideItsText) {
  const TextWalk walk("a\nb\n");
  const TextWalk other("a\nb\n");
  EXPECT_EQ(walk.reader.lineAt(nullptr), 0U);
  EXPECT_EQ(walk.reader.lineAt(other.source.begin()), 0U);
  EXPECT_EQ(walk.reader.lineAt(walk.source.end() + 1), 0U);
}

TEST(LineReader, KeepsLinesOfAnyNumberOfWindows) {
  std::string bytes;
  for (int i = 0; bytes.size() < 6 * testing::kSmallWindow; ++i)
    bytes += std::to_string(i) + "\r\n";
  const OpenFile file(bytes);
  TextWalk walk(file.get());
  for (int i = 0; i < 1000; ++i) walk.reader.readDxfLine(false);
  walk.reader.beginKeeping();
  while (walk.reader.linesRead() < 3'000) walk.reader.readDxfLine(false);
  const LineRange kept = walk.reader.keptLines();
  int expected = 1000;
  for (LineCursor cursor(kept, walk.source.lineEnds()); !cursor.atEnd(); ++expected) {
    ASSERT_EQ(cursor.next(), std::to_string(expected));
  }
  EXPECT_EQ(expected, 3'000);
  EXPECT_EQ(walk.reader.lineAt(kept.begin), 1001U);
  walk.reader.endKeeping();
  EXPECT_EQ(walk.reader.readDxfLine(false), "3000");
}

TEST(LineReader, ExtendsItsWindowUntilTheFileEnds) {
  std::string bytes;
  while (bytes.size() < 3 * testing::kSmallWindow) bytes += "some line\n";
  const OpenFile file(bytes);
  TextWalk walk(file.get());
  EXPECT_EQ(walk.reader.readDxfLine(false), "some line");
  std::ptrdiff_t size = walk.reader.window().end - walk.reader.window().begin;
  while (walk.reader.extendWindow()) {
    const std::ptrdiff_t extended = walk.reader.window().end - walk.reader.window().begin;
    EXPECT_GT(extended, size);
    size = extended;
  }
  EXPECT_EQ(static_cast<std::size_t>(size), bytes.size() - 10);
  EXPECT_FALSE(TextWalk("a\n").reader.extendWindow());
}

TEST(LineReader, ShowsItsPositionInBlocksOf128Bytes) {
  std::string bytes;
  while (bytes.size() < 500'000) bytes += "some line\n";
  const OpenFile file(bytes);
  TextWalk stream(file.get());
  TextWalk memory(bytes);
  for (TextWalk* const walk : {&stream, &memory}) {
    while (!walk->reader.atEnd()) walk->reader.readDxfLine(true);
    const auto& progress = walk->monitor.progress;
    ASSERT_GT(progress.size(), 10U);
    std::uint64_t previous = 0;
    for (const auto& [value, total] : progress) {
      EXPECT_GT(value, previous);
      EXPECT_EQ(total, 3906U);  // 500,000 / 128 is 3906.25
      previous = value;
    }
    walk->reader.poll(true);
    EXPECT_EQ(progress.back(), (std::pair<std::uint64_t, std::uint64_t>{3906, 3906}));
  }
}

TEST(LineReader, RoundsTheTotalToTheNearestBlock) {
  for (const auto& [size, total] : {std::pair<std::size_t, std::uint64_t>{0, 0},
                                    {63, 0},
                                    {65, 1},
                                    {128, 1},
                                    {191, 1},
                                    {193, 2}}) {
    TextWalk walk(std::string(size, 'x'));
    walk.reader.poll(true);
    ASSERT_EQ(walk.monitor.progress.size(), 1U);
    EXPECT_EQ(walk.monitor.progress.front().second, total) << size;
  }
}

TEST(LineReader, ShowsNoProgressWhenItIsNotWanted) {
  TextWalk walk(std::string(10'000, '\n'));
  while (!walk.reader.atEnd()) walk.reader.readDxfLine(false);
  EXPECT_TRUE(walk.monitor.progress.empty());
  EXPECT_GT(walk.monitor.polls, 0U);
}

TEST(LineReader, RemembersACancelAndStillGivesLines) {
  TextWalk walk("a\nb\n");
  bool pressed = false;
  walk.monitor.cancelWhen = [&pressed] { return pressed; };
  LineReader& reader = walk.reader;
  reader.poll(true);
  EXPECT_FALSE(reader.cancelled());
  pressed = true;
  reader.poll(true);
  EXPECT_TRUE(reader.cancelled());
  pressed = false;
  reader.poll(true);
  EXPECT_TRUE(reader.cancelled());
  EXPECT_EQ(reader.readDxfLine(true), "a");
}

}  // namespace
}  // namespace quillon::dxf
