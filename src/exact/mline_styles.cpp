#include "exact/mline_styles.h"

#include <cstddef>
#include <utility>

#include "base/number_text.h"
#include "exact/whole_numbers.h"

namespace quillon::exact {
namespace {

// Of a style.
constexpr int kShowsJoints = 2;
constexpr int kStraightStart = 16;
constexpr int kArcsAtStart = 32 | 64;  // inner ones, or a round cap
constexpr int kStraightEnd = 256;
constexpr int kArcsAtEnd = 512 | 1024;

bool shows(int flags, MlineAcross where) {
  switch (where) {
    case MlineAcross::Start:
      return (flags & kStraightStart) != 0;
    case MlineAcross::End:
      return (flags & kStraightEnd) != 0;
    case MlineAcross::Joint:
      break;
  }
  return (flags & kShowsJoints) != 0;
}

}  // namespace

void MlineStyles::note(MlineCrossings crossings) {
  crossings.loss = losses_.placed(crossings.loss);
  waiting_.push_back(std::move(crossings));
}

void MlineStyles::takeGroup(int code, std::string_view value) {
  constexpr int kName = 2;
  constexpr int kFlags = 70;
  if (code == 0) {
    endStyle();
    isStyle_ = value == "MLINESTYLE";
  }
  if (!isStyle_) return;
  if (code == kName) name_ = base::upperCase(value, encoding_);
  if (code == kFlags) flags_ = cutInteger(base::numberValue(value));
}

void MlineStyles::endStyle() {
  if (isStyle_) flagsOfStyles_.emplace(std::move(name_), flags_);
  isStyle_ = false;
  name_.clear();
  flags_ = 0;
}

void MlineStyles::endOfObjects() {
  endStyle();
  std::vector<MlineCrossings> unknown;
  for (MlineCrossings& crossings : waiting_) {
    const auto style = flagsOfStyles_.find(crossings.style);
    if (style != flagsOfStyles_.end()) {
      draw(crossings, style->second);
    } else {
      unknown.push_back(std::move(crossings));
    }
  }
  waiting_ = std::move(unknown);
}

void MlineStyles::draw(MlineCrossings& crossings, int flags) {
  for (MlineCrossings::Piece& piece : crossings.pieces) {
    if (!shows(flags, piece.where)) continue;
    std::visit(
        [&](auto&& shape) { sink_.take(piece.origin, std::forward<decltype(shape)>(shape)); },
        std::move(piece.shape));
  }
  const bool hasArcs = (crossings.hasStart && (flags & kArcsAtStart) != 0) ||
                       (crossings.hasEnd && (flags & kArcsAtEnd) != 0);
  if (hasArcs) losses_.addPlaced(crossings.loss, 1);
}

void MlineStyles::finish() {
  for (const MlineCrossings& crossings : std::exchange(waiting_, {})) {
    if (crossings.mayHaveCaps()) losses_.addPlaced(crossings.loss, 1);
  }
}

}  // namespace quillon::exact
