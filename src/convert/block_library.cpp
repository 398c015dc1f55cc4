#include "convert/block_library.h"

#include <cmath>

#include "dxf/number_text.h"
#include "dxf/run_time_error.h"

namespace quillon::convert {

std::string makePartName(std::string_view blockName, std::size_t row, dxf::Encoding encoding) {
  std::string name;
  for (const char c : blockName) {
    const bool tail =
        encoding == dxf::Encoding::Utf8 && (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    if (tail) continue;  // a character of several bytes becomes one "_"
    const bool allowed = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
    name += allowed ? c : '_';
  }
  return name + "_" + std::to_string(row);
}

bool BlockLibrary::insertPart(std::size_t blockIndex, emit::Corner insertion,
                              const emit::Placement& placement) {
  if (writingPart_) return false;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  // Parts are told apart by these numbers, which therefore have to be numbers.
  if (!std::isfinite(placement.scaleX + placement.scaleY + placement.rotation)) {
    throw dxf::RunTimeError(dxf::Fault::BadNumber, {});
  }
  inserted_.insert(block.name);
  const std::string* part = findPart(block.name, placement);
  if (part == nullptr) {
    part = &addRow(block.name, placement);
    writePart(blockIndex, *part, placement);
    commands_.writeUseLibrary();
  }
  script_.text("Add ").text(*part).text("@").text(commands_.drawingName()).text(" R0 ");
  script_.formatPoint(insertion.x - dxf::numberValue(block.baseX),
                      insertion.y - dxf::numberValue(block.baseY));
  script_.text(";").endLine();
  script_.finishCommand(1);
  return true;
}

void BlockLibrary::writeRemainingPart(std::size_t blockIndex) {
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  const emit::Placement asIs;
  if (block.isLayout() || findPart(block.name, asIs) != nullptr) return;
  writePart(blockIndex, addRow(block.name, asIs), asIs);
}

const std::vector<std::string>& BlockLibrary::partNames(std::string_view blockName) const {
  static const std::vector<std::string> none;
  const auto found = namesByBlock_.find(blockName);
  return found == namesByBlock_.end() ? none : found->second;
}

const std::string* BlockLibrary::findPart(std::string_view blockName,
                                          const emit::Placement& placement) const {
  const auto found =
      parts_.find(Key(blockName, placement.scaleX, placement.scaleY, placement.rotation));
  return found == parts_.end() ? nullptr : &found->second;
}

const std::string& BlockLibrary::addRow(std::string_view blockName,
                                        const emit::Placement& placement) {
  const std::string name = makePartName(blockName, ++rows_, drawing_.encoding);
  namesByBlock_[blockName].push_back(name);
  const Key key(blockName, placement.scaleX, placement.scaleY, placement.rotation);
  return parts_.try_emplace(key, name).first->second;
}

void BlockLibrary::writePart(std::size_t blockIndex, const std::string& partName,
                             const emit::Placement& placement) {
  commands_.writeBlockLibraryOpen(partName);
  writingPart_ = true;
  emit::Placement inner = placement;
  inner.dx = 0.0;
  inner.dy = 0.0;
  translator_.translateBlock(blockIndex, inner);
  writingPart_ = false;
  if (targetKind_ == kSchematic) commands_.writeBlockDevice(partName);
}

}  // namespace quillon::convert
