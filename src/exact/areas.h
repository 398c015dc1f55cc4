#pragma once

#include <set>
#include <utility>

#include "exact/canvas.h"

namespace quillon::exact {

/// SOLID and TRACE.
void drawSolid(const Item& item, Canvas& canvas);

/// 3DFACE: edges alone, and each once in a run of faces that follow each other on one layer.
class FaceRun {
 public:
  void draw(const Item& item, Canvas& canvas);
  /// Another entity follows.
  void end() {
    if (!drawn_.empty()) drawn_.clear();
  }

 private:
  /// Counts an edge in either sense as drawn; false when it was already.
  bool isNew(Point from, Point to, double resolution);

  int layer_ = 0;
  std::set<std::pair<std::pair<double, double>, std::pair<double, double>>> drawn_;
};

}  // namespace quillon::exact
