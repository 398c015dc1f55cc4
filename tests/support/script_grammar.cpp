#include "support/script_grammar.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>

namespace quillon::testing {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

/// Parses a line from left to right. Each function says whether the line continues as expected.
class LineScan {
 public:
  LineScan(std::string_view line, bool relative) : rest_(line), relative_(relative) {}

  bool atEnd() const { return rest_.empty(); }
  bool literal(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }
  bool anyOf(std::initializer_list<std::string_view> texts) {
    return std::any_of(texts.begin(), texts.end(), [this](auto text) { return literal(text); });
  }
  bool digits(std::size_t least = 1) {
    const std::size_t count = static_cast<std::size_t>(
        std::find_if_not(rest_.begin(), rest_.end(), isDigit) - rest_.begin());
    rest_.remove_prefix(count);
    return count >= least;
  }
  /// Digits without leading zeros, a point and exactly seven decimals.
  bool number() {
    literal("-");
    const bool plainZero = !rest_.starts_with('0') || (rest_.size() > 1 && !isDigit(rest_[1]));
    if (!plainZero || !digits() || !literal(".")) return false;
    const std::string_view before = rest_;
    constexpr std::size_t kDecimals = 7;
    return digits() && before.size() - rest_.size() == kDecimals;
  }
  bool point() {
    return literal(relative_ ? "(R" : "(") && number() && literal(" ") && number() && literal(")");
  }
  bool points(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      if ((i > 0 && !literal(" ")) || !point()) return false;
    }
    return literal(";") && atEnd();
  }
  /// A quoted name with one of these endings.
  bool quotedName(std::initializer_list<std::string_view> endings) {
    if (!literal("'")) return false;
    const std::size_t stop = rest_.find('\'');
    if (stop == std::string_view::npos) return false;
    const std::string_view name = rest_.substr(0, stop);
    rest_.remove_prefix(stop + 1);
    return isName(name) && std::any_of(endings.begin(), endings.end(),
                                       [name](auto ending) { return name.ends_with(ending); });
  }
  /// An unquoted name, up to this text.
  bool bareName(std::string_view upTo) {
    const std::size_t stop = rest_.rfind(upTo);
    if (stop == std::string_view::npos) return false;
    const std::string_view name = rest_.substr(0, stop);
    rest_.remove_prefix(stop);
    return isName(name);
  }
  /// A quoted text with doubled apostrophes and a blank before the closing quote.
  bool quotedText() {
    if (!literal("'")) return false;
    char last = '\0';
    while (!rest_.empty()) {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == '\'' && !literal("'")) return last == ' ';
      if (c == '\r' || c == '\n') return false;
      last = c;
    }
    return false;
  }
  bool partName() {
    const std::size_t stop = rest_.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-");
    const std::string_view name = rest_.substr(0, stop);
    rest_.remove_prefix(name.size());
    const std::size_t line = name.rfind('_');
    return line != std::string_view::npos && line + 1 < name.size() &&
           std::all_of(name.begin() + static_cast<std::ptrdiff_t>(line) + 1, name.end(), isDigit);
  }

 private:
  static bool isName(std::string_view name) {
    return !name.empty() && name.find_first_of("';") == std::string_view::npos &&
           std::none_of(name.begin(), name.end(), isControl);
  }

  std::string_view rest_;
  bool relative_;
};

/// Checks one script, line by line.
class ScriptCheck {
 public:
  ScriptCheck(std::string_view script, const ScriptRules& rules) : script_(script), rules_(rules) {
    for (const std::string& line : rules.endBlock) endBlock_ += line + "\r\n";
  }

  ScriptFacts run() {
    while (!script_.empty() && facts_.fault.empty()) checkNext();
    if (!facts_.fault.empty()) return facts_;
    if (inPolygon_) fail("", "the last polygon is not closed");
    if (expected_ < rules_.startBlock.size()) fail("", "the frame's first lines are missing");
    if (!ended_ && !endBlock_.empty()) fail("", "the frame's last lines are missing");
    return facts_;
  }

 private:
  static constexpr auto kNothing = static_cast<std::size_t>(-1);

  void fail(std::string_view line, std::string_view why) {
    facts_.fault = "line " + std::to_string(facts_.lines) + ": " + std::string(why) + ": ";
    facts_.fault += line.substr(0, 200);
  }

  void checkNext() {
    if (atEndBlock()) return;
    const std::size_t stop = script_.find("\r\n");
    const std::string_view line = script_.substr(0, stop);
    ++facts_.lines;
    if (stop == std::string_view::npos) return fail(line, "no CR LF at its end");
    script_.remove_prefix(stop + 2);
    if (expected_ < rules_.startBlock.size()) {
      if (line != rules_.startBlock[expected_]) return fail(line, "no line of the frame");
      ++expected_;
      return;
    }
    if (!isLine(line)) fail(line, "no line of a script");
  }

