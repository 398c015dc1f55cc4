#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "dxf/drawing.h"
#include "dxf/entities.h"
#include "geometry/placement.h"

namespace quillon::rules {

/// Gives the EAGLE layer of a DXF layer. May throw RunTimeError for a number that is none.
class LayerNumbers {
 public:
  virtual ~LayerNumbers() = default;
  virtual int layerNumber(const dxf::LayerUse& layer) = 0;
};

/// Takes block insertions that become library parts instead of being drawn in place.
class BlockParts {
 public:
  virtual ~BlockParts() = default;
  /// Handles an insertion of the drawing's block at a placed point, or says false: then the block
  /// is drawn in place.
  virtual bool insertPart(std::size_t blockIndex, geometry::Point insertion,
                          const geometry::Placement& placement) = 0;
};

/// How many entities of each kind were handled, by kind.
using EntityCounts = std::array<std::uint64_t, dxf::kEntityKindCount>;

/// A set of rules: turns what a drawing holds into commands, entity by entity as they are read.
class Translation : public dxf::EntitySink {
 public:
  /// Where block insertions go; without one (null) they are drawn in place.
  virtual void setBlockParts(BlockParts* parts) = 0;

  /// Tells the commands of all items of a block. Throws RunTimeError when blocks are nested deeper
  /// than 1,000.
  virtual void translateBlock(std::size_t blockIndex, const geometry::Placement& placement) = 0;

  /// MTEXT counts as TEXT and LEADER as LWPOLYLINE.
  virtual const EntityCounts& counts() const = 0;
  /// How many of these were left out because their layer is assigned to 999.
  virtual const EntityCounts& leftOut() const = 0;
  /// Where the entity is that was translated last, for error messages; may be null.
  virtual const char* currentPosition() const = 0;
};

}  // namespace quillon::rules
