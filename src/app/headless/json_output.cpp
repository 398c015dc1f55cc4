#include "app/headless/json_output.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <map>

#include "base/encoding.h"
#include "dxf/entity_kinds.h"

namespace quillon::headless {
namespace {

using convert::ConversionResult;
using convert::Message;
using convert::Outcome;

/// An object or array built member by member.
class Members {
 public:
  explicit Members(char open) : text_(1, open), close_(open == '{' ? '}' : ']') {}

  void add(std::string_view name, const std::string& value) {
    addValue(jsonString(name) + ":" + value);
  }
  void addValue(const std::string& value) {
    if (text_.size() > 1) text_ += ",";
    text_ += value;
  }
  std::string close() { return text_ + close_; }

 private:
  std::string text_;
  char close_;
};

/// JSON has no numbers that are not finite.
std::string number(double value) {
  if (!std::isfinite(value)) return "null";
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return {buffer.data(), end};
}

std::string stringOrNull(std::string_view text) { return text.empty() ? "null" : jsonString(text); }

std::string base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::string_view group = bytes.substr(i, 3);
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (k < group.size() ? static_cast<unsigned char>(group[k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      out += k <= group.size() ? kDigits[bits >> (18 - 6 * k) & 63U] : '=';
    }
  }
  return out;
}

/// The paths of one conversion. File names may contain any bytes, which JSON cannot represent: for
/// names that are not UTF-8, "pathBytes" has the same keys with the bytes as base64.
class Paths {
 public:
  void add(Members& members, std::string_view name, std::string_view path) {
    members.add(name, stringOrNull(path));
    if (base::isValidUtf8(path)) return;
    bytes_.add(name, jsonString(base64(path)));
    any_ = true;
  }
  void addBytes(Members& members) {
    if (any_) members.add("pathBytes", bytes_.close());
  }

