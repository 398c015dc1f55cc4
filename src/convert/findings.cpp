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
#include "convert/join_offer.h"

namespace quillon::convert {
namespace {

using rules::LossRule;
using texts::TextId;

constexpr auto kLossTexts = std::to_array<TextId>({
#define LOSS(name, group, word) TextId::Loss##name,
#include "rules/loss_rules.def"
#undef LOSS
});

/// How much is said where there is little room.
struct Detail {
  bool eachLayer;
  std::size_t gaps;
};
constexpr Detail kFew{false, kGapsShown};
constexpr Detail kAll{true, std::numeric_limits<std::size_t>::max()};

/// Kinds and names that a line lists at most.
constexpr std::size_t kMostKinds = 20;

/// A length with four decimals at most.
std::string shortLength(double value) {
  return base::numberText(std::round(value * 10000.0) / 10000.0);
}

/// A line for each rule, with the kinds that it met, of the wanted losses.
template <typename IsWanted>
std::vector<std::string> ruleLines(const std::vector<NamedLoss>& losses, const texts::Texts& texts,
                                   const IsWanted& isWanted) {
  struct Kinds {
    std::map<std::string, std::uint64_t> counts;
    std::uint64_t line = std::numeric_limits<std::uint64_t>::max();
  };
  std::map<LossRule, Kinds> rules;
  for (const NamedLoss& loss : losses) {
    if (!isWanted(loss)) continue;
    Kinds& kinds = rules[loss.rule];
    kinds.counts[kindText(loss)] += loss.count;
    kinds.line = std::min(kinds.line, loss.line);
  }
  std::vector<std::string> lines;
  for (const auto& [rule, kinds] : rules) {
    std::string list;
    std::size_t shown = 0;
    for (const auto& [kind, count] : kinds.counts) {
      if (!list.empty()) list += ", ";
      if (++shown > kMostKinds) {
        list += "…";
        break;
      }
      list += kind + " " + std::to_string(count);
    }
    lines.push_back(
        texts(TextId::LossOfRule, {lossText(rule, texts), list, std::to_string(kinds.line)}));
  }
  return lines;
}

/// Whether what was not recognised is the same as what the exact rules would draw of it.
bool areAllKept(const ConversionResult& result) {
  return std::all_of(result.unknownKinds.begin(), result.unknownKinds.end(), [&](const auto& kind) {
    return std::any_of(result.losses.begin(), result.losses.end(), [&](const NamedLoss& loss) {
      return loss.rule == LossRule::UnknownKind && loss.kind == kind.first;
    });
  });
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
    if (detail.eachLayer) putDoubtedUnit();
    detail.eachLayer ? putLosses() : putRules(false);
    putOutlines(detail.gaps);
    putOffsets();
    if (findings_.namedSignals) add(TextId::SignalsNamed, {});
    if (nothingLost(result_.losses)) add(TextId::EverythingConverted, {});
    return std::move(lines_);
  }

  std::vector<std::string> takeWarnings() && {
    putDoubtedUnit();
    putRules(true);
    return std::move(lines_);
  }

 private:
  void add(TextId id, std::initializer_list<std::string_view> arguments) {
    lines_.push_back(texts_(id, arguments));
  }

  void putSize() {
    constexpr double kInch = 25.4;
    const geometry::Box& box = findings_.bounds;
    if (!box.empty()) {
      const double width = (box.high.x - box.low.x) * millimetres_;
      const double height = (box.high.y - box.low.y) * millimetres_;
      add(TextId::DrawingSize, {shortLength(width), shortLength(height), shortLength(width / kInch),
                                shortLength(height / kInch)});
    }
    if (findings_.unit.isAssumed) add(TextId::UnitAssumed, {});
    if (findings_.drewPaperSpace) add(TextId::PaperSpaceDrawn, {});
  }

  /// Both readings of the unit.
  void putDoubtedUnit() {
    if (!findings_.unit.isDoubted) return;
    const geometry::Box& box = findings_.bounds;
    const geometry::Point size =
        box.empty() ? geometry::Point{} : (box.high - box.low) * millimetres_;
    const double named = findings_.unit.named;
    add(TextId::UnitDoubted,
        {base::numberText(named), shortLength(size.x * named), shortLength(size.y * named),
         shortLength(size.x), shortLength(size.y)});
  }

  void putLosses() {
    for (const NamedLoss& loss : result_.losses) {
      add(TextId::LossLine,
          {lossText(loss.rule, texts_), std::to_string(loss.count), kindText(loss),
           base::quotable(loss.layer), std::to_string(loss.line)});
    }
  }

  /// Of the rules by which things were not drawn, or of all others.
  void putRules(bool notDrawn) {
    const std::vector<std::string> lines =
        ruleLines(result_.losses, texts_, [notDrawn](const NamedLoss& loss) {
          return (rules::groupOf(loss.rule) == rules::LossGroup::NotDrawn) == notDrawn;
        });
    lines_.insert(lines_.end(), lines.begin(), lines.end());
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
    if (const std::optional<JoinOffer> offer = joinOfferOf(findings_)) {
      add(TextId::JoinOffered, {shortLength(offer->millimetres), std::to_string(offer->ends)});
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
    const geometry::Box& box = findings_.bounds;
    if (!result_.rangeWarning || box.empty()) return;
    const geometry::Point size = box.high - box.low;
    if (size.x > 2.0 * findings_.limit || size.y > 2.0 * findings_.limit) return;
    const geometry::Point offsets = findings_.offsets - geometry::middle(box.low, box.high);
    add(TextId::OffsetsProposed, {shortLength(offsets.x), shortLength(offsets.y)});
  }

  const ConversionResult& result_;
  const ExactFindings& findings_;
  const texts::Texts& texts_;
  double millimetres_;
  std::vector<std::string> lines_;
};

}  // namespace

std::string lossText(LossRule rule, const texts::Texts& texts) {
  return std::string(texts(kLossTexts[static_cast<std::size_t>(rule)]));
}

std::string kindText(const NamedLoss& loss) {
  const std::string kind = base::quotable(loss.kind);
  return loss.name.empty() ? kind : kind + " " + base::quotable(loss.name);
}

std::uint64_t lossCount(const std::vector<NamedLoss>& losses) {
  std::uint64_t count = 0;
  for (const NamedLoss& loss : losses) {
    // Hints, and what EAGLE's own font does to every text, are no losses.
    const bool isNote = loss.rule == LossRule::FineFill || loss.rule == LossRule::TextShapes;
    if (!isNote && rules::groupOf(loss.rule) != rules::LossGroup::Cleaned) count += loss.count;
  }
  return count;
}

bool nothingLost(const std::vector<NamedLoss>& losses) { return lossCount(losses) == 0; }

std::vector<std::string> notDrawnLines(const ConversionResult& result, const texts::Texts& texts) {
  if (!result.exact) return {};
  return FindingText(result, texts).takeWarnings();
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

std::vector<std::string> classicLossLines(const ConversionResult& result, const texts::Texts& texts,
                                          std::string_view option) {
  if (result.exact || result.losses.empty()) return {};
  // A warning names the kinds already; who reads it has to be told which of them would be kept.
  const bool areNamed = areAllKept(result);
  std::vector<std::string> lines =
      ruleLines(result.losses, texts, [areNamed](const NamedLoss& loss) {
        return !areNamed || loss.rule != LossRule::UnknownKind;
      });
  lines.push_back(option.empty() ? std::string(texts(TextId::ExactWouldKeep))
                                 : texts(TextId::ExactWouldKeepBy, {option}));
  return lines;
}

}  // namespace quillon::convert
