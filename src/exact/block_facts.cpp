#include "exact/block_facts.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "dxf/entity_walk.h"
#include "dxf/group_cursor.h"
#include "exact/entity_reader.h"

namespace quillon::exact {
namespace {

constexpr int kWeightByBlock = -2;

/// An insertion of a block within another one.
struct NestedInsert {
  std::size_t within;
  bool takesLayer;
  bool takesPen;
};

/// Reads every block once. What nested blocks have goes outwards afterwards, so that neither depth
/// nor blocks within themselves matter.
class FactReader {
 public:
  FactReader(dxf::Drawing& drawing, rules::CancelPoll& poll)
      : drawing_(drawing),
        poll_(poll),
        reader_(drawing),
        facts_(drawing.blocks.size()),
        insertsOf_(drawing.blocks.size()) {}

  std::vector<BlockFacts> take() && {
    for (std::size_t i = 0; i < facts_.size() && !poll_(); ++i) readBlock(i);
    passOutwards();
    return std::move(facts_);
  }

 private:
  void readBlock(std::size_t index) {
    dxf::EntityWalk walk(drawing_, dxf::LineCursor(drawing_.blocks[index].text, drawing_.lineEnds));
    for (dxf::DxfEntity found; !walk.atEnd();) {
      if (!walk.step(found)) continue;
      if (poll_()) return;
      takeEntity(index, reader_.read(found));
    }
  }

  void takeEntity(std::size_t within, const Entity& entity) {
    BlockFacts own;
    own.takesLayer = entity.layer == "0";
    own.takesPen = entity.lineType == "BYBLOCK" || entity.lineWeight == kWeightByBlock;
    own.hasEndless = entity.kind == Kind::Ray || entity.kind == Kind::Xline;
    if (entity.kind == Kind::Insert) return takeInsert(within, entity, own);
    add(within, own);
  }

  /// The insertion itself shows nothing: it hands on the layer and the pen that it takes.
  void takeInsert(std::size_t within, const Entity& entity, const BlockFacts& own) {
    std::string_view name;
    dxf::GroupCursor groups(dxf::LineCursor(entity.groups, drawing_.lineEnds));
    for (dxf::Group group; groups.next(group);) {
      if (group.code == 2) name = reader_.upperName(group.value);
    }
    const std::size_t index = dxf::findBlock(drawing_, name);
    if (drawing_.blocks[index].name != name) return;
    insertsOf_[index].push_back({within, own.takesLayer, own.takesPen});
  }

  void add(std::size_t index, const BlockFacts& more) {
    BlockFacts& facts = facts_[index];
    const BlockFacts before = facts;
    facts.takesLayer = facts.takesLayer || more.takesLayer;
    facts.takesPen = facts.takesPen || more.takesPen;
    facts.hasEndless = facts.hasEndless || more.hasEndless;
    if (facts != before) changed_.push_back(index);
  }

  /// Each block changes three times at most.
  void passOutwards() {
    while (!changed_.empty()) {
      const std::size_t index = changed_.back();
      changed_.pop_back();
      for (const NestedInsert& insert : insertsOf_[index]) {
        const BlockFacts& inner = facts_[index];
        // The pen may come from the layer.
        add(insert.within, {.takesLayer = insert.takesLayer && (inner.takesLayer || inner.takesPen),
                            .takesPen = insert.takesPen && inner.takesPen,
                            .hasEndless = inner.hasEndless});
      }
    }
  }

  dxf::Drawing& drawing_;
  rules::CancelPoll& poll_;
  EntityReader reader_;
  std::vector<BlockFacts> facts_;
  std::vector<std::vector<NestedInsert>> insertsOf_;  ///< by index of the block inserted
  std::vector<std::size_t> changed_;
};

}  // namespace

std::vector<BlockFacts> blockFactsOf(dxf::Drawing& drawing, rules::CancelPoll& poll) {
  return FactReader(drawing, poll).take();
}

}  // namespace quillon::exact
