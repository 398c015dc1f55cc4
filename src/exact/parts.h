#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "exact/block_facts.h"
#include "exact/cleaning.h"
#include "exact/command_writer.h"
#include "exact/part_frame.h"
#include "exact/part_turn.h"
#include "exact/translator.h"

namespace quillon::exact {

/// Makes library parts of blocks. Parts are written as they are met, before anything of the
/// drawing, whose shapes are held until then; where they are placed is written after those.
///
/// A block has a part of its own for each scale and mirror sense. EAGLE cannot give a part the
/// layer or pen of its insertion, so blocks that show something on layer 0, or with line types and
/// weights BYBLOCK, have one for each of these too. Blocks that show nothing have no parts.
class Parts final : public PartMaker {
 public:
  /// What the parts are written with, and `drawing`, which holds everything else.
  struct Output {
    CommandWriter& writer;
    Cleaning& drawing;
    LossList& losses;
    rules::CancelPoll& poll;
  };
  Parts(const Options& options, dxf::Drawing& drawing, const Output& output, PartFrame& frame)
      : options_(options), drawing_(drawing), output_(output), frame_(frame) {}

  bool take(const PartInsertion& insertion, Translator& translator) override;

  /// Makes parts of all blocks that are not there as they are: not scaled, not mirrored, and on
  /// layer 0.
  void addUnused(Translator& translator);
  /// Returns to the drawing if any part was written.
  void returnToDrawing();
  /// Writes the commands that place parts.
  void writePlaces();

 private:
  /// Of the scale, only digits that do not depend on rounding.
  using Key = std::tuple<std::size_t, bool, double, const Layer*, std::string_view, int>;

  struct Part {
    std::string name;  ///< "" for one without content, which is not written
    bool hasTexts = false;
    geometry::Box bounds;
  };
  struct Placing {
    const Part* part;
    PartTurn turn;
    BlockPlaces places;
    Origin origin;
  };

  Key keyOf(const PartInsertion& insertion, const PartTurn& turn);
  const std::vector<BlockFacts>& facts();
  Point baseOf(std::size_t blockIndex) const;
  template <typename Draw>
  void makePart(std::size_t blockIndex, const Affine& place, const Draw& draw, Part& part);
  geometry::Box boundsOf(const Placing& placing, const BlockArray& array) const;

  const Options& options_;
  dxf::Drawing& drawing_;
  Output output_;
  PartFrame& frame_;
  std::vector<BlockFacts> facts_;
  std::map<Key, Part> parts_;
  std::set<std::size_t> asTheyAre_;  ///< blocks with a part that is not scaled and not mirrored
  std::vector<Placing> placings_;
  bool wroteParts_ = false;
};

}  // namespace quillon::exact
