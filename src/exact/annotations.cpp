#include "exact/annotations.h"

#include <optional>
#include <string>

#include "base/encoding.h"
#include "base/layer_number.h"
#include "base/number_text.h"
#include "exact/arrow_heads.h"
#include "exact/dimension_drawing.h"
#include "exact/dimension_style.h"
#include "exact/dimension_values.h"
#include "exact/leader_line.h"
#include "geometry/degrees.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// False for a block without entities, as programs leave them that do not draw their dimensions.
bool hasEntities(const dxf::Drawing& drawing, std::string_view upperName) {
  const std::size_t index = dxf::findBlock(drawing, upperName);
  if (drawing.blocks.empty() || drawing.blocks[index].name != upperName) return false;
  // Blocks have a few groups of their own; one with more of them is not worth the search.
  constexpr int kMostGroups = 1000;
  dxf::LineCursor lines(drawing.blocks[index].text, drawing.lineEnds);
  for (int i = 0; i < kMostGroups; ++i) {
    if (lines.atEnd()) return false;
    const bool isStart = base::trimBlanks(lines.next()) == "0";
    const std::string_view value = base::trimBlanks(lines.next());
    if (isStart && value != "ENDBLK") return !value.empty();
  }
  return true;
}

struct LeaderGroups {
  LeaderLine line;
  bool hasArrow = true;
};

LeaderGroups readLeader(const Item& item, Canvas& canvas) {
  constexpr int kExtendedData = 1000;
  LeaderGroups values;
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group) && group.code < kExtendedData;) {
    const double number = base::numberValue(group.value);
    if (group.code == 10) {
      if (canvas.step()) break;
      values.line.points.push_back({number, 0.0});
      if (item.depth != Point{}) values.line.heights.push_back(0.0);
    }
    if (group.code == 20 && !values.line.points.empty()) values.line.points.back().y = number;
    if (group.code == 30 && !values.line.heights.empty()) values.line.heights.back() = number;
    if (group.code == 71) values.hasArrow = number != 0.0;
    if (group.code == 72) values.line.isSpline = number == 1.0;
  }
  return values;
}

/// "%%v" is the line between two fields of a frame.
std::string withoutFieldLines(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::string_view next = text.substr(i, 3);
    const bool isLine = next == "%%v" || next == "%%V";
    result += isLine ? ' ' : text[i];
    if (isLine) i += 2;
  }
  return result;
}

std::string_view firstTextOf(const Item& item, int code, const Canvas& canvas) {
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    if (group.code == code) return group.value;
  }
  return {};
}

struct TablePlace {
  Point at;
  double height = 0.0;
  Point direction{1.0, 0.0};
};

/// The first groups of each code: cells have some of them as well.
TablePlace readTablePlace(const Item& item, const Canvas& canvas) {
  TablePlace place;
  struct Field {
    double* value;
    int code;
    bool isRead = false;
  };
  Field fields[] = {{&place.at.x, 10},
                    {&place.at.y, 20},
                    {&place.height, 30},
                    {&place.direction.x, 11},
                    {&place.direction.y, 21}};
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    for (Field& field : fields) {
      if (field.code != group.code || field.isRead) continue;
      field.isRead = true;
      *field.value = base::numberValue(group.value);
    }
  }
  return place;
}

}  // namespace

void loseOwnLines(const Item& item, Canvas& canvas) {
  if (item.origin.layer != base::kNotConverted) canvas.lose(item, LossRule::LayerOff);
}

void drawDimension(const Item& item, Canvas& canvas, BlockDrawer& blocks) {
  const DimensionValues values = readDimension(item, canvas);
  const std::string block = base::upperCase(values.block, canvas.drawing().encoding);
  if (hasEntities(canvas.drawing(), block) && blocks.drawBlock(item, block, values.blockMap)) {
    return;
  }
  if (item.isBlocksAlone) return loseOwnLines(item, canvas);
  const bool isKnown =
      item.entity.kind == Kind::Dimension && values.type <= DimensionType::Ordinate;
  if (!isKnown) return canvas.lose(item, LossRule::DimensionWithoutBlock);
  drawDimensionByPoints(item, values, canvas, blocks);
}

void drawLeader(const Item& item, Canvas& canvas, BlockDrawer& blocks) {
  const LeaderGroups leader = readLeader(item, canvas);
  drawLeaderLine(item, leader.line, canvas);
  const std::optional<ArrowPlace> arrow = leaderArrow(leader.line);
  if (!leader.hasArrow || !arrow) return;
  const DimensionStyle style = readDimensionStyle(item, canvas);
  const std::vector<double>& heights = leader.line.heights;
  const Affine map = item.mapAt(heights.empty() ? 0.0 : heights.front());
  drawArrows(item, style.arrows.leader, style.arrowSize, {*arrow}, map, canvas, blocks);
}

ParagraphText toleranceText(const Item& item, const Canvas& canvas) {
  constexpr int kMiddleLeft = 4;
  ParagraphText text;
  Point direction{1.0, 0.0};
  readNumbers(canvas.groupsOf(item),
              {{10, &text.at.x}, {20, &text.at.y}, {11, &direction.x}, {21, &direction.y}});
  const DimensionStyle style = readDimensionStyle(item, canvas);
  text.content = withoutFieldLines(firstTextOf(item, 1, canvas));
  text.height = style.textHeight;
  text.angle = geometry::directionOf(direction);
  text.attachment = kMiddleLeft;
  text.style = style.textStyle;
  return text;
}

void drawTolerance(const Item& item, Canvas& canvas) {
  const ParagraphText text = toleranceText(item, canvas);
  double height = 0.0;
  readNumbers(canvas.groupsOf(item), {{30, &height}});
  const Affine map = item.mapAt(height);
  canvas.lose(item, LossRule::ToleranceFrame, map(text.at));
  drawParagraph(item, text, map, canvas);
}

void drawTable(const Item& item, Canvas& canvas, BlockDrawer& blocks) {
  const TablePlace place = readTablePlace(item, canvas);
  const std::string block =
      base::upperCase(firstTextOf(item, 2, canvas), canvas.drawing().encoding);
  Point x = geometry::unit(place.direction);
  if (x == Point{}) x = {1.0, 0.0};
  const Point y = item.entity.normalZ < 0.0 ? -geometry::leftOf(x) : geometry::leftOf(x);
  const Affine frame{x.x, y.x, x.y, y.y, place.at.x, place.at.y};
  if (!blocks.drawBlock(item, block, item.mapAt(place.height) * frame)) {
    canvas.loseNamed(item, LossRule::MissingBlock, block);
  }
}

}  // namespace quillon::exact
