#pragma once

#include <cstdint>
#include <string>

#include "convert/drawing_input.h"
#include "dxf/text_source.h"

namespace quillon::convert {

/// A drawing that was read once and is held in memory, to be converted again and again. Only one
/// conversion at a time may use it.
class HeldDrawing {
 public:
  /// Reads the file. Throws base::ReadError and dxf::InputTooLarge; a cancel leaves a part of it.
  HeldDrawing(const std::string& path, const DrawingInput::Cancelled& cancelled,
              const dxf::InputLimits& limits);

  const std::string& path() const { return path_; }
  InputKind kind() const { return kind_; }
  std::uint64_t size() const { return text_.fileSize(); }
  dxf::TextSource& text() { return text_; }

 private:
  HeldDrawing(const std::string& path, const DrawingInput& input,
              const DrawingInput::Cancelled& cancelled, const dxf::InputLimits& limits)
      : path_(path), kind_(input.kind()), text_(input.wholeText(cancelled, limits)) {}

  std::string path_;
  InputKind kind_;
  dxf::TextSource text_;
};

}  // namespace quillon::convert
