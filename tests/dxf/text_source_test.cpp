#include "dxf/text_source.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "support/dxf_builder.h"
#include "support/filled_pipe.h"
#include "support/temp_folder.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::FilledPipe;
using testing::kLineEnds;
using testing::kSmallWindow;
using testing::OpenFile;
using testing::PlainLineReader;
using testing::TempFolder;
using testing::TextWalk;

bool never() { return false; }

std::string_view textOf(const TextSource& source) {
  return {source.begin(), static_cast<std::size_t>(source.end() - source.begin())};
}

/// Lines of various lengths, `size` bytes in total.
std::string someText(std::size_t size) {
  std::string text;
  text.reserve(size + 32);
  for (std::size_t i = 0; text.size() < size; ++i) text.append(std::to_string(i * i)).append("\n");
  text.resize(size);
  return text;
}

/// All bytes of a source, read window by window.
std::string readThrough(TextSource& source) {
  std::string text;
  for (;;) {
    text.append(source.begin(), source.linesEnd());
    if (source.atFileEnd()) return text;
    source.refill(source.linesEnd());
  }
}

TEST(TextSource, HoldsACopyOfTheBytes) {
  std::string bytes("  0\nLINE\0\xFF\n", 11);
  const TextSource source(bytes);
  const std::string before = bytes;
  bytes.assign(bytes.size(), 'x');
  EXPECT_EQ(textOf(source), before);
  EXPECT_TRUE(source.atFileEnd());
  EXPECT_EQ(source.linesEnd(), source.end());
  EXPECT_EQ(source.fileSize(), 11U);
  EXPECT_EQ(textOf(TextSource("")), "");
}

TEST(TextSource, TakesTheFirstLineEndAsTheConvention) {
  struct Case {
    std::string_view bytes;
    char eol;
  };
  for (const auto& [bytes, eol] : {Case{"a\nb\r", '\n'},
                                   {"a\r\nb", '\r'},
                                   {"a\rb\n", '\r'},
                                   {"a\n\rb", '\n'},
                                   {"\n", '\n'},
                                   {"\r", '\r'}}) {
    for (const std::string_view before :
         {std::string_view{}, std::string_view("long first line ")}) {
      const OpenFile file(std::string(before) + std::string(bytes));
      const TextSource source(file.get(), {});
      EXPECT_TRUE(source.lineEnds().eolDetected) << bytes;
      EXPECT_EQ(source.lineEnds().eolChar, eol) << bytes;
      EXPECT_EQ(source.lineEnds().eolOther, eol == '\n' ? '\r' : '\n') << bytes;
    }
  }
  EXPECT_FALSE(TextSource("no line end").lineEnds().eolDetected);
  EXPECT_FALSE(TextSource("").lineEnds().eolDetected);
}

TEST(TextSource, GivesFilesOfEverySizeWindowByWindow) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, std::size_t{100}, TextSource::kWindow - 1,
        TextSource::kWindow, TextSource::kWindow + 1, 2 * TextSource::kWindow,
        5 * TextSource::kWindow + 12345}) {
    const std::string content = someText(size);
    const OpenFile file(content);
    TextSource source(file.get(), {});
    EXPECT_EQ(source.fileSize(), size);
    EXPECT_TRUE(readThrough(source) == content) << size;
    source.rewind();
    EXPECT_EQ(source.offsetOf(source.begin()), 0U);
    EXPECT_TRUE(readThrough(source) == content) << size;
  }
}

