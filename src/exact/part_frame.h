#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillon::exact {

/// Where library parts come to be: names them, and writes the commands around them.
class PartFrame {
 public:
  virtual ~PartFrame() = default;

  /// The name of the library with the parts.
  virtual std::string_view libraryName() const = 0;
  /// A block of the drawing was inserted, by a part or in place.
  virtual void noteInsertion(std::size_t blockIndex) = 0;
  /// Opens a new part for a block; what is drawn then is its content. The part's name.
  virtual std::string openPart(std::size_t blockIndex) = 0;
  virtual void closePart(std::string_view name) = 0;
  /// Returns to the drawing, where the library is ready for use.
  virtual void returnToDrawing() = 0;
};

}  // namespace quillon::exact
