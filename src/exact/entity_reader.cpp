#include "exact/entity_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "base/encoding.h"
#include "base/number_text.h"

namespace quillon::exact {
namespace {

/// What the common rules do with the groups of a code: an index of Entity::ends, or one of these.
enum GroupUse : std::uint8_t { kUsedElsewhere = 4, kCommonGroup = 5 };

constexpr std::size_t kCodesLookedUp = 512;

constexpr std::array<std::uint8_t, kCodesLookedUp> groupUses() {
  std::array<std::uint8_t, kCodesLookedUp> uses{};
  for (std::uint8_t& use : uses) use = kUsedElsewhere;
  for (const std::size_t code : {6U, 8U, 48U, 60U, 67U, 100U, 210U, 220U, 230U, 370U}) {
    uses[code] = kCommonGroup;
  }
  uses[10] = 0;
  uses[20] = 1;
  uses[11] = 2;
  uses[21] = 3;
  return uses;
}
constexpr std::array<std::uint8_t, kCodesLookedUp> kGroupUses = groupUses();

std::uint8_t useOf(const dxf::Group& group) {
  const auto code = static_cast<std::uint16_t>(group.code);
  return code < kCodesLookedUp ? kGroupUses[code] : std::uint8_t{kUsedElsewhere};
}

int roundedWeight(std::string_view text) {
  return static_cast<int>(std::clamp(base::numberValue(text), -3.0, 10000.0));
}

}  // namespace

EntityReader::EntityReader(dxf::Drawing& drawing) : drawing_(drawing) {
  for (std::size_t i = 0; i < namesOfKinds_.size(); ++i) {
    const std::string_view name = dxf::entityName(static_cast<dxf::EntityKind>(i));
    namesOfKinds_[i] = {name, kindOf(name)};
  }
}

Entity EntityReader::read(const dxf::DxfEntity& found) {
  const Name name = nameOf(found);
  Entity entity(name.kind, found.kind, name.text);
  entity.groups = {found.groups, found.groupsEnd};
  entity.line = found.line;
  int classes = 0;
  const auto takeGroup = [&](const dxf::Group& group) {
    const std::uint8_t use = useOf(group);
    if (use < entity.ends.size()) {
      entity.ends[use] = group.value;
    } else if (use == kCommonGroup) {
      take(group, classes, entity);
    }
  };
  if (!found.split.empty()) {
    entity.split = found.split;
    for (const dxf::Group& group : found.split) takeGroup(group);
  } else {
    dxf::GroupCursor groups(dxf::LineCursor(entity.groups, drawing_.lineEnds));
    for (dxf::Group group; groups.next(group);) takeGroup(group);
  }
  if (entity.layer.empty()) entity.layer = "0";
  return entity;
}

/// Groups that mean the same for all kinds stand in the first class of an entity's data; in the
/// classes of its kind some of their codes mean something else.
void EntityReader::take(const dxf::Group& group, int& classes, Entity& entity) {
  const bool isCommon = classes < 2;
  switch (group.code) {
    case 8:
      if (entity.layer.empty()) entity.layer = upperName(group.value);
      break;
    case 6:
      if (isCommon) entity.lineType = upperName(group.value);
      break;
    case 48:
      if (isCommon) entity.lineTypeScale = base::numberValue(group.value);
      break;
    case 60:
      if (isCommon) entity.isInvisible = base::isOddNumber(group.value);
      break;
    case 67:
      if (isCommon) entity.isInPaperSpace = base::numberValue(group.value) != 0.0;
      break;
    case 100:
      ++classes;
      break;
    case 210:
      entity.normalX = base::numberValue(group.value);
      break;
    case 220:
      entity.normalY = base::numberValue(group.value);
      break;
    case 230:
      entity.normalZ = base::numberValue(group.value);
      break;
    case 370:
      if (isCommon) entity.lineWeight = roundedWeight(group.value);
      break;
    default:
      break;
  }
}

std::string_view EntityReader::searchedUpperName(std::string_view name) {
  auto place = upperNames_.find(name);
  if (place == upperNames_.end()) {
    const std::string_view upper = drawing_.arena.keep(base::upperCase(name, drawing_.encoding));
    place = upperNames_.emplace(drawing_.arena.keep(name), upper).first;
  }
  return recentUpperNames_.keep(place->first, place->second);
}

EntityReader::Name EntityReader::nameOf(const dxf::DxfEntity& found) {
  if (found.kind == dxf::EntityKind::None) return keptName(found.name);
  return namesOfKinds_[static_cast<std::size_t>(found.kind)];
}

EntityReader::Name EntityReader::keptName(std::string_view name) {
  if (const Name* const recent = recentNames_.find(name)) return *recent;
  auto place = names_.find(name);
  if (place == names_.end()) {
    const std::string_view kept = drawing_.arena.keep(name);
    place = names_.emplace(kept, Name{kept, kindOf(kept)}).first;
  }
  return recentNames_.keep(place->first, place->second);
}

}  // namespace quillon::exact