TEST(TextSource, StartsAtTheFirstByteWhateverHasBeenReadOfAFile) {
  const std::string content = someText(100'000);
  const OpenFile file(content);
  std::string head(4096, '\0');
  ASSERT_EQ(std::fread(head.data(), 1, head.size(), file.get()), head.size());
  TextSource source(file.get(), head);
  EXPECT_TRUE(readThrough(source) == content);
}

TEST(TextSource, ReadsOnAfterTheHeadWhileTheFileHasNotChanged) {
  for (const std::size_t size : {std::size_t{3000}, std::size_t{4096}, std::size_t{4097},
                                 std::size_t{100'000}, 2 * TextSource::kWindow}) {
    const std::string content = someText(size);
    const OpenFile file(content);
    const FileStamp stamp = stampOf(file.get());
    std::string head(4096, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file.get()));
    // What another stamp stands for is read again from the first byte.
    for (const bool holds : {true, false}) {
      FileStamp before = stamp;
      if (!holds) ++before.written;
      std::string given = head;
      given.front() = '#';
      std::rewind(file.get());
      ASSERT_EQ(std::fread(head.data(), 1, head.size(), file.get()), head.size());
      TextSource source(file.get(), given, never, {}, TextSource::kWindow, &before);
      EXPECT_EQ(source.fileSize(), size);
      EXPECT_EQ(*source.begin(), holds ? '#' : content.front());
      EXPECT_TRUE(readThrough(source).substr(1) == content.substr(1)) << size;
      source.rewind();
      EXPECT_TRUE(readThrough(source) == content) << size;
    }
  }
}

TEST(TextSource, HoldsAStreamThatCannotSeekAsAWhole) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{10}, std::size_t{70'000}, 3 * TextSource::kWindow + 1}) {
    const std::string content = someText(size);
    for (const std::size_t headSize : {0U, 4096U}) {
      const FilledPipe pipe(content);
      std::string head(headSize, '\0');
      head.resize(std::fread(head.data(), 1, headSize, pipe.get()));
      TextSource source(pipe.get(), head);
      EXPECT_TRUE(textOf(source) == content) << size;
      EXPECT_EQ(source.fileSize(), size);
      EXPECT_TRUE(source.isUtf8(never));
      source.rewind();
      EXPECT_TRUE(readThrough(source) == content) << size;
    }
  }
}

TEST(TextSource, StopsReadingAStreamThatCannotSeekAfterACancel) {
  const FilledPipe pipe("one\ntwo\n");
  TextSource source(pipe.get(), "head\n", [] { return true; });
  EXPECT_EQ(textOf(source), "head\n");
  EXPECT_TRUE(source.atFileEnd());
}
TEST(TextSource, KeepsTheTextFromTheGivenPlaceOn) {
  const std::string content = someText(8 * TextSource::kWindow);
  const OpenFile file(content);
  TextSource source(file.get(), {});
  const char* keep = source.begin() + 1000;
  while (!source.atFileEnd()) {
    keep = source.refill(keep);
    EXPECT_EQ(keep, source.begin());
    EXPECT_EQ(source.offsetOf(keep), 1000U);
    const auto size = static_cast<std::size_t>(source.end() - keep);
    ASSERT_TRUE(std::string_view(keep, size) == std::string_view(content).substr(1000, size));
  }
  EXPECT_EQ(textOf(source).size(), content.size() - 1000);
}

TEST(TextSource, HasAWholeLineInEveryWindow) {
  const std::string longLine(3 * TextSource::kWindow, 'x');
  const std::string content = "short\n" + longLine + "\nnext\n" + longLine;
  const OpenFile file(content);
  TextSource source(file.get(), {});
  EXPECT_EQ(std::string_view(source.begin(), 6), "short\n");
  EXPECT_GT(source.linesEnd(), source.begin());
  EXPECT_TRUE(readThrough(source) == content);
}

TEST(TextSource, ReadsWhatAFileHasGrownByMeanwhile) {
  const std::string content = someText(2 * TextSource::kWindow);
  const OpenFile file(content);
  TextSource source(file.get(), {});
  const std::string more = "more\n" + someText(TextSource::kWindow);
  std::FILE* const again = std::fopen(file.path().c_str(), "ab");
  ASSERT_NE(again, nullptr);
  std::fputs(more.c_str(), again);
  std::fclose(again);
  EXPECT_TRUE(readThrough(source) == content + more);
}

TEST(TextSource, ReportsAStreamThatCannotBeRead) {
  const TempFolder folder;
  std::FILE* const file = std::fopen(folder.file("write-only").c_str(), "wb");
  ASSERT_NE(file, nullptr);
  try {
    const TextSource source(file, {});
    ADD_FAILURE() << "no error";
  } catch (const base::ReadError& error) {
    EXPECT_NE(error.reason(), 0);
    EXPECT_STRNE(error.what(), "");
  }
  std::fclose(file);
}

/// Lines of up to 60 characters, occasionally a very long one, with both line-end characters in any
/// order.
std::string randomLines(std::mt19937& random, std::string_view lineEnd, std::size_t size) {
  std::string text;
  while (text.size() < size) {
    const std::size_t length = random() % 200 == 0 ? random() % 10'000 : random() % 60;
    text.append(length, static_cast<char>('a' + random() % 26));
    text += lineEnd;
    if (random() % 16 == 0) text.append(random() % 3, '\r');
    if (random() % 16 == 0) text.append(random() % 3, '\n');
  }
  return text;
}

TEST(TextSource, SplitsAFileIntoTheSameLinesAsATextInMemory) {
  std::mt19937 random(3);
  for (int i = 0; i < 24; ++i) {
    const std::string bytes = randomLines(random, kLineEnds[i % 4], 100'000);
    const OpenFile file(bytes);
    TextWalk stream(file.get());
    TextWalk memory(bytes);
    PlainLineReader plain(bytes);
    while (!plain.atEnd()) {
      ASSERT_FALSE(stream.reader.atEnd());
      const std::string line = plain.next();
      ASSERT_TRUE(stream.reader.readDxfLine(true) == line)
          << i << ", " << stream.reader.linesRead();
      ASSERT_TRUE(memory.reader.readDxfLine(true) == line)
          << i << ", " << memory.reader.linesRead();
    }
    EXPECT_TRUE(stream.reader.atEnd());
    EXPECT_TRUE(memory.reader.atEnd());
  }
}

TEST(TextSource, DropsStrayCharactersAtTheBorderOfWindowsToo) {
  for (std::size_t place = kSmallWindow - 2; place < kSmallWindow + 3; ++place) {
    for (const std::string_view strays : {"\r", "\r\r", "\n\r", "\n\r\r", "\r\n\r"}) {
      std::string bytes = someText(kSmallWindow / 2);
      bytes.append(place - bytes.size(), 'x').append(strays).append("behind\nlast\n");
      const OpenFile file(bytes);
      TextWalk walk(file.get());
      for (PlainLineReader plain(bytes); !plain.atEnd();) {
        ASSERT_FALSE(walk.reader.atEnd()) << place;
        ASSERT_EQ(walk.reader.readDxfLine(true), plain.next()) << place;
      }
      EXPECT_TRUE(walk.reader.atEnd());
    }
  }
}

TEST(TextSource, LeavesTheLastLineEndOfTwoCharactersAsALineWhereverAWindowEnds) {
  for (std::size_t size = kSmallWindow - 2; size < kSmallWindow + 4; ++size) {
    std::string bytes = "first\r\n";
    bytes.append(size - bytes.size() - 2, 'x').append("\r\n");
    const OpenFile file(bytes);
    TextWalk walk(file.get());
    while (!walk.reader.atEnd()) walk.reader.readDxfLine(true);
    EXPECT_EQ(walk.reader.linesRead(), 3U) << size;
  }
}

TEST(IsUtf8, ReadsAWholeFileAndLeavesTheWindowWhereItIs) {
  // Three-byte characters straddle every block boundary.
  std::string content = "a\n";
  while (content.size() < 5 * TextSource::kWindow) content += "€€€€€€€\n";
  const OpenFile file(content);
  TextSource source(file.get(), {});
  EXPECT_TRUE(source.isUtf8(never));
  EXPECT_TRUE(readThrough(source) == content);
  EXPECT_TRUE(TextSource(content).isUtf8(never));
}

TEST(IsUtf8, FindsOneMalformedByteAnywhere) {
  const std::string content = someText(3 * TextSource::kWindow);
  for (const std::size_t place : {std::size_t{0}, TextSource::kWindow, content.size() - 1}) {
    std::string broken = content;
    broken[place] = '\xE4';
    const OpenFile file(broken);
    TextSource source(file.get(), {});
    EXPECT_FALSE(source.isUtf8(never)) << place;
    EXPECT_TRUE(readThrough(source) == broken) << place;
    EXPECT_FALSE(TextSource(broken).isUtf8(never)) << place;
  }
}

TEST(IsUtf8, IsFalseForAnUnfinishedCharacterAtTheEnd) {
  const OpenFile file("ä\n\xC3");
  EXPECT_FALSE(TextSource(file.get(), {}).isUtf8(never));
}

TEST(IsUtf8, LooksAtTheBytesBeforeLineEndsAreMadeRegular) {
  // The stray CR disappears when the lines are read.
  for (const std::string bytes : {"a\n\xC3\r\xA4\n", "a\r\xC3\n\xA4\r", "a\n\xE2\r\x82\xAC"}) {
    const OpenFile file(bytes);
    EXPECT_FALSE(TextSource(file.get(), {}).isUtf8(never));
    EXPECT_FALSE(TextSource(bytes).isUtf8(never));
    for (const std::size_t head : {std::size_t{0}, std::size_t{3}, bytes.size()}) {
      const FilledPipe pipe(bytes.substr(head));
      EXPECT_FALSE(TextSource(pipe.get(), bytes.substr(0, head)).isUtf8(never)) << head;
    }
  }
}

TEST(IsUtf8, IsFalseAfterACancelAndReadingGoesOn) {
  const std::string content = someText(5 * TextSource::kWindow);
  const OpenFile file(content);
  TextSource source(file.get(), {});
  EXPECT_FALSE(source.isUtf8([] { return true; }));
  EXPECT_TRUE(readThrough(source) == content);
}

}  // namespace
}  // namespace quillon::dxf
