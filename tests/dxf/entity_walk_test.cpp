#include "dxf/entity_walk.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "support/read_drawing.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::OpenFile;
using testing::ReadDrawing;
using Lines = std::vector<std::string>;

/// A straightforward walk over the ENTITIES section, on a list of lines.
class PlainWalk {
 public:
  explicit PlainWalk(const Lines& lines) {
    for (const std::string& line : lines) {
      lines_.emplace_back(base::trimBlanks(line));
      if (lines_.back() == "ENDSEC") break;
    }
    walk();
  }

  Lines entities;  ///< kind, first layer and first x
  std::map<std::string, std::uint64_t> unknown;
  std::uint64_t dropped = 0;

 private:
  struct Broken {};

  const std::string& line(std::size_t i) const {
    if (i >= lines_.size()) throw Broken{};
    return lines_[i];
  }

  void walk() {
    std::size_t i = 0;
    while (i < lines_.size()) {
      std::size_t afterName = lines_.size();
      bool inEntity = false;
      try {
        const std::string& name = line(i + 1);
        if (!isEntityName(name) && isNameMissing(i)) {
          afterName = i + 1;
          inEntity = true;
          throw Broken{};
        }
        if (!isEntityName(name)) {
          if (line(i) == "0" && name != "ENDSEC" && !name.empty()) ++unknown[name];
          i += 2;
        } else if (base::numberValue(line(i)) != 0.0) {
          i += 2;
        } else {
          afterName = i + 2;
          inEntity = true;
          i = readEntity(name, i + 2);
        }
      } catch (const Broken&) {
        if (inEntity) ++dropped;
        i = nextEntity(afterName);
      }
    }
  }

  static bool isNumberText(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789.") == std::string::npos;
  }

  bool isNameMissing(std::size_t i) const {
    if (base::numberValue(lines_[i]) != 0.0) return false;
    const std::string& name = lines_[i + 1];
    return name.empty() ? !lines_[i].empty() : isNumberText(name);
  }

  /// Whether the "0" of line i was a value instead of a group code.
  bool isCutOffAt(std::size_t i) const {
    if (i + 1 >= lines_.size() || !isNumberText(lines_[i + 1])) return false;
    const std::string& text = lines_[i + 1];
    const bool subclass = text == "100" && i + 2 < lines_.size() && lines_[i + 2] == "AcDbEntity";
    return text != "0" && text != "5" && text != "8" && !subclass;
  }

  std::size_t readEntity(const std::string& name, std::size_t i) {
    std::map<int, std::string> first;
    std::string pendingX;
    for (; line(i) != "0"; i += 2) {
      int code = 0;
      try {
        code = base::groupCode(lines_[i]);
      } catch (const base::RunTimeError&) {
        throw Broken{};
      }
      const std::string& value = line(i + 1);
      if (value == "ENDSEC") throw Broken{};
      first.emplace(code, value);
      if (code == 10) pendingX.clear();
      if (code == 11 || code == 41) pendingX = value;
      if (name == "SPLINE" && code == 12 && !pendingX.empty() && !value.empty()) throw Broken{};
    }
    if (isCutOffAt(i)) throw Broken{};
    std::string text = name;
    if (name != "SEQEND") text += '/' + base::upperCase(first[8], base::Encoding::Windows1252);
    if (name == "LINE") text += '/' + first[10];
    entities.push_back(text);
    return i;
  }

  std::size_t nextEntity(std::size_t from) const {
    for (std::size_t i = from; i + 1 < lines_.size(); ++i) {
      if (lines_[i] == "0" && isEntityName(lines_[i + 1])) return i;
    }
    return lines_.size();
  }

  Lines lines_;
};

Lines describe(const ReadDrawing& read) {
  Lines entities;
  for (const DxfEntity& entity : read.entities()) {
    std::string text(entityName(entity.kind));
    if (entity.layer != nullptr) text.append("/").append(entity.layer->name);
    if (entity.kind == EntityKind::Line) text.append("/").append(entity.value(0));
    entities.push_back(text);
  }
  return entities;
}

