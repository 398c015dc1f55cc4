#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "dxf/entity_walk.h"
#include "dxf/line_counter.h"
#include "exact/areas.h"
#include "exact/block_places.h"
#include "exact/canvas.h"
#include "exact/entity_reader.h"
#include "exact/layers.h"
#include "exact/object_needs.h"
#include "exact/pens.h"
#include "exact/polylines.h"
#include "rules/translation.h"

namespace quillon::exact {

class Translator;

/// An insertion of a block outside of other blocks.
struct PartInsertion {
  const Item& item;
  std::size_t blockIndex;
  const BlockArray& array;
  const Inherited& inherited;  ///< what the block takes from it
};

/// Takes insertions that become library parts instead of being drawn in place.
class PartMaker {
 public:
  virtual ~PartMaker() = default;
  /// False for one to be drawn in place. The translator can draw what the part needs.
  virtual bool take(const PartInsertion& insertion, Translator& translator) = 0;
};

/// The rules that show a drawing as a CAD program does: finds what is visible, places it, and hands
/// each entity to the rule for its kind. The drawing must have been read with everyKind.
class Translator final : public dxf::EntitySink, private BlockDrawer {
 public:
  /// Entities outside of blocks are placed by `top`.
  Translator(const Options& options, dxf::Drawing& drawing, rules::LayerNumbers& numbers,
             ShapeSink& sink, LossList& losses, rules::CancelPoll& poll, const Affine& top);

  void takeEntity(dxf::DxfEntity& entity) override;
  /// Ends a POLYLINE still open at the end.
  void endOfEntities() override { polyline_.finish(canvas_); }
  /// After the entities: draws the first layout that is kept as a block and has more than
  /// viewports, if paper space is to be drawn, or the model space is empty, and the entities have
  /// none of it. Further ones are named.
  void drawLayouts();

  /// Where insertions go that may become parts; they have to outlive the translator.
  void setPartMaker(PartMaker& maker) { partMaker_ = &maker; }
  /// Draws a block, and the blocks within it, as the content of a part, for an insertion or for
  /// none: then its layer "0" is the drawing's own.
  void drawPart(const Item& insertion, std::size_t blockIndex, const Affine& map, ShapeSink& sink);
  void drawPart(std::size_t blockIndex, const Affine& map, ShapeSink& sink);

  /// Needs the dictionaries of insertions that may be clipped, and the styles of MLINEs.
  dxf::ObjectSink* objectSink() override { return objectNeeds_.empty() ? nullptr : &objectNeeds_; }
  /// Some shapes wait for the OBJECTS section.
  bool waitsForObjects() const { return !objectNeeds_.mlineStyles.empty(); }
  /// After all sections, whether they were there or not.
  void finish() { objectNeeds_.mlineStyles.finish(); }

  /// True when the model space has nothing, and the paper space more than viewports.
  bool hasOnlyPaper() const { return !sawModel_ && sawPaper_; }
  /// From now on, paper space is what is drawn.
  void turnToPaper() { space_ = Space::Paper; }
  bool turnedToPaper() const { return space_ != options_.space; }

  /// Entities by name, of the kinds that `counts` has no place for.
  using NamedCounts = std::map<std::string_view, std::uint64_t>;
  const NamedCounts& otherCounts() const { return otherCounts_; }
  const NamedCounts& otherLeftOut() const { return otherLeftOut_; }

  const rules::EntityCounts& counts() const { return counts_; }
  /// How many of these were skipped because their layer is assigned to 999.
  const rules::EntityCounts& leftOut() const { return leftOut_; }
  /// Position of the entity translated last, for error messages; may be null.
  const char* currentPosition() const { return currentPosition_; }

 private:
  /// Where an entity is: outside of blocks, or in the innermost one.
  struct Surroundings {
    Affine map;
    Inherited inherited;
    bool isInDimension = false;
    bool isInBlock = false;
    Point depth{};  ///< where the script shows a height of 1
  };
  /// A block without the groups of its own, which come before its entities.
  struct BlockContent {
    dxf::LineRange lines;
    std::uint64_t firstLine = 0;
  };
  /// A block being drawn, once for each cell of its array.
  struct Expansion {
    std::size_t blockIndex;
    BlockPlaces places;
    Surroundings inside;     ///< at the present place
    const char* insertedAt;  ///< position of its insertion
    /// What it still has to show for its attribute definitions, and for which entity.
    std::vector<AttributeText> attributes{};
    Origin origin{};
    std::optional<dxf::EntityWalk> walk{};
    std::optional<dxf::LineCounter> lines{};
  };

  template <typename Take>
  void walkLayout(std::size_t blockIndex, const Take& take);
  bool hasMoreThanViewports(std::size_t blockIndex);
  void drawLayout(std::size_t blockIndex);
  bool drawBlock(const Item& item, std::string_view upperName, std::vector<Affine> maps) override;
  bool drawBlock(const Item& item, std::string_view upperName, const Affine& map,
                 std::vector<AttributeText> attributes) override;
  void expand(const Item& item, std::size_t blockIndex, BlockPlaces places, Point depth);
  void endExpansion();
  void drawExpansions(std::size_t enclosing);
  bool nextOfBlock(Expansion& expansion, dxf::DxfEntity& found);
  const BlockContent& contentOf(std::size_t blockIndex);
  void draw(const dxf::DxfEntity& found, const Surroundings& around);
  bool isInSpace(const Entity& entity, const Surroundings& around);
  bool isShown(const Entity& entity, const Layer& layer, const Origin& origin);
  void count(const Entity& entity, bool isLeftOut);
  void dispatch(const Item& item, const Surroundings& around);
  void insert(const Item& item);
  void drawDefinition(const Item& item, bool isInBlock);
  Inherited inheritedFrom(const Item& item);
  Affine fromBaseHeight(std::size_t blockIndex, Point depth) const;

  const Options& options_;
  dxf::Drawing& drawing_;
  LossList& losses_;
  rules::CancelPoll& poll_;
  Canvas canvas_;
  Affine top_;
  PartMaker* partMaker_ = nullptr;
  ObjectNeeds objectNeeds_;
  bool isInPart_ = false;  ///< shapes belong to a part, which has to be complete at once
  EntityReader reader_;
  Layers layers_;
  Pens pens_;
  VertexPolyline polyline_;
  FaceRun faces_;
  Space space_;
  bool sawModel_ = false;
  bool sawPaper_ = false;
  bool isInLayout_ = false;           ///< entities come from a layout that is kept as a block
  bool attributesAreHidden_ = false;  ///< those of the INSERT before
  rules::EntityCounts counts_{};
  rules::EntityCounts leftOut_{};
  NamedCounts otherCounts_;  ///< without those left out
  NamedCounts otherLeftOut_;
  std::vector<char> isExternal_;        ///< by block index: true for a reference to another file
  std::vector<BlockContent> contents_;  ///< likewise; each is looked for once
  std::vector<char> expanding_;         ///< by block index: true while the block is being drawn
  /// Not moved: entities being drawn know groups that the walk over their block keeps.
  std::deque<Expansion> expansions_;
  const char* currentPosition_ = nullptr;
};

}  // namespace quillon::exact
