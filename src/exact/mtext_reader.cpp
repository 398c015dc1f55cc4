#include "exact/mtext_reader.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "base/number_text.h"
#include "geometry/degrees.h"
#include "geometry/object_coordinates.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// Begins an object within an entity: an MTEXT, or in an MTEXT its columns.
constexpr std::int16_t kEmbedded = 101;
/// The largest x and y of a unit normal that is along the z axis.
constexpr double kAlongAxis = 1e-9;

struct SpaceVector {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  double length() const { return std::sqrt(x * x + y * y + z * z); }
};

SpaceVector crossProduct(const SpaceVector& a, const SpaceVector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

SpaceVector unitNormalOf(const Entity& entity) {
  const SpaceVector normal{entity.normalX, entity.normalY, entity.normalZ};
  const double length = normal.length();
  if (!(length > 0.0) || !std::isfinite(length)) return {0.0, 0.0, 1.0};
  return {normal.x / length, normal.y / length, normal.z / length};
}

/// A text as long as in the file; groups are trimmed, which would eat blanks where a long text has
/// been cut into parts.
std::string_view untrimmed(std::string_view value, dxf::LineRange around) {
  const char* begin = value.data();
  const char* end = begin + value.size();
  while (begin != around.begin && begin[-1] == ' ') --begin;
  while (end != around.end && *end == ' ') ++end;
  return {begin, static_cast<std::size_t>(end - begin)};
}

class MtextReader {
 public:
  explicit MtextReader(const Item& item) : item_(item) {}

  MtextGroups read(EntityGroups groups) {
    for (dxf::Group group; groups.next(group);) {
      if (group.code == kEmbedded) inColumns_ = true;
      inColumns_ ? takeOfColumns(group) : take(group);
    }
    content_ += lastPart_;
    found_.text.content = std::move(content_);
    found_.text.boxHeight = hasColumns_ ? 0.0 : boxHeight_;
    if (hasColumns_) found_.changes.push_back(LossRule::TextColumns);
    if (isVertical_) found_.changes.push_back(LossRule::TextVertical);
    if (hasBackground_) found_.changes.push_back(LossRule::TextBackground);
    place();
    return std::move(found_);
  }

 private:
  void take(const dxf::Group& group);
  void takeNumber(const dxf::Group& group);
  void takeLayout(int code, double number);
  void takePlace(int code, double number);
  void takeOfColumns(const dxf::Group& group);
  void place();
  void placeAlong(const SpaceVector& along, const SpaceVector& normal);

  const Item& item_;
  MtextGroups found_;
  std::string content_;
  std::string_view lastPart_;
  SpaceVector direction_;
  bool isByDirection_ = false;  ///< else by the angle
  bool hasAngle_ = false;
  bool hasColumnGroups_ = false;
  bool inColumns_ = false;
  bool hasColumns_ = false;
  bool hasBackground_ = false;  ///< an area that hides what lies below, or a frame
  bool isVertical_ = false;
  double boxHeight_ = 0.0;
};

void MtextReader::take(const dxf::Group& group) {
  switch (group.code) {
    case 1:
      lastPart_ = untrimmed(group.value, item_.entity.groups);
      break;
    case 3:
      content_ += untrimmed(group.value, item_.entity.groups);
      break;
    case 7:
      found_.text.style = group.value;
      break;
    default:
      takeNumber(group);
      break;
  }
}

void MtextReader::takeNumber(const dxf::Group& group) {
  constexpr int kFirstNumber = 10;
  constexpr int kLastNumber = 90;
  if (group.code < kFirstNumber || group.code > kLastNumber) return;
  const double number = base::numberValue(group.value);
  takeLayout(group.code, number);
  takePlace(group.code, number);
}

void MtextReader::takeLayout(int code, double number) {
  constexpr double kDownwards = 3.0;
  constexpr double kExactly = 2.0;
  ParagraphText& text = found_.text;
  if (code == 40) text.height = std::fabs(number);
  if (code == 41) text.width = number;
  if (code == 43) boxHeight_ = number;
  if (code == 44) text.lineSpacing = number;
  if (code == 71) text.attachment = static_cast<int>(std::clamp(number, 0.0, 10.0));
  if (code == 72) isVertical_ = number == kDownwards;
  if (code == 73) text.exactSpacing = number == kExactly;
  if (code == 75) hasColumnGroups_ = number != 0.0;
  if (code == 76) hasColumns_ = hasColumnGroups_ && number > 1.0;
  if (code == 90) hasBackground_ = number != 0.0;
}

void MtextReader::takePlace(int code, double number) {
  switch (code) {
    case 10:
      found_.text.at.x = number;
      break;
    case 20:
      found_.text.at.y = number;
      break;
    case 30:
      found_.elevation = number;
      break;
    case 11:
      direction_.x = number;
      isByDirection_ = true;
      break;
    case 21:
      direction_.y = number;
      isByDirection_ = true;
      break;
    case 31:
      direction_.z = number;
      break;
    case 50:
      // The heights of columns have the same code.
      if (hasColumnGroups_) break;
      found_.text.angle = number;
      hasAngle_ = true;
      isByDirection_ = false;
      break;
    default:
      break;
  }
}

/// Columns that are an object of their own. That of a text with a single one knows its height, too.
void MtextReader::takeOfColumns(const dxf::Group& group) {
  const double number = base::numberValue(group.value);
  if (group.code == 43) boxHeight_ = number;
  if (group.code == 72) hasColumns_ = number > 1.0;
}

void MtextReader::placeAlong(const SpaceVector& along, const SpaceVector& normal) {
  const SpaceVector up = crossProduct(normal, along);
  found_.lettering = {{along.x, along.y}, {up.x, up.y}};
  found_.rise = along.z;
  found_.riseUp = up.z;
}

void MtextReader::place() {
  const SpaceVector normal = unitNormalOf(item_.entity);
  const double length = direction_.length();
  if (isByDirection_ && length > 0.0 && geometry::usable(length)) {
    return placeAlong({direction_.x / length, direction_.y / length, direction_.z / length},
                      normal);
  }
  // Programs leave the direction out where it is the world's x axis, also seen from below.
  if (!hasAngle_ && std::fabs(normal.x) < kAlongAxis && std::fabs(normal.y) < kAlongAxis) {
    return placeAlong({1.0, 0.0, 0.0}, normal);
  }
  const Affine object = geometry::objectCoordinates(normal.x, normal.y, normal.z);
  const Point along = geometry::unitVector(found_.text.angle);
  const Point up = geometry::leftOf(along);
  const auto height = geometry::objectHeight(normal.x, normal.y, normal.z);
  found_.lettering = {object.turn(along), object.turn(up)};
  found_.rise = height.perX * along.x + height.perY * along.y;
  found_.riseUp = height.perX * up.x + height.perY * up.y;
}

}  // namespace

MtextGroups readMtext(const Item& item, EntityGroups groups) {
  return MtextReader(item).read(groups);
}

bool findEmbeddedMtext(EntityGroups& groups) {
  for (dxf::Group group; groups.next(group);) {
    if (group.code == kEmbedded) return true;
  }
  return false;
}

}  // namespace quillon::exact