  /// The frame's last lines end the script; nothing may follow them.
  bool atEndBlock() {
    if (inPolygon_ || expected_ < rules_.startBlock.size() || script_ != endBlock_) return false;
    ended_ = true;
    facts_.lines += rules_.endBlock.size();
    script_ = {};
    return true;
  }

  template <typename Form>
  bool matches(std::string_view line, const Form& form) const {
    LineScan scan(line, rules_.relative);
    return form(scan) && scan.atEnd();
  }

  bool isLine(std::string_view line) {
    if (inPolygon_) return isPolygonLine(line);
    if (line.starts_with("Polygon")) return isPolygon(line);
    if (isGrid(line)) {
      expected_ = 0;
      return true;
    }
    return isFixed(line) || isLayer(line) || isWire(line) || isCurve(line) || isText(line) ||
           isNameLine(line);
  }

  static bool isFixed(std::string_view line) {
    static constexpr std::array<std::string_view, 6> kLines = {
        "# In the previous command some coordinates are out of range!",
        "Write;",
        "Set Wire_Bend 2;",
        "Set Wire_Style 2;",
        "Change Pour Solid;",
        "Change Pour Hatch;"};
    return std::find(kLines.begin(), kLines.end(), line) != kLines.end();
  }

  bool isGrid(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      return s.literal("Grid ") && s.anyOf({"mic;", "mm;", "mil;", "inch;"});
    });
  }

  bool isLayer(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      return s.literal("Layer ") && s.anyOf({" ", "-"}) && s.digits() && s.literal(" ;");
    });
  }

  bool isWire(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      if (!s.literal("Wire ")) return false;
      const bool width = s.anyOf({" 0.00 ", "0.00 "}) || (s.number() && s.literal(" "));
      return width && s.points(2);
    });
  }

  bool isCurve(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      if (s.literal("Circle 0.0 ") || s.literal("Circle ")) return s.points(2);
      if (s.literal("Arc CCW 0.00 ")) return s.points(3);
      return s.anyOf({"Arc CCW ", "Arc CW "}) && s.number() && s.literal(" ") && s.points(3);
    });
  }

  bool isText(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      if (s.literal("Change Size ")) return s.number() && s.literal(";");
      return s.anyOf({"Text R0 ", "Text R90 "}) && s.quotedText() && s.literal(" ") && s.points(1);
    });
  }

  bool isNameLine(std::string_view line) const {
    return matches(line, [](LineScan& s) {
      if (s.literal("Open ") || s.literal("Use ")) return s.quotedName({""}) && s.literal(";");
      if (s.literal("Add '")) return s.partName() && s.literal(".sym' (0 0);");
      if (s.literal("Add ")) {
        return s.partName() && s.literal("@") && s.bareName(" R0 (") && s.literal(" R0 ") &&
               s.points(1);
      }
      return s.literal("Edit ") && s.quotedName({".brd", ".sch", ".pac", ".sym", ".dev"}) &&
             s.literal(";");
    });
  }

  bool isPolygon(std::string_view line) {
    const bool area = matches(line, [](LineScan& s) {
      if (!s.literal("Polygon ") || !s.number() || !s.literal(" ") || !s.point()) return false;
      if (!s.literal(" ") || !s.point()) return false;
      while (s.point()) {
      }
      return s.literal(";");
    });
    if (area) return true;
    bool goesOn = false;
    const std::string opening = "'" + std::to_string(facts_.namedPolygons + 1) + "' ";
    const bool named = matches(line, [&](LineScan& s) {
      if (!s.literal("Polygon ") || !s.number() || !s.literal(" ") || !s.literal(opening)) {
        return false;
      }
      if (!s.point() || !s.literal(" ")) return false;
      const bool second = s.point();
      goesOn = s.literal("\\");
      if (goesOn) return true;
      // Without a second point, the closing point repeats the first.
      if (second) s.point();
      return second && s.literal(";");
    });
    if (!named) return false;
    ++facts_.namedPolygons;
    inPolygon_ = goesOn;
    return true;
  }

  bool isPolygonLine(std::string_view line) {
    bool goesOn = false;
    const bool right = matches(line, [&](LineScan& s) {
      if (!s.point()) return false;
      goesOn = s.literal("\\");
      return goesOn || (s.point() && s.literal(";"));
    });
    inPolygon_ = goesOn;
    return right;
  }

  std::string_view script_;
  const ScriptRules& rules_;
  ScriptFacts facts_;
  bool inPolygon_ = false;
  std::string endBlock_;
  bool ended_ = false;
  std::size_t expected_ = kNothing;  ///< index of the frame's line that must come next
};

}  // namespace

ScriptFacts checkScript(std::string_view script, const ScriptRules& rules) {
  return ScriptCheck(script, rules).run();
}

}  // namespace quillon::testing
