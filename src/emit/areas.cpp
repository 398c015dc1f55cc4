#include "emit/areas.h"

#include <string>

namespace quillon::emit {
namespace {

ScriptWriter& putCorner(ScriptWriter& script, Corner corner) {
  return script.formatPoint(corner.x, corner.y);
}

}  // namespace

void writeSolid(EmitContext& context, const std::array<Corner, 4>& corners, int layer) {
  if (layer == kNotConverted) return;
  const auto& [c1, c2, c3, c4] = corners;
  const int changes = int{c2 != c1} + int{c3 != c2} + int{c4 != c3};
  if (changes < 3) return;
  ScriptWriter& script = context.script;
  script.writeLayer(layer);
  script.text("Polygon ").number(context.settings.fillWidth).text(" ");
  putCorner(script, c1).text(" ");
  // Which corner is compared with which is intended as it stands.
  if (c2 != c1) putCorner(script, c2);
  if (c3 != c1 && c3 != c2) putCorner(script, c3);
  if (c4 != c2 && c4 != c3) putCorner(script, c4);
  if (c4 != c1) putCorner(script, c1);
  script.text(";").endLine();
  script.finishCommand(2);
}

void PolygonWriter::open(Corner first, Corner second, int layer) {
  if (layer == kNotConverted) return;
  ++counter_;
  ScriptWriter& script = context_.script;
  script.writeLayer(layer);
  script.text("Polygon ").number(context_.settings.fillWidth);
  script.text(" '").text(std::to_string(counter_)).text("' ");
  putCorner(script, first).text(" ");
  if (second != first) putCorner(script, second);
  last_ = second;
  script.count(2);
}

void PolygonWriter::add(Corner vertex, int layer) {
  if (layer == kNotConverted || vertex == last_) return;
  context_.script.text("\\").endLine();
  putCorner(context_.script, vertex);
  last_ = vertex;
  context_.script.count(1);
}

void PolygonWriter::close(int layer) {
  if (layer == kNotConverted) return;
  // Closing counts as a command although it ends the line that is already counted: intended.
  putCorner(context_.script, last_).text(";").endLine();
  context_.script.finishCommand(1);
}

}  // namespace quillon::emit
