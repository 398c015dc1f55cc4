#include <algorithm>
#include <utility>

#include "exact/annotations.h"
#include "exact/arrow_heads.h"
#include "exact/leader_line.h"
#include "exact/multileader_values.h"
#include "geometry/degrees.h"
#include "geometry/object_coordinates.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

void drawDogleg(const Item& item, const LeaderBranch& branch, Canvas& canvas) {
  const Point end = *branch.end + geometry::unit(branch.dogleg) * branch.doglegLength;
  if (end == *branch.end) return;
  canvas.stroke(item, {{{*branch.end}, {end}}, false}, item.map, {.cleanable = false});
}

void drawLeaderLines(const Item& item, const MultiLeader& leader, Canvas& canvas,
                     BlockDrawer& blocks) {
  std::vector<ArrowPlace> arrows;
  for (const LeaderBranch& branch : leader.branches) {
    for (const std::vector<Point>& points : branch.lines) {
      if (canvas.step()) return;
      LeaderLine line{points, {}, leader.hasSplines};
      if (branch.end) line.points.push_back(*branch.end);
      drawLeaderLine(item, line, canvas);
      if (const auto arrow = leaderArrow(line)) arrows.push_back(*arrow);
    }
    const bool hasDogleg = leader.hasDoglegs && branch.hasDogleg && branch.end;
    if (hasDogleg) drawDogleg(item, branch, canvas);
  }
  drawArrows(item, leader.arrowBlock, leader.arrowSize, arrows, item.map, canvas, blocks);
}

void drawLeaderBlock(const Item& item, const MultiLeader& leader, Canvas& canvas,
                     BlockDrawer& blocks) {
  const LeaderBlock& block = *leader.block;
  const auto scaleOf = [](double scale) { return scale != 0.0 ? scale : 1.0; };
  const Affine map = item.map * Affine::shift(block.at) *
                     geometry::objectCoordinates(block.normalX, block.normalY, block.normalZ) *
                     Affine::turnTo(geometry::unitVector(geometry::degreesOf(block.rotation))) *
                     Affine::scaling(scaleOf(block.scaleX), scaleOf(block.scaleY));
  if (!blocks.drawBlock(item, block.name, map, leader.attributes)) {
    canvas.loseNamed(item, LossRule::MissingBlock, block.name);
  }
}

}  // namespace

ParagraphText leaderParagraph(const LeaderText& text) {
  // The direction tells the whole angle, where it is not left as it was.
  const double direction = geometry::directionOf(text.direction);
  ParagraphText paragraph;
  paragraph.content = text.content;
  paragraph.at = text.at;
  paragraph.height = text.height;
  paragraph.angle = direction != 0.0 ? direction : geometry::degreesOf(text.rotation);
  paragraph.width = text.width;
  paragraph.attachment = static_cast<int>(std::clamp(text.column, 1.0, 3.0));
  paragraph.lineSpacing = text.lineSpacing;
  paragraph.exactSpacing = text.spacingStyle == 2.0;
  paragraph.style = text.style;
  return paragraph;
}

void drawMultiLeader(const Item& around, Canvas& canvas, BlockDrawer& blocks) {
  const MultiLeader leader = readMultiLeader(around, canvas);
  Item item = around;
  item.map = around.mapAt(leader.height);
  if (!leader.hasContext) return canvas.lose(item, LossRule::DamagedEntity);
  if (leader.block) drawLeaderBlock(item, leader, canvas, blocks);
  if (item.isBlocksAlone) return loseOwnLines(item, canvas);
  if (leader.hasBreaks && leader.hasLines) canvas.lose(item, LossRule::LeaderBreaks);
  if (leader.hasLines) drawLeaderLines(item, leader, canvas, blocks);
  if (leader.text) drawParagraph(item, leaderParagraph(*leader.text), item.map, canvas);
}

}  // namespace quillon::exact
