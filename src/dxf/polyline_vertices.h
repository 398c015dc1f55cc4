#pragma once

#include <string_view>

#include "dxf/group_cursor.h"

namespace quillon::dxf {

/// A vertex of an LWPOLYLINE or LEADER, texts as found.
struct PolyVertex {
  std::string_view x;
  std::string_view y;
  std::string_view startWidth;
  std::string_view endWidth;  ///< for rules that draw tapering widths; the classic ones do not
  std::string_view bulge;
};

/// Iterates over the vertices of an LWPOLYLINE or LEADER, so that a polyline with millions of them
/// needs no list.
///
/// A vertex without x or y is skipped. A closed polyline ends with one more vertex: position of the
/// first one, no start width, end width and bulge of the last one.
class PolyVertexWalk {
 public:
  /// `width` is the polyline's group 43, the initial width of every vertex. A kind without a closed
  /// flag never closes.
  PolyVertexWalk(GroupReplay groups, std::string_view width, bool mayClose = true)
      : groups_(groups), width_(width), mayClose_(mayClose) {}

  bool next(PolyVertex& vertex);

 private:
  enum class Stage { Groups, Closing, Done };

  bool nextFromGroups(PolyVertex& vertex);
  bool nextFromRest(PolyVertex& vertex);
  bool visit(const Group& group, PolyVertex& vertex);
  void visitOther(const Group& group);
  bool take(PolyVertex& vertex);

  GroupReplay groups_;
  std::string_view width_;
  bool mayClose_;
  PolyVertex current_;
  PolyVertex first_;
  bool anyTaken_ = false;
  std::string_view flags_;
  Stage stage_ = Stage::Groups;
};

}  // namespace quillon::dxf
