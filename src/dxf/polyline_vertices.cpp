#include "dxf/polyline_vertices.h"

namespace quillon::dxf {

bool PolyVertexWalk::next(PolyVertex& vertex) {
  if (stage_ == Stage::Groups) {
    if (nextFromGroups(vertex)) return true;
    stage_ = Stage::Closing;
    if (take(vertex)) return true;
  }
  if (stage_ == Stage::Closing) {
    stage_ = Stage::Done;
    // The closing vertex has no start width, and the end width and bulge of the last one; kept so
    // that scripts stay the same.
    vertex = {first_.x, first_.y, {}, current_.endWidth, current_.bulge};
    return mayClose_ && base::isOddNumber(flags_);
  }
  return false;
}

/// True at the first group of a vertex, if the one before it is complete.
QUILLON_IN_EACH_LOOP inline bool PolyVertexWalk::visit(const Group& group, PolyVertex& vertex) {
  if (group.code == 20) {
    current_.y = group.value;
  } else if (group.code == 10) {
    const bool complete = take(vertex);
    current_ = {group.value, {}, width_, width_, {}};
    return complete;
  } else {
    visitOther(group);
  }
  return false;
}

bool PolyVertexWalk::nextFromGroups(PolyVertex& vertex) {
  // Mostly, all groups have been split already.
  while (const Group* const group = groups_.nextSplit()) {
    if (visit(*group, vertex)) return true;
  }
  return nextFromRest(vertex);
}

bool PolyVertexWalk::nextFromRest(PolyVertex& vertex) {
  for (Group group; groups_.next(group);) {
    if (visit(group, vertex)) return true;
  }
  return false;
}

void PolyVertexWalk::visitOther(const Group& group) {
  switch (group.code) {
    case 40:
      current_.startWidth = group.value;
      break;
    case 41:
      current_.endWidth = group.value;
      break;
    case 42:
      current_.bulge = group.value;
      break;
    case 70:
      flags_ = group.value;
      break;
    default:
      break;
  }
}

bool PolyVertexWalk::take(PolyVertex& vertex) {
  if (current_.x.empty() || current_.y.empty()) return false;
  vertex = current_;
  if (!anyTaken_) first_ = current_;
  anyTaken_ = true;
  return true;
}

}  // namespace quillon::dxf
