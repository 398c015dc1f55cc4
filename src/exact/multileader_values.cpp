#include "exact/multileader_values.h"

#include <cstdint>
#include <utility>

#include "base/number_text.h"
#include "dxf/table_entries.h"

namespace quillon::exact {
namespace {

/// Reads the groups of a MULTILEADER. Their codes mean something else at each depth of its data:
/// the entity itself, its context, a branch in that, and a line of the branch.
class MultiLeaderReader {
 public:
  explicit MultiLeaderReader(const dxf::Drawing& drawing) : drawing_(drawing) {}

  void take(const dxf::Group& group) {
    if (changesDepth(group)) return;
    const double number = base::numberValue(group.value);
    switch (depth_) {
      case Depth::Entity:
        return takeEntity(group, number);
      case Depth::Context:
        takeContext(group, number);
        takeText(group, number);
        return takeBlock(group.code, number);
      case Depth::Branch:
        return takeBranch(group.code, number);
      case Depth::Line:
        return takeLine(group.code, number);
    }
  }

  MultiLeader finish() {
    if (hasText_) leader_.text = std::move(text_);
    if (hasBlock_) leader_.block = block_;
    if (!hasArrowSize_) leader_.arrowSize = ownArrowSize_ * scale_;
    leader_.hasDoglegs = hasLanding_ && hasDogleg_ && !leader_.hasSplines;
    return std::move(leader_);
  }

 private:
  enum class Depth : std::uint8_t { Entity, Context, Branch, Line };

  bool changesDepth(const dxf::Group& group) {
    constexpr int kContextBegins = 300;
    constexpr int kBranchBegins = 302;
    constexpr int kLineBegins = 304;
    constexpr int kContextEnds = 301;
    constexpr int kBranchEnds = 303;
    constexpr int kLineEnds = 305;
    if (group.value == "}") {
      if (depth_ == Depth::Line && group.code == kLineEnds) return enter(Depth::Branch);
      if (depth_ == Depth::Branch && group.code == kBranchEnds) return enter(Depth::Context);
      if (depth_ == Depth::Context && group.code == kContextEnds) return enter(Depth::Entity);
      return false;
    }
    if (depth_ == Depth::Entity && group.code == kContextBegins) {
      leader_.hasContext = true;
      return enter(Depth::Context);
    }
    if (depth_ == Depth::Context && group.code == kBranchBegins && group.value == "LEADER{") {
      leader_.branches.emplace_back();
      hasEnd_ = true;
      return enter(Depth::Branch);
    }
    if (depth_ == Depth::Branch && group.code == kLineBegins) {
      leader_.branches.back().lines.emplace_back();
      return enter(Depth::Line);
    }
    return false;
  }

  bool enter(Depth depth) {
    depth_ = depth;
    return true;
  }

  void takeEntity(const dxf::Group& group, double number) {
    switch (group.code) {
      case 170:
        leader_.hasLines = number != 0.0;
        leader_.hasSplines = number == 2.0;
        break;
      case 290:
        hasLanding_ = number != 0.0;
        break;
      case 291:
        hasDogleg_ = number != 0.0;
        break;
      case 302:
        if (!group.value.empty()) leader_.attributes.push_back({definition_, group.value});
        break;
      case 330:
        definition_ = dxf::handleValue(group.value);
        break;
      case 342:
        leader_.arrowBlock = drawing_.tableEntries.nameOf("BLOCK_RECORD", group.value);
        break;
      case 42:
        ownArrowSize_ = number;
        break;
      case 45:
        scale_ = number;
        break;
      default:
        break;
    }
  }

  void takeContext(const dxf::Group& group, double number) {
    switch (group.code) {
      case 30:
        leader_.height = number;
        break;
      case 140:
        leader_.arrowSize = number;
        hasArrowSize_ = true;
        break;
      case 290:
        hasText_ = number != 0.0;
        break;
      case 296:
        hasBlock_ = number != 0.0;
        break;
      case 304:
        text_.content += group.value;
        break;
      case 340:
        text_.style = drawing_.tableEntries.nameOf("STYLE", group.value);
        break;
      case 341:
        block_.name = drawing_.tableEntries.nameOf("BLOCK_RECORD", group.value);
        break;
      default:
        break;
    }
  }

  void takeText(const dxf::Group& group, double number) {
    const std::pair<int, double*> fields[] = {
        {12, &text_.at.x},        {22, &text_.at.y},        {13, &text_.direction.x},
        {23, &text_.direction.y}, {41, &text_.height},      {42, &text_.rotation},
        {43, &text_.width},       {45, &text_.lineSpacing}, {170, &text_.spacingStyle},
        {171, &text_.column},
    };
    for (const auto& [code, value] : fields) {
      if (code == group.code) *value = number;
    }
  }

  void takeBlock(int code, double number) {
    const std::pair<int, double*> fields[] = {
        {14, &block_.normalX}, {24, &block_.normalY}, {34, &block_.normalZ}, {15, &block_.at.x},
        {25, &block_.at.y},    {16, &block_.scaleX},  {26, &block_.scaleY},  {46, &block_.rotation},
    };
    for (const auto& [field, value] : fields) {
      if (field == code) *value = number;
    }
  }

  void takeBranch(int code, double number) {
    LeaderBranch& branch = leader_.branches.back();
    switch (code) {
      case 290:
        hasEnd_ = number != 0.0;
        if (!hasEnd_) branch.end.reset();
        break;
      case 291:
        branch.hasDogleg = number != 0.0;
        break;
      case 10:
        if (hasEnd_) branch.end = Point{number, 0.0};
        break;
      case 20:
        if (branch.end) branch.end->y = number;
        break;
      case 11:
        branch.dogleg.x = number;
        break;
      case 21:
        branch.dogleg.y = number;
        break;
      case 12:
        leader_.hasBreaks = true;
        break;
      case 40:
        branch.doglegLength = number;
        break;
      default:
        break;
    }
  }

  void takeLine(int code, double number) {
    std::vector<Point>& points = leader_.branches.back().lines.back();
    if (code == 10) points.push_back({number, 0.0});
    if (code == 20 && !points.empty()) points.back().y = number;
    if (code == 11) leader_.hasBreaks = true;
  }

  const dxf::Drawing& drawing_;
  MultiLeader leader_;
  LeaderText text_;
  LeaderBlock block_;
  Depth depth_ = Depth::Entity;
  std::uint64_t definition_ = 0;  ///< of the attribute whose text comes next
  bool hasText_ = false;
  bool hasBlock_ = false;
  bool hasEnd_ = true;
  bool hasArrowSize_ = false;
  bool hasLanding_ = true;
  bool hasDogleg_ = true;
  double ownArrowSize_ = 0.0;
  double scale_ = 1.0;
};

}  // namespace

MultiLeader readMultiLeader(const Item& item, Canvas& canvas) {
  constexpr int kExtendedData = 1000;
  MultiLeaderReader reader(canvas.drawing());
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group) && !canvas.step();) {
    if (group.code < kExtendedData) reader.take(group);
  }
  return reader.finish();
}

}  // namespace quillon::exact
