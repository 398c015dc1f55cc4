#include "convert/findings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>

#include "base/number_text.h"
#include "base/quotable.h"

namespace quillon::convert {
namespace {

using exact::LossRule;
using texts::TextId;

constexpr auto kLossTexts = std::to_array<TextId>({
#define LOSS(name, group, word) TextId::Loss##name,
#include "exact/loss_rules.def"
#undef LOSS
});

/// How much is said where there is little room.
struct Detail {
  bool eachLayer;
  std::size_t gaps;
};
constexpr Detail kFew{false, kGapsShown};
constexpr Detail kAll{true, std::numeric_limits<std::size_t>::max()};

/// A length with four decimals at most.
std::string shortLength(double value) {
  return base::numberText(std::round(value * 10000.0) / 10000.0);
}

/// The lines under construction.
class FindingText {
 public:
  FindingText(const ConversionResult& result, const texts::Texts& texts)
      : result_(result),
        findings_(*result.exact),
        texts_(texts),
        millimetres_(findings_.scriptUnit) {}

  std::vector<std::string> take(const Detail& detail) && {
    putSize();
    detail.eachLayer ? putLosses() : putRules(false);
    putOutlines(detail.gaps);
    putOffsets();
    if (findings_.namedSignals) add(TextId::SignalsNamed, {});
    if (nothingLost(findings_)) add(TextId::EverythingConverted, {});
    return std::move(lines_);
  }

  std::vector<std::string> takeNotDrawn() && {
    putRules(true);
    return std::move(lines_);
  }

 private:
  void add(TextId id, std::initializer_list<std::string_view> arguments) {
    lines_.push_back(texts_(id, arguments));
  }

  void putSize() {
    constexpr double kInch = 25.4;
    const eagle::Extents& box = result_.extents;
    if (!box.empty()) {
      const double width = (box.maxX - box.minX) * millimetres_;
      const double height = (box.maxY - box.minY) * millimetres_;
      add(TextId::DrawingSize, {shortLength(width), shortLength(height), shortLength(width / kInch),
                                shortLength(height / kInch)});
    }
    if (findings_.unit.isAssumed) add(TextId::UnitAssumed, {});
    if (findings_.unit.isDoubted) add(TextId::UnitDoubted, {});
    if (findings_.drewPaperSpace) add(TextId::PaperSpaceDrawn, {});
  }

  std::string textOf(LossRule rule) const {
    return std::string(texts_(kLossTexts[static_cast<std::size_t>(rule)]));
  }

  void putLosses() {
    for (const NamedLoss& loss : findings_.losses) {
      add(TextId::LossLine,
          {textOf(loss.rule), std::to_string(loss.count), base::quotable(loss.kind),
           base::quotable(loss.layer), std::to_string(loss.line)});
    }
  }

  /// A line for each rule, with the kinds that it met; of those by which things were not drawn, or
  /// of all others.
  void putRules(bool notDrawn) {
    struct Kinds {
      std::map<std::string, std::uint64_t> counts;
      std::uint64_t line = std::numeric_limits<std::uint64_t>::max();
    };
    std::map<LossRule, Kinds> rules;
    for (const NamedLoss& loss : findings_.losses) {
      if ((exact::groupOf(loss.rule) == exact::LossGroup::NotDrawn) != notDrawn) continue;
      Kinds& kinds = rules[loss.rule];
      kinds.counts[loss.kind] += loss.count;
      kinds.line = std::min(kinds.line, loss.line);
    }
    for (const auto& [rule, kinds] : rules) {
      std::string list;
      for (const auto& [kind, count] : kinds.counts) {
        if (!list.empty()) list += ", ";
        list += base::quotable(kind) + " " + std::to_string(count);
      }
      add(TextId::LossOfRule, {textOf(rule), list, std::to_string(kinds.line)});
    }
  }

  void putOutlines(std::size_t most) {
    const exact::OutlineReport& outlines = findings_.outlines;
    // Ends that differ by rounding alone have met already.
    const std::string move = shortLength(outlines.largestMove * millimetres_);
    if (move != "0") add(TextId::EndsJoined, {std::to_string(outlines.joinedEnds), move});
    const std::size_t shown = std::min(most, outlines.gaps.size());
    for (std::size_t i = 0; i < shown; ++i) putGap(outlines.gaps[i]);
    if (shown < outlines.gapCount) {
      add(TextId::MoreGaps, {std::to_string(outlines.gapCount - shown)});
    }
  }

  void putGap(const exact::OpenEnd& gap) {
    const std::string x = shortLength(gap.at.x);
    const std::string y = shortLength(gap.at.y);
    const std::string layer = std::to_string(gap.layer);
    const std::string line = std::to_string(gap.line);
    if (!gap.hasNext) return add(TextId::OutlineOpenAlone, {x, y, layer, line});
    add(TextId::OutlineOpen,
        {x, y, layer, line, shortLength(gap.distance * millimetres_), shortLength(gap.next.x),
         shortLength(gap.next.y), std::to_string(gap.nextLine)});
  }

  /// Where everything would fit if it were moved.
  void putOffsets() {
    const eagle::Extents& box = result_.extents;
    if (!result_.rangeWarning || box.empty()) return;
    const bool fits = box.maxX - box.minX <= 2.0 * findings_.limit &&
                      box.maxY - box.minY <= 2.0 * findings_.limit;
    if (!fits) return;
    add(TextId::OffsetsProposed,
        {shortLength(-(box.minX + box.maxX) / 2.0), shortLength(-(box.minY + box.maxY) / 2.0)});
  }

  const ConversionResult& result_;
  const ExactFindings& findings_;
  const texts::Texts& texts_;
  double millimetres_;
  std::vector<std::string> lines_;
};

}  // namespace

bool nothingLost(const ExactFindings& findings) {
  return std::all_of(findings.losses.begin(), findings.losses.end(), [](const NamedLoss& loss) {
    // Hints, and what EAGLE's own font does to every text, are no losses.
    const bool isNote = loss.rule == LossRule::FineFill || loss.rule == LossRule::TextShapes;
    return isNote || exact::groupOf(loss.rule) == exact::LossGroup::Cleaned;
  });
}

std::vector<std::string> notDrawnLines(const ConversionResult& result, const texts::Texts& texts) {
  if (!result.exact) return {};
  return FindingText(result, texts).takeNotDrawn();
}

std::vector<std::string> findingLines(const ConversionResult& result, const texts::Texts& texts) {
  if (!result.exact) return {};
  return FindingText(result, texts).take(kFew);
}

std::vector<std::string> allFindingLines(const ConversionResult& result,
                                         const texts::Texts& texts) {
  if (!result.exact) return {};
  return FindingText(result, texts).take(kAll);
}

}  // namespace quillon::convert
