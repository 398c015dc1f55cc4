#include "dxf/tables.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "base/number_text.h"
#include "base/run_time_error.h"
#include "dxf/group_cursor.h"

namespace quillon::dxf {
namespace {

constexpr std::int16_t kDashCode = 49;
constexpr std::int16_t kNameCode = 2;
constexpr std::size_t kCodesLookedUp = 4;

std::string_view lineAt(const SectionLines& lines, std::size_t index) {
  if (index >= lines.size()) {
    const char* const end = lines.empty() ? nullptr : lines.back().data();
    throw base::RunTimeError(base::Fault::TextEndsTooEarly, {}, end);
  }
  return lines[index];
}

/// The groups of an entry. An entry that starts within another one has the rest of its groups, so
/// both share a run, and the cost of a table with nested entries stays linear in its lines.
class GroupRun {
 public:
  GroupRun() = default;

  /// Layers and text styles lose the last group of each entry, line types keep it; kept so that
  /// scripts stay the same.
  GroupRun(const SectionLines& lines, std::size_t firstValue, bool keepsLast)
      : firstValue_(firstValue), endValue_(firstValue) {
    constexpr std::size_t kUsualGroups = 16;
    groups_.reserve(kUsualGroups);
    for (bool last = false; !last; endValue_ += 2) {
      // For a line type the code is converted first, so a bad one is reported before the end of the
      // lines.
      Group group;
      const auto read = [&] {
        group = {base::groupCode(lineAt(lines, endValue_ - 1)), lineAt(lines, endValue_)};
      };
      if (keepsLast) read();
      last = lineAt(lines, endValue_ + 1) == "0";
      if (!keepsLast && !last) read();
      if (keepsLast || !last) groups_.push_back(group);
    }
  }

  bool covers(std::size_t valueLine) const {
    return valueLine >= firstValue_ && valueLine < endValue_;
  }

  /// Subsequent look-ups are for the entry at this value line. Entries come in order.
  void enter(std::size_t valueLine) { entry_ = (valueLine - firstValue_) / 2; }

  /// Value of the entry's first group with this code, or ""; a copy that outlives the lines,
  /// upper-cased on request. Entries that share a group share the copy. Use a column for one code
  /// only.
  std::string_view kept(std::size_t column, std::int16_t code, Drawing& drawing, bool upper) {
    const std::size_t at = advance(column, code);
    if (at >= groups_.size()) return {};
    Kept& last = kept_[column];
    if (!last.made || last.at != at) {
      const std::string_view text = groups_[at].value;
      last = {true, at,
              upper ? drawing.arena.keep(base::upperCase(text, drawing.encoding))
                    : drawing.arena.keep(text)};
    }
    return last.text;
  }

  /// The dash list of the entry: the number of every group 49, followed by ";". If the entry's last
  /// group is not a 49, "0;" is appended; kept so that scripts stay the same.
  std::string_view dashList(std::size_t column, TextArena& arena) {
    if (dashOffsets_.empty()) makeDashText(arena);
    return dashText_.substr(dashOffsets_[advance(column, kDashCode)]);
  }

 private:
  struct Kept {
    bool made = false;
    std::size_t at = 0;
    std::string_view text;
  };

  std::size_t advance(std::size_t column, std::int16_t code) {
    std::size_t& at = found_[column];
    if (at < entry_) at = entry_;
    while (at < groups_.size() && groups_[at].code != code) ++at;
    return at;
  }

  void makeDashText(TextArena& arena) {
    std::string text;
    for (const Group& group : groups_) {
      dashOffsets_.push_back(text.size());
      if (group.code == kDashCode) text += base::numberText(base::numberValue(group.value)) + ";";
    }
    dashOffsets_.push_back(text.size());
    if (groups_.empty() || groups_.back().code != kDashCode) text += "0;";
    dashText_ = arena.keep(text);
  }

  std::size_t firstValue_ = 0;
  std::size_t endValue_ = 0;
  std::vector<Group> groups_;
  std::size_t entry_ = 0;
  std::array<std::size_t, kCodesLookedUp> found_{};
  std::array<Kept, kCodesLookedUp> kept_{};
  std::string_view dashText_;
  std::vector<std::size_t> dashOffsets_;
};

/// Visits every line, including those within an entry just read, and passes each entry to `add`.
template <typename AddRecord>
void walkEntries(const SectionLines& lines, bool keepsLast, const AddRecord& add) {
  std::array<GroupRun, 2> runs;  // entries on even and on odd lines cannot share groups
  for (auto i = static_cast<std::size_t>(findLine(lines, 0, "0") + 1); i < lines.size(); ++i) {
    if (!isTableName(lines[i])) continue;
    GroupRun& run = runs[i % 2];
    if (!run.covers(i)) run = GroupRun(lines, i, keepsLast);
    run.enter(i);
    add(run);
  }
}

}  // namespace

std::ptrdiff_t findLine(const SectionLines& lines, std::size_t start, std::string_view text) {
  for (std::size_t i = start; i < lines.size(); ++i) {
    if (lines[i] == text) return static_cast<std::ptrdiff_t>(i);
  }
  return -1;
}

bool isTableName(std::string_view text) {
  return base::equalsUpperCased(text, "LTYPE") || base::equalsUpperCased(text, "LAYER") ||
         base::equalsUpperCased(text, "STYLE");
}

void parseLineTypeTable(const SectionLines& lines, Drawing& drawing) {
  walkEntries(lines, true, [&drawing](GroupRun& run) {
    LineTypeRec record;
    record.name = run.kept(0, kNameCode, drawing, true);
    record.totalLength = run.kept(1, 40, drawing, false);
    record.dashes = run.dashList(2, drawing.arena);
    drawing.addLineType(record);
  });
}

void parseLayerTable(const SectionLines& lines, Drawing& drawing) {
  walkEntries(lines, false, [&drawing](GroupRun& run) {
    LayerRec record;
    record.name = run.kept(0, kNameCode, drawing, true);
    record.colour = run.kept(1, 62, drawing, false);
    record.lineType = run.kept(2, 6, drawing, false);
    record.flags = run.kept(3, 70, drawing, false);
    drawing.addLayer(record);
  });
}

void checkStyleTable(const SectionLines& lines) {
  walkEntries(lines, false, [](GroupRun&) {});
}

}  // namespace quillon::dxf
