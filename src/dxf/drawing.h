#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/encoding.h"
#include "dxf/entity_kinds.h"
#include "dxf/file_text.h"

namespace quillon::dxf {

/// The value of `ltScale` and `pointSize` when the drawing gives none.
inline constexpr double kNotGiven = 98899999.0;

struct LineTypeRec {
  std::string_view name;  ///< upper-cased
  /// 0 description, 1 number of dash elements, 2 total length, 3 dash list: lengths, each with ";"
  std::array<std::string_view, 4> values;
  bool used = false;
};

struct LayerRec {
  std::string_view name;  ///< upper-cased
  bool used = false;      ///< an entity on this layer was read
  /// 0 colour number, 1 line type as found
  std::array<std::string_view, 2> values;
};

struct TextStyleRec {
  std::string_view name;  ///< upper-cased
  /// 0 fixed height, 1 width factor, 2 generation flags
  std::array<std::string_view, 3> values;
};

/// Where an entity of the drawing stands. Its values are read when they are asked for (readEntity),
/// so that a drawing costs 8 bytes for each entity beside its text.
class EntityRef {
 public:
  EntityRef(EntityKind kind, std::uint64_t place)
      : bits_(place << kKindBits | static_cast<std::uint64_t>(kind)) {}

  EntityKind kind() const { return static_cast<EntityKind>(bits_ & ((1U << kKindBits) - 1)); }
  /// Offset of the entity's first group in the text; for the kinds that have a side record
  /// (LWPOLYLINE, LEADER, SPLINE) the index of that record, which holds the offset.
  std::uint64_t place() const { return bits_ >> kKindBits; }

 private:
  static constexpr unsigned kKindBits = 8;
  std::uint64_t bits_;
};

using EntityList = std::deque<EntityRef>;

/// A block definition. Texts as found, the name upper-cased.
struct BlockRec {
  std::string_view name;
  std::string_view layer;
  std::string_view baseX;
  std::string_view baseY;
  EntityList items;

  /// True for the blocks that hold a layout and are no parts: by their names, as intended.
  bool isLayout() const;
};

/// Entity names that were met but are not recognised, with their numbers.
using UnknownKinds = std::unordered_map<std::string_view, std::uint64_t>;

/// The first of several records with one name wins, so an index never replaces an entry.
using NameIndex = std::unordered_map<std::string_view, std::size_t>;

/// All that the reader leaves for the conversion. The texts are views into `text`, which must
/// outlive the drawing, or into `arena`.
struct Drawing {
  explicit Drawing(const FileText& source) : text(&source) {}
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  const FileText* text;
  TextArena arena;
  Encoding encoding = Encoding::Windows1252;

  double angDir = 0.0;           ///< 1.0: angles run clockwise
  double fillMode = 1.0;         ///< 1.0: areas are filled
  double ltScale = kNotGiven;    ///< factor on dash lengths
  double pointSize = kNotGiven;  ///< size of a point
  std::deque<LineTypeRec> lineTypes;
  std::deque<LayerRec> layers;
  std::deque<TextStyleRec> textStyles;
  std::deque<BlockRec> blocks;
  EntityList entities;

  /// Offset of the first group of each LWPOLYLINE and LEADER; the first one read has index 1.
  std::deque<std::uint64_t> polyVertexLists{0};
  /// The same for each SPLINE.
  std::deque<std::uint64_t> splineData{0};

  UnknownKinds unknownKinds;
  bool anySection = false;  ///< some section name was found

  NameIndex layerIndex;
  NameIndex lineTypeIndex;
  NameIndex blockIndex;

  /// Position of an entity's first group in the text.
  const char* groupsOf(EntityRef entity) const;

  void addLayer(LayerRec layer);
  void addLineType(LineTypeRec lineType);
  void addBlock(BlockRec block);

  /// The first record of this upper-cased name, or null.
  LayerRec* findLayer(std::string_view name);
  LineTypeRec* findLineType(std::string_view name);
};

/// Index of the first block of this upper-cased name. 0 also stands for an unknown name: callers
/// that must tell the two apart compare the name.
std::size_t findBlock(const Drawing& drawing, std::string_view name);

}  // namespace quillon::dxf
