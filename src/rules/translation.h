#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "dxf/drawing.h"
#include "dxf/entities.h"
#include "geometry/placement.h"
#include "rules/losses.h"

namespace quillon::rules {

/// Says where a DXF layer goes, and how.
class LayerNumbers {
 public:
  virtual ~LayerNumbers() = default;
  /// The EAGLE layer. May throw RunTimeError for an invalid number.
  virtual int layerNumber(const dxf::LayerUse& layer) = 0;
  /// Whether closed polylines on it are to be areas.
  virtual bool hasAreas(const dxf::LayerUse&) { return false; }
};

/// Receives block insertions that become library parts instead of being drawn in place.
class BlockParts {
 public:
  virtual ~BlockParts() = default;
  /// Handles an insertion of the drawing's block at a placed point; false to have the block drawn
  /// in place.
  virtual bool insertPart(std::size_t blockIndex, geometry::Point insertion,
                          const geometry::Placement& placement) = 0;
};

/// Number of entities handled, by kind.
using EntityCounts = std::array<std::uint64_t, dxf::kEntityKindCount>;

/// A set of rules that turns the entities of a drawing into commands as they are read.
class Translation : public dxf::EntitySink {
 public:
  /// Issues the commands that set the rules' own defaults, after those of every script.
  virtual void beginScript() {}

  /// Where block insertions go; null to draw them in place.
  virtual void setBlockParts(BlockParts* parts) = 0;

  /// Issues the commands for all entities of a block. Throws RunTimeError when blocks are nested
  /// deeper than 1,000.
  virtual void translateBlock(std::size_t blockIndex, const geometry::Placement& placement) = 0;

  /// MTEXT counts as TEXT, LEADER as LWPOLYLINE.
  virtual const EntityCounts& counts() const = 0;
  /// How many of these were skipped because their layer is assigned to 999.
  virtual const EntityCounts& leftOut() const = 0;
  /// Position of the entity translated last, for error messages; may be null.
  virtual const char* currentPosition() const = 0;
  /// What is not shown as it is, once everything has been translated. To be called once; its texts
  /// live as long as the drawing.
  virtual LossList takeLosses() = 0;
};

}  // namespace quillon::rules
