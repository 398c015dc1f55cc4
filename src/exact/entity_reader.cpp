#include "exact/entity_reader.h"

#include <algorithm>
#include <string>

#include "base/encoding.h"
#include "base/number_text.h"

namespace quillon::exact {
namespace {

/// Groups that mean the same for all kinds stand in the first class of an entity's data; in the
/// classes of its kind some of their codes mean something else.
struct CommonGroups {
  int classes = 0;

  bool isCommon(const dxf::Group& group) {
    constexpr std::int16_t kClassCode = 100;
    if (group.code == kClassCode) ++classes;
    return classes < 2;
  }
};

int roundedWeight(std::string_view text) {
  return static_cast<int>(std::clamp(base::numberValue(text), -3.0, 10000.0));
}

/// Where an entity is, as far as that is the same for many kinds.
void takePlace(const dxf::Group& group, Entity& entity) {
  switch (group.code) {
    case 10:
      entity.ends[0] = group.value;
      break;
    case 20:
      entity.ends[1] = group.value;
      break;
    case 11:
      entity.ends[2] = group.value;
      break;
    case 21:
      entity.ends[3] = group.value;
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
    default:
      break;
  }
}

}  // namespace

EntityReader::EntityReader(dxf::Drawing& drawing) : drawing_(drawing) {
  for (std::size_t i = 0; i < namesOfKinds_.size(); ++i) {
    const std::string_view name = dxf::entityName(static_cast<dxf::EntityKind>(i));
    namesOfKinds_[i] = {name, kindOf(name)};
  }
}

Entity EntityReader::read(const dxf::DxfEntity& found) {
  Entity entity;
  const Name name = nameOf(found);
  entity.kind = name.kind;
  entity.countedAs = found.kind;
  entity.name = name.text;
  entity.groups = {found.groups, found.groupsEnd};
  entity.line = found.line;
  CommonGroups common;
  if (!found.split.empty()) {
    entity.split = found.split;
    for (const dxf::Group& group : entity.split) take(group, common.isCommon(group), entity);
    return entity;
  }
  dxf::GroupCursor groups(dxf::LineCursor(entity.groups, drawing_.lineEnds));
  for (dxf::Group group; groups.next(group);) take(group, common.isCommon(group), entity);
  return entity;
}

inline void EntityReader::take(const dxf::Group& group, bool isCommon, Entity& entity) {
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
    case 370:
      if (isCommon) entity.lineWeight = roundedWeight(group.value);
      break;
    default:
      takePlace(group, entity);
  }
}

std::string_view EntityReader::upperName(std::string_view name) {
  if (const std::string_view* const recent = recentUpperNames_.find(name)) return *recent;
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
