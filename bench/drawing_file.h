#pragma once

#include <cstddef>
#include <fstream>
#include <ios>
#include <string>

#include "drawing_text.h"

namespace quillon::bench {

/// Writes a generated drawing to a file.
inline void makeFile(const std::string& path, void (*make)(DrawingText&, std::size_t),
                     std::size_t count) {
  std::ofstream file;
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.open(path, std::ios::binary);
  DrawingText drawing([&file](std::string_view block) {
    file.write(block.data(), static_cast<std::streamsize>(block.size()));
  });
  make(drawing, count);
  file.close();
}

}  // namespace quillon::bench
