#include "plan_entities.h"

#include <cstdint>
#include <string>

#include "drawings.h"

namespace quillon::bench {

DrawingText& PlanEntities::begin(std::string_view name, std::string_view subclass) {
  text_.beginEntity(name, kLayers[dice_.below(kLayers.size())]);
  if (dice_.below(8) == 0) text_.group(6, dice_.below(2) == 0 ? "HIDDEN" : "Center");
  return text_.group(100, subclass);
}

void PlanEntities::beginBlock(std::string_view name, double extent) {
  text_.beginEntity("BLOCK", kLayers[0]).group(100, "AcDbBlockBegin").group(2, name);
  text_.integer(70, 0).point(10, 0.0, 0.0).group(3, name).group(1, "");
  extent_ = extent;
}

void PlanEntities::endBlock() {
  text_.beginEntity("ENDBLK", kLayers[0]).group(100, "AcDbBlockEnd");
  extent_ = kExtent;
}

void PlanEntities::line() {
  begin("LINE", "AcDbLine").point(10, place(), place()).point(11, place(), place());
}

void PlanEntities::circle() {
  begin("CIRCLE", "AcDbCircle").point(10, place(), place()).number(40, dice_.measure(0.5, 20.0));
}

void PlanEntities::arc() {
  begin("ARC", "AcDbCircle").point(10, place(), place()).number(40, dice_.measure(0.5, 20.0));
  text_.group(100, "AcDbArc").number(50, dice_.measure(0.0, 360.0));
  text_.number(51, dice_.measure(0.0, 360.0));
}

void PlanEntities::ellipse() {
  begin("ELLIPSE", "AcDbEllipse").point(10, place(), place());
  text_.point(11, dice_.measure(1.0, 20.0), dice_.measure(1.0, 20.0)).number(210, 0.0);
  text_.number(220, 0.0).number(230, 1.0).number(40, dice_.measure(0.1, 1.0));
  text_.number(41, 0.0).number(42, 6.283185307179586);
}

void PlanEntities::text() {
  begin("TEXT", "AcDbText").point(10, place(), place()).number(40, 2.5);
  const std::string room = "Room " + std::to_string(dice_.below(1000));
  text_.group(1, dice_.below(4) == 0 ? room + ", %%c12" : room);
  text_.number(50, dice_.below(4) == 0 ? 90.0 : 0.0).group(7, "STANDARD").group(100, "AcDbText");
}

void PlanEntities::lwPolyline(std::size_t vertices) {
  begin("LWPOLYLINE", "AcDbPolyline").integer(90, static_cast<std::int64_t>(vertices));
  text_.integer(70, static_cast<std::int64_t>(dice_.below(2))).number(43, 0.0);
  for (std::size_t i = 0; i < vertices; ++i) {
    text_.number(10, place()).number(20, place());
    if (dice_.below(10) == 0) text_.number(42, dice_.measure(-1.0, 1.0));
  }
}

void PlanEntities::spline() {
  constexpr int kControlPoints = 6;
  constexpr int kDegree = 3;
  begin("SPLINE", "AcDbSpline").integer(70, 8).integer(71, kDegree);
  text_.integer(72, kControlPoints + kDegree + 1).integer(73, kControlPoints).integer(74, 0);
  for (int i = 0; i < kControlPoints + kDegree + 1; ++i) text_.number(40, i);
  for (int i = 0; i < kControlPoints; ++i) text_.point(10, place(), place());
}

}  // namespace quillon::bench
