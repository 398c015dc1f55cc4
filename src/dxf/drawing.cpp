#include "dxf/drawing.h"

#include <algorithm>
#include <array>

#include "base/byte_scan.h"

namespace quillon::dxf {
namespace {

/// Whether both views refer to the same characters, not merely equal ones.
bool isSameText(std::string_view a, std::string_view b) {
  return a.data() == b.data() && a.size() == b.size();
}

/// Whether a record's name refers to the same characters as one of the last two: nested entries
/// share their names, and a long one should not be hashed again for each of them.
template <typename Records>
bool sharesName(const Records& records, std::string_view name) {
  const auto isShared = [name](const auto& record) { return isSameText(record.name, name); };
  const std::size_t last = std::min<std::size_t>(records.size(), 2);
  return std::any_of(records.end() - static_cast<std::ptrdiff_t>(last), records.end(), isShared);
}

}  // namespace

bool BlockRec::isLayout() const {
  static constexpr std::array<std::string_view, 4> kLayoutNames = {"*MODEL_SPACE", "*PAPER_SPACE",
                                                                   "$MODEL_SPACE", "$PAPER_SPACE"};
  return std::any_of(kLayoutNames.begin(), kLayoutNames.end(),
                     [this](std::string_view prefix) { return name.starts_with(prefix); });
}

std::uint64_t BlockRec::lineAt(const char* position, char eol) const {
  const std::less_equal<const char*> notBehind;
  if (position == nullptr || !notBehind(text.begin, position) || !notBehind(position, text.end)) {
    return 0;
  }
  // A position at the very end belongs to the last line.
  const char* const inside =
      position == text.end && position != text.begin ? position - 1 : position;
  return firstLine +
         base::countByte({text.begin, static_cast<std::size_t>(inside - text.begin)}, eol);
}

std::uint64_t Drawing::nextSideIndex(EntityKind kind) {
  if (!hasSideRecord(kind)) return 0;
  return kind == EntityKind::Spline ? ++splineData : ++polyVertexLists;
}

std::uint64_t Drawing::lineInBlocks(const char* position) const {
  for (const BlockRec& block : blocks) {
    const std::uint64_t line = block.lineAt(position, lineEnds.eolChar);
    if (line != 0) return line;
  }
  return 0;
}

void Drawing::addLayer(LayerRec layer) {
  if (!sharesName(layers, layer.name)) layerIndex.try_emplace(layer.name, layers.size());
  layers.push_back(layer);
}

bool Drawing::isFirstLayer(std::size_t index) const {
  const std::string_view name = layers[index].name;
  for (std::size_t i = index; i > 0 && i + 2 > index; --i) {
    if (isSameText(layers[i - 1].name, name)) return false;
  }
  const auto found = layerIndex.find(name);
  return found != layerIndex.end() && found->second == index;
}

void Drawing::addLineType(const LineTypeRec& lineType) {
  if (!sharesName(lineTypes, lineType.name)) {
    lineTypeIndex.try_emplace(lineType.name, lineTypes.size());
  }
  lineTypes.push_back(lineType);
  lineTypes.back().number = lineTypes.size() - 1;
}

void Drawing::addBlock(const BlockRec& block) {
  blockIndex.try_emplace(block.name, blocks.size());
  blocks.push_back(block);
}

const LayerRec* Drawing::findLayer(std::string_view name) const {
  const auto found = layerIndex.find(name);
  return found == layerIndex.end() ? nullptr : &layers[found->second];
}

const LineTypeRec* Drawing::findLineType(std::string_view name) const {
  const auto found = lineTypeIndex.find(name);
  return found == lineTypeIndex.end() ? nullptr : &lineTypes[found->second];
}

std::size_t findBlock(const Drawing& drawing, std::string_view name) {
  const auto found = drawing.blockIndex.find(name);
  return found == drawing.blockIndex.end() ? 0 : found->second;
}

}  // namespace quillon::dxf
