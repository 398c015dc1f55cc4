#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "dxf/entity_kinds.h"
#include "dxf/group_cursor.h"
#include "exact/kinds.h"
#include "exact/shapes.h"
#include "geometry/affine.h"
#include "geometry/vectors.h"

namespace quillon::exact {

using geometry::Affine;

/// Walks the groups of one entity, which are split into lines already where they are few.
class EntityGroups {
 public:
  /// `split`: all groups, or none where they have to be found in the lines.
  EntityGroups(std::span<const dxf::Group> split, dxf::LineRange lines, const dxf::LineEnds& ends)
      : next_(split.data()),
        end_(split.data() + split.size()),
        isSplit_(!split.empty()),
        cursor_(dxf::LineCursor(split.empty() ? lines : dxf::LineRange{}, ends)) {}

  /// As that of GroupCursor.
  bool next(dxf::Group& group) {
    if (!isSplit_) return nextOfLines(group);
    if (next_ == end_) return false;
    group = *next_++;
    return true;
  }

 private:
  /// Apart, so that what is split already takes few instructions.
  bool nextOfLines(dxf::Group& group);

  const dxf::Group* next_;
  const dxf::Group* end_;
  bool isSplit_;
  dxf::GroupCursor cursor_;
};

/// An entity with what all kinds have in common. Texts are views into the drawing, or kept as long
/// as the translation where that is said.
struct Entity {
  /// With constructors, compilers set the members one by one, which takes less time than to clear
  /// all of them first.
  Entity() : Entity(Kind::Other, dxf::EntityKind::None, {}) {}
  Entity(Kind ofKind, dxf::EntityKind ofCounts, std::string_view dxfName)
      : kind(ofKind), countedAs(ofCounts), name(dxfName) {}

  Kind kind;
  dxf::EntityKind countedAs;  ///< None for those counted by their names
  std::string_view name;      ///< DXF name; kept
  dxf::LineRange groups;      ///< up to and including the "0" line that ends them
  /// The same, if they are few; until the walk that found the entity goes on or is moved.
  std::span<const dxf::Group> split;
  std::uint64_t line = 0;
  /// The last groups 10, 20, 11 and 21: the ends of a LINE, so that it is not read twice.
  std::array<std::string_view, 4> ends;

  std::string_view layer;     ///< upper-cased; kept; "0" for one without
  std::string_view lineType;  ///< upper-cased; kept; "" for BYLAYER
  double lineTypeScale = 1.0;
  int lineWeight = -1;  ///< hundredths of a millimetre; -1 by layer, -2 by block, -3 default
  double normalX = 0.0;
  double normalY = 0.0;
  double normalZ = 1.0;
  bool isInvisible = false;
  bool isInPaperSpace = false;

  /// Its groups from the start.
  EntityGroups groupsBy(const dxf::LineEnds& lineEnds) const { return {split, groups, lineEnds}; }
};

/// How the lines of an entity look, once layers and blocks have been asked.
struct Pen {
  double width = 0.0;  ///< without a width of its own; units of the script
  Style style = Style::Continuous;
  /// Lengths of dashes (above 0), gaps (below) and dots (0) in units of the script; empty: solid.
  std::vector<double> dashes;
  /// The length of the line type's pattern, in units of the script; lines up to it are solid in the
  /// drawing as well. 0: all are.
  double patternLength = 0.0;
  bool hasSolidInstead = false;  ///< the line type is dashed, the option draws it solid
  bool lacksShapes = false;      ///< the line type has letters or symbols, which are left out
  bool fillsClosed = false;      ///< closed polylines become areas

  /// Lines longer than the pattern do not show all of it.
  bool losesPattern() const { return hasSolidInstead || lacksShapes; }
};

/// One entity at one place.
struct Item {
  const Entity& entity;
  Affine map;     ///< from the coordinates around the entity, z dropped, to the script
  Origin origin;  ///< with the EAGLE layer of the entity
  const Pen& pen;
  bool isInDimension = false;  ///< or in what else is not cleaned
  /// Its layer is off or not converted: its blocks still show what they have on other layers, but
  /// nothing may be drawn on its own.
  bool isBlocksAlone = false;
  /// Where the script shows a height of 1 in the coordinates around the entity: beside its foot
  /// within an oblique block.
  Point depth{};

  /// From the entity's object coordinates, at this height, to the script.
  Affine objectMap(double elevation = 0.0) const;
  /// From the coordinates around the entity, at this height, to the script.
  Affine mapAt(double height) const;
  /// Where the script shows a point of the coordinates around the entity.
  QUILLON_IN_EACH_LOOP Point seen(Point foot, double height) const {
    return depth == Point{} ? map(foot) : map(foot) + depth * height;
  }
};

/// Points, and the map from their coordinates to the script.
struct PlacedPoints {
  std::vector<Point> points;
  Affine map;
  bool areSeen = false;  ///< they are where the script shows them, and the map changes nothing
};
/// Points of the coordinates around an entity, each with its height, or all without. They are only
/// moved where an oblique block shows their heights and these differ: a curve through them is
/// shaped by distances in the block.
PlacedPoints placedPoints(const Item& item, std::vector<Point> points,
                          std::span<const double> heights);

struct NumberField {
  int code;
  double* value;
};
/// Reads numbers by their group codes, each of them given once; the last group of a code counts, an
/// absent one changes nothing.
void readNumbers(EntityGroups groups, std::initializer_list<NumberField> fields);

}  // namespace quillon::exact
