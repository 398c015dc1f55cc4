#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "texts/string_table.h"
#include "workbench/reading.h"

namespace quillon::workbench {

/// A line of the list of what a result does not show as it is.
struct LossRow {
  std::string text;   ///< what happened, UTF-8
  std::string kind;   ///< of the entities, and the name of what they miss
  std::string layer;  ///< of the drawing
  std::uint64_t count = 0;
  std::uint64_t line = 0;             ///< of the first one, in the file; 0 where it is not known
  std::optional<geometry::Point> at;  ///< of the first one, in the scene
  bool isCleaned = false;  ///< nothing is missing, e.g. what is drawn twice is drawn once

  bool operator==(const LossRow&) const = default;
};

/// What is missing comes first, then what is changed; in each the order of the drawing.
std::vector<LossRow> lossRows(const Reading& reading, const texts::Texts& texts);

/// A row as a sentence.
std::string lossSentence(const LossRow& row, const texts::Texts& texts);

/// How many entities a result does not show as they are; what was only cleaned does not count.
std::uint64_t lossCount(const Reading& reading);

}  // namespace quillon::workbench