/// Random lines as in drawings: entities that are complete, broken and cut off.
Lines randomLines(std::mt19937& random, std::size_t count, unsigned endsecEvery) {
  constexpr std::string_view kPool[] = {
      "0",      "0",  "0",     "  0", "LINE", "LINE",  "SPLINE", "SEQEND", "HATCH",
      "8",      "8",  "layer", "10",  "1.5",  "11",    "12",     "41",     " 20 ",
      "LEADER", "00", "0.0",   "x",   "",     "POINT", "5",      "100",    "AcDbEntity"};
  constexpr std::string_view kWhole[][6] = {{"0", "LINE", "8", "a", "10", "7"},
                                            {"0", "SPLINE", "41", "1", "8", "b"},
                                            {"0", "LWPOLYLINE", "8", "c", "70", "1"}};
  Lines lines;
  while (lines.size() < count) {
    if (endsecEvery != 0 && random() % endsecEvery == 0) lines.emplace_back("ENDSEC");
    if (random() % 4 == 0) {
      const auto& whole = kWhole[random() % std::size(kWhole)];
      lines.insert(lines.end(), std::begin(whole), std::end(whole));
    } else {
      lines.emplace_back(kPool[random() % std::size(kPool)]);
    }
  }
  return lines;
}

std::string textOf(const Lines& lines) {
  std::string text = "2\nENTITIES\n";
  for (const std::string& line : lines) text.append(line).append("\n");
  return text;
}

TEST(EntityWalk, FollowsItsRulesOnRandomLines) {
  std::mt19937 random(77);
  for (int i = 0; i < 10'000; ++i) {
    const Lines lines = randomLines(random, random() % 40, 60);
    const PlainWalk plain(lines);
    const ReadDrawing read(textOf(lines));
    ASSERT_EQ(describe(read), plain.entities) << textOf(lines);
    ASSERT_EQ(read.drawing.unknownKinds, UnknownKinds(plain.unknown.begin(), plain.unknown.end()))
        << textOf(lines);
    ASSERT_EQ(read.drawing.dropped.count, plain.dropped) << textOf(lines);
  }
}

TEST(EntityWalk, CountsNoNamesThatStructureADrawing) {
  const ReadDrawing read(textOf({"0", "EOF", "0", "SECTION", "0", "TABLE", "0", "ENDTAB", "0",
                                 "BLOCK", "0", "ENDBLK", "0", "HATCH", "0", "ENDSEC"}));
  EXPECT_EQ(read.drawing.unknownKinds, (UnknownKinds{{"HATCH", 1}}));
}

TEST(EntityWalk, CountsTheRestOfVeryManyNamesTogether) {
  Lines lines;
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 1500; ++i) lines.insert(lines.end(), {"0", "NAME" + std::to_string(i)});
  }
  const ReadDrawing read(textOf(lines));
  EXPECT_EQ(read.drawing.unknownKinds.size(), 1001U);
  EXPECT_EQ(read.drawing.unknownKinds.at("NAME0"), 2U);
  EXPECT_EQ(read.drawing.unknownKinds.at("(other)"), 1000U);
}

TEST(EntityWalk, FollowsItsRulesAcrossWindows) {
  std::mt19937 random(78);
  for (int i = 0; i < 2; ++i) {
    const Lines lines = randomLines(random, 150'000, 0);
    const PlainWalk plain(lines);
    const OpenFile file(textOf(lines));
    const ReadDrawing read(file.get());
    ASSERT_TRUE(describe(read) == plain.entities) << i;
    EXPECT_EQ(read.drawing.unknownKinds, UnknownKinds(plain.unknown.begin(), plain.unknown.end()));
    EXPECT_EQ(read.drawing.dropped.count, plain.dropped);
  }
}

}  // namespace
}  // namespace quillon::dxf
