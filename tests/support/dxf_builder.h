#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon::testing {

/// Groups of an entity or a table entry: codes and values.
using Groups = std::initializer_list<std::pair<int, std::string_view>>;

/// Lines of a text, without their line ends.
using LineList = std::initializer_list<std::string_view>;

/// These lines, each with a line end.
inline std::string joinLines(LineList lines) {
  std::string text;
  for (const std::string_view line : lines) text.append(line).append("\n");
  return text;
}

/// Every kind of line end.
inline constexpr std::string_view kLineEnds[] = {"\n", "\r", "\r\n", "\n\r"};

/// Builds a complete, well-formed drawing, so that a test breaks one only on purpose. Empty
/// sections are left out, except ENTITIES and OBJECTS.
class DxfBuilder {
 public:
  DxfBuilder& header(std::string_view variable, int code, std::string_view value) {
    put(header_, 9, variable);
    put(header_, code, value);
    return *this;
  }
  /// `groups` follow the name; they may contain a group 0.
  DxfBuilder& layer(std::string_view name, Groups groups) {
    return entry(layers_, "LAYER", name, groups);
  }
  /// A layer with colour and line type, followed by another group so that both are kept.
  DxfBuilder& layer(std::string_view name, std::string_view lineType = "CONTINUOUS") {
    return entry(layers_, "LAYER", name, {{70, "0"}, {62, "7"}, {6, lineType}, {290, "1"}});
  }
  DxfBuilder& lineType(std::string_view name, Groups groups) {
    return entry(lineTypes_, "LTYPE", name, groups);
  }
  /// A line type with these dashes.
  DxfBuilder& dashes(std::string_view name, std::string_view totalLength,
                     std::initializer_list<std::string_view> lengths) {
    put(lineTypes_, 0, "LTYPE");
    put(lineTypes_, 2, name);
    put(lineTypes_, 70, "0");
    put(lineTypes_, 3, "dashes");
    put(lineTypes_, 72, "65");
    put(lineTypes_, 73, std::to_string(lengths.size()));
    put(lineTypes_, 40, totalLength);
    for (const std::string_view length : lengths) put(lineTypes_, 49, length);
    return *this;
  }
  DxfBuilder& style(std::string_view name, Groups groups) {
    return entry(styles_, "STYLE", name, groups);
  }

  /// An entry of any other table.
  DxfBuilder& tableEntry(const std::string& table, std::string_view name, Groups groups) {
    return entry(tables_[table], table, name, groups);
  }

  DxfBuilder& beginBlock(std::string_view name, std::string_view baseX = "0",
                         std::string_view baseY = "0") {
    put(blocks_, 0, "BLOCK");
    put(blocks_, 8, "0");
    put(blocks_, 2, name);
    put(blocks_, 70, "0");
    put(blocks_, 10, baseX);
    put(blocks_, 20, baseY);
    inBlock_ = true;
    return *this;
  }
  /// A block that stands for another drawing.
  DxfBuilder& reference(std::string_view name, std::string_view path) {
    put(blocks_, 0, "BLOCK");
    put(blocks_, 8, "0");
    put(blocks_, 2, name);
    put(blocks_, 70, "4");
    put(blocks_, 10, "0");
    put(blocks_, 20, "0");
    put(blocks_, 1, path);
    inBlock_ = true;
    return endBlock();
  }
  DxfBuilder& endBlock() {
    put(blocks_, 0, "ENDBLK");
    inBlock_ = false;
    return *this;
  }
  /// An entity in the open block, else in the ENTITIES section.
  DxfBuilder& entity(std::string_view name, Groups groups) {
    return entity(name, std::vector<std::pair<int, std::string_view>>(groups));
  }
  DxfBuilder& entity(std::string_view name,
                     const std::vector<std::pair<int, std::string_view>>& groups) {
    std::string& out = inBlock_ ? blocks_ : entities_;
    put(out, 0, name);
    for (const auto& [code, value] : groups) put(out, code, value);
    return *this;
  }

  /// The whole text.
  std::string text(std::string_view lineEnd = "\n") const {
    std::string out;
    section(out, "HEADER", header_);
    std::string tables;
    table(tables, "LTYPE", lineTypes_);
    table(tables, "LAYER", layers_);
    table(tables, "STYLE", styles_);
    for (const auto& [name, entries] : tables_) table(tables, name, entries);
    section(out, "TABLES", tables);
    section(out, "BLOCKS", blocks_);
    section(out, "ENTITIES", entities_, true);
    section(out, "OBJECTS", {}, true);
    put(out, 0, "EOF");
    return withLineEnds(out, lineEnd);
  }

  /// Converts LF line ends to others.
  static std::string withLineEnds(std::string_view text, std::string_view lineEnd) {
    std::string out;
    for (const char c : text) {
      if (c == '\n') {
        out += lineEnd;
      } else {
        out += c;
      }
    }
    return out;
  }

 private:
  static void put(std::string& out, int code, std::string_view value) {
    std::string number = std::to_string(code);
    if (number.size() < 3) number.insert(0, 3 - number.size(), ' ');
    out.append(number).append("\n").append(value).append("\n");
  }
  DxfBuilder& entry(std::string& out, std::string_view kind, std::string_view name, Groups groups) {
    put(out, 0, kind);
    put(out, 2, name);
    for (const auto& [code, value] : groups) put(out, code, value);
    return *this;
  }
  static void table(std::string& out, std::string_view name, const std::string& entries) {
    if (entries.empty()) return;
    put(out, 0, "TABLE");
    put(out, 2, name);
    put(out, 70, "1");
    out += entries;
    put(out, 0, "ENDTAB");
  }
  static void section(std::string& out, std::string_view name, const std::string& content,
                      bool always = false) {
    if (content.empty() && !always) return;
    put(out, 0, "SECTION");
    put(out, 2, name);
    out += content;
    put(out, 0, "ENDSEC");
  }

  std::string header_;
  std::string lineTypes_;
  std::string layers_;
  std::string styles_;
  std::map<std::string, std::string> tables_;
  std::string blocks_;
  std::string entities_;
  bool inBlock_ = false;
};

}  // namespace quillon::testing