 private:
  Members bytes_{'{'};
  bool any_ = false;
};

const char* outcomeText(Outcome outcome) {
  switch (outcome) {
    case Outcome::Converted:
      return "converted";
    case Outcome::Cancelled:
      return "cancelled";
    case Outcome::Ended:
      break;
  }
  return "failed";
}

void addCounts(Members& members, const std::map<std::string, std::uint64_t>& counts) {
  for (const auto& [name, count] : counts) members.add(name, std::to_string(count));
}

std::string entities(const ConversionResult& result) {
  Members members('{');
  for (std::size_t i = 0; i < result.counts.size(); ++i) {
    const auto kind = static_cast<dxf::EntityKind>(i);
    const bool reported = kind != dxf::EntityKind::Vertex && kind != dxf::EntityKind::Seqend &&
                          kind != dxf::EntityKind::None;
    const std::uint64_t converted = result.counts[i] - result.leftOut[i];
    if (converted > 0 && reported) {
      members.add(dxf::entityName(kind), std::to_string(converted));
    }
  }
  if (result.exact) addCounts(members, result.exact->otherCounts);
  return members.close();
}

std::string unrecognised(const ConversionResult& result) {
  Members members('{');
  addCounts(members, result.unknownKinds);
  return members.close();
}

/// Entities on layers assigned to 999.
std::string leftOut(const ConversionResult& result) {
  Members members('{');
  for (std::size_t i = 0; i < result.leftOut.size(); ++i) {
    const auto kind = static_cast<dxf::EntityKind>(i);
    if (result.leftOut[i] > 0 && kind != dxf::EntityKind::None)
      members.add(dxf::entityName(kind), std::to_string(result.leftOut[i]));
  }
  if (result.exact) addCounts(members, result.exact->otherLeftOut);
  return members.close();
}

/// Entities dropped because of damage.
std::string dropped(const ConversionResult& result) {
  if (result.dropped.count == 0) return "null";
  Members members('{');
  members.add("count", std::to_string(result.dropped.count));
  members.add("firstLine", std::to_string(result.dropped.firstLine));
  return members.close();
}

std::string extents(const eagle::Extents& box) {
  if (box.empty()) return "null";
  Members members('{');
  members.add("minX", number(box.minX));
  members.add("minY", number(box.minY));
  members.add("maxX", number(box.maxX));
  members.add("maxY", number(box.maxY));
  return members.close();
}

std::string losses(const ConversionResult& result) {
  Members list('[');
  for (const convert::NamedLoss& loss : result.losses) {
    Members members('{');
    members.add("rule", jsonString(rules::wordOf(loss.rule)));
    members.add("kind", jsonString(loss.kind));
    if (!loss.name.empty()) members.add("name", jsonString(loss.name));
    members.add("count", std::to_string(loss.count));
    members.add("line", std::to_string(loss.line));
    members.add("layer", jsonString(loss.layer));
    members.add("x", number(loss.at.x));
    members.add("y", number(loss.at.y));
    list.addValue(members.close());
  }
  return list.close();
}

std::string gaps(const exact::OutlineReport& outlines) {
  Members list('[');
  for (const exact::OpenEnd& gap : outlines.gaps) {
    Members members('{');
    members.add("layer", std::to_string(gap.layer));
    members.add("x", number(gap.at.x));
    members.add("y", number(gap.at.y));
    members.add("line", std::to_string(gap.line));
    if (gap.hasNext) {
      members.add("nextX", number(gap.next.x));
      members.add("nextY", number(gap.next.y));
      members.add("nextLine", std::to_string(gap.nextLine));
      members.add("distance", number(gap.distance));
    }
    list.addValue(members.close());
  }
  return list.close();
}

std::string unit(const convert::UnitChoice& choice) {
  Members members('{');
  members.add("millimetres", number(choice.millimetres));
  members.add("assumed", choice.isAssumed ? "true" : "false");
  members.add("doubted", choice.isDoubted ? "true" : "false");
  return members.close();
}

std::string kindText(convert::MessageKind kind) {
  return kind == convert::MessageKind::Warning ? "\"warning\"" : "\"error\"";
}

std::string messageList(const std::vector<Message>& messages) {
  Members list('[');
  for (const Message& message : messages) {
    Members members('{');
    members.add("kind", kindText(message.kind));
    members.add("text", jsonString(message.detail));
    list.addValue(members.close());
  }
  return list.close();
}

/// The paths of a line, "" for none.
struct LinePaths {
  std::string_view script;
  std::string_view report;
  std::string_view preview;
};

std::string line(const ConversionResult& result, const LinePaths& results, const char* outcome,
                 const std::vector<Message>& messages) {
  Members members('{');
  Paths paths;
  paths.add(members, "dxf", result.dxfFile);
  paths.add(members, "script", results.script);
  paths.add(members, "report", results.report);
  paths.add(members, "preview", results.preview);
  paths.addBytes(members);
  members.add("outcome", jsonString(outcome));
  members.add("linesRead", std::to_string(result.fileLinesRead));
  members.add("linesWritten", std::to_string(result.commandCount));
  members.add("entities", entities(result));
  members.add("leftOut", leftOut(result));
  members.add("notRecognised", unrecognised(result));
  members.add("damaged", dropped(result));
  members.add("extents", extents(result.extents));
  members.add("rangeWarning", result.rangeWarning ? "true" : "false");
  if (result.exact) members.add("unit", unit(result.exact->unit));
  if (result.outcome != Outcome::Ended || result.exact) members.add("losses", losses(result));
  if (result.exact) members.add("gaps", gaps(result.exact->outlines));
  members.add("messages", messageList(messages));
  return members.close() + "\n";
}

}  // namespace

std::string jsonString(std::string_view text) {
  static constexpr std::string_view kHex = "0123456789abcdef";
  std::string out = "\"";
  const std::string utf8 = base::toUtf8(text, base::Encoding::Utf8);
  const auto putEscape = [&out](unsigned code) {
    out += {'\\', 'u', '0', '0', kHex[code >> 4], kHex[code & 15]};
  };
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    const auto byte = static_cast<unsigned char>(c);
    const unsigned next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0U;
    if (c == '"' || c == '\\') {
      out += {'\\', c};
    } else if (byte < 0x20 || byte == 0x7F) {
      putEscape(byte);
    } else if (byte == 0xC2 && next < 0xA0) {
      putEscape(next);  // control characters that terminals obey as well
      ++i;
    } else {
      out += c;
    }
  }
  return out + "\"";
}

std::string toJson(const ConversionResult& result, const Written& others,
                   const std::vector<Message>& messages) {
  LinePaths paths;
  if (result.outcome != Outcome::Ended) paths = {result.scriptFile, others.report, others.preview};
  return line(result, paths, outcomeText(result.outcome), messages);
}

std::string skippedJson(const std::string& drawing, const std::string& script) {
  ConversionResult none;
  none.dxfFile = drawing;
  return line(none, {script, {}, {}}, "skipped", {});
}

}  // namespace quillon::headless
