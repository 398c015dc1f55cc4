#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_set>
#include <vector>

#include "base/text_hash.h"
#include "convert/target_commands.h"
#include "exact/part_frame.h"
#include "rules/translation.h"

namespace quillon::convert {

/// Turns blocks into parts of a library named like the drawing. By the classic rules, each block is
/// written once for each scale and rotation of its insertions; the exact rules decide that
/// themselves.
class BlockLibrary : public rules::BlockParts, public exact::PartFrame {
 public:
  BlockLibrary(eagle::Commands& commands, TargetCommands& target, rules::Translation& translation,
               const dxf::Drawing& drawing, int targetKind)
      : commands_(commands),
        target_(target),
        translation_(translation),
        drawing_(drawing),
        targetKind_(targetKind) {}

  /// Writes the part if it is new, then the command that adds it to the drawing. False while a part
  /// is being written: blocks within a part are drawn in place.
  bool insertPart(std::size_t blockIndex, geometry::Point insertion,
                  const geometry::Placement& placement) override;

  /// Writes the part of a block that was not inserted as it is, unless it exists. Layout blocks are
  /// skipped.
  void writeRemainingPart(std::size_t blockIndex);

  std::string_view libraryName() const override { return target_.drawingName(); }
  void noteInsertion(std::size_t blockIndex) override;
  std::string openPart(std::size_t blockIndex) override;
  void closePart(std::string_view name) override;
  void returnToDrawing() override { target_.writeUseLibrary(); }

  /// True when a block of this name was inserted in the drawing.
  bool wasInserted(std::string_view blockName) const { return inserted_.contains(blockName); }
  /// The names of a block's parts, in order of creation.
  const std::vector<std::string>& partNames(std::string_view blockName) const;

 private:
  using Key = std::tuple<std::string_view, double, double, double>;

  const std::string* findPart(std::string_view blockName,
                              const geometry::Placement& placement) const;
  std::string addName(std::string_view blockName);
  const std::string& addRow(std::string_view blockName, const geometry::Placement& placement);
  void writePart(std::size_t blockIndex, const std::string& partName,
                 const geometry::Placement& placement);

  eagle::Commands& commands_;
  TargetCommands& target_;
  rules::Translation& translation_;
  const dxf::Drawing& drawing_;
  int targetKind_;
  bool writingPart_ = false;
  std::size_t rows_ = 0;
  std::map<Key, std::string> parts_;
  std::map<std::string_view, std::vector<std::string>> namesByBlock_;
  std::unordered_set<std::string_view, base::TextHash> inserted_;
};

/// Name of a block's part: characters other than A-Z, 0-9, "_" and "-" become "_", followed by the
/// row's number.
std::string makePartName(std::string_view blockName, std::size_t row, base::Encoding encoding);

}  // namespace quillon::convert
