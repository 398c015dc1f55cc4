#include "convert/block_library.h"

#include <cmath>

#include "base/number_text.h"
#include "base/run_time_error.h"

namespace quillon::convert {

std::string makePartName(std::string_view blockName, std::size_t row, base::Encoding encoding) {
  std::string name;
  for (const char c : blockName) {
    const bool tail =
        encoding == base::Encoding::Utf8 && (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    if (tail) continue;  // a multi-byte character becomes a single "_"
    const bool allowed = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    name += allowed ? c : '_';
  }
  return name + "_" + std::to_string(row);
}

bool BlockLibrary::insertPart(std::size_t blockIndex, geometry::Point insertion,
                              const geometry::Placement& placement) {
  if (writingPart_) return false;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  // Parts are distinguished by these numbers, so they must be finite.
  if (!std::isfinite(placement.scaleX + placement.scaleY + placement.rotation)) {
    throw base::RunTimeError(base::Fault::BadNumber, {});
  }
  inserted_.insert(block.name);
  const std::string* part = findPart(block.name, placement);
  if (part == nullptr) {
    part = &addRow(block.name, placement);
    writePart(blockIndex, *part, placement);
    target_.writeUseLibrary();
  }
  const geometry::Point at{insertion.x - base::numberValue(block.baseX),
                           insertion.y - base::numberValue(block.baseY)};
  commands_.part({*part, target_.drawingName(), at});
  return true;
}

void BlockLibrary::writeRemainingPart(std::size_t blockIndex) {
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  const geometry::Placement asIs;
  if (block.isLayout() || findPart(block.name, asIs) != nullptr) return;
  writePart(blockIndex, addRow(block.name, asIs), asIs);
}

const std::vector<std::string>& BlockLibrary::partNames(std::string_view blockName) const {
  static const std::vector<std::string> none;
  const auto found = namesByBlock_.find(blockName);
  return found == namesByBlock_.end() ? none : found->second;
}

const std::string* BlockLibrary::findPart(std::string_view blockName,
                                          const geometry::Placement& placement) const {
  const auto found =
      parts_.find(Key(blockName, placement.scaleX, placement.scaleY, placement.rotation));
  return found == parts_.end() ? nullptr : &found->second;
}

std::string BlockLibrary::addName(std::string_view blockName) {
  std::string name = makePartName(blockName, ++rows_, drawing_.encoding);
  namesByBlock_[blockName].push_back(name);
  return name;
}

const std::string& BlockLibrary::addRow(std::string_view blockName,
                                        const geometry::Placement& placement) {
  const Key key(blockName, placement.scaleX, placement.scaleY, placement.rotation);
  return parts_.try_emplace(key, addName(blockName)).first->second;
}

void BlockLibrary::writePart(std::size_t blockIndex, const std::string& partName,
                             const geometry::Placement& placement) {
  target_.writeBlockLibraryOpen(partName);
  writingPart_ = true;
  geometry::Placement inner = placement;
  inner.dx = 0.0;
  inner.dy = 0.0;
  translation_.translateBlock(blockIndex, inner);
  writingPart_ = false;
  closePart(partName);
}

void BlockLibrary::noteInsertion(std::size_t blockIndex) {
  inserted_.insert(drawing_.blocks[blockIndex].name);
}

std::string BlockLibrary::openPart(std::size_t blockIndex) {
  std::string name = addName(drawing_.blocks[blockIndex].name);
  target_.writeBlockLibraryOpen(name);
  return name;
}

void BlockLibrary::closePart(std::string_view name) {
  if (targetKind_ == kSchematic) target_.writeBlockDevice(name);
}

}  // namespace quillon::convert
