#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "geometry/box.h"
#include "geometry/stop_check.h"
#include "preview/scene.h"

namespace quillon::preview {

/// What one of two scenes has and the other has not, as pieces of lines, in millimetres.
class DifferenceSide {
 public:
  DifferenceSide() = default;
  /// `areas`: how many areas and discs the other scene does not fill; their pieces are hatched.
  DifferenceSide(std::vector<SceneLine> pieces, std::size_t areas, const geometry::StopCheck& stop);

  std::span<const SceneLine> pieces() const { return pieces_; }
  /// Of all pieces together.
  double length() const { return length_; }
  std::size_t areas() const { return areas_; }
  const geometry::Box& bounds() const { return tree_.bounds(); }

  /// Calls visit(pieces) for runs of pieces that may touch the box. It returns false to end the
  /// visit.
  template <typename Visit>
  void visit(const geometry::Box& box, const Visit& visit) const {
    tree_.visit(box, [&](std::size_t first, std::size_t end) {
      return visit(pieces().subspan(first, end - first));
    });
  }

 private:
  std::vector<SceneLine> pieces_;
  double length_ = 0.0;
  std::size_t areas_ = 0;
  SceneTree tree_;
};

struct Differences {
  DifferenceSide onlyDrawing;
  DifferenceSide onlyResult;
  /// There are more than the pieces tell; the rest was not looked for.
  bool isCut = false;

  bool none() const { return onlyDrawing.pieces().empty() && onlyResult.pieces().empty(); }
};

/// Pieces of one side at most: more show nothing that anybody could look at.
inline constexpr std::size_t kMostPieces = 1'000'000;

/// Compares what two scenes show, on all layers together. Lines of one are the same as those of the
/// other where they are within `tolerance` (millimetres, above 0) of them, or where the other is
/// filled. Wide lines of the drawing have to be as wide; scripts give widths to lines without one.
/// Areas are compared by what they fill. In drawings that are larger than some 30 m, the tolerance
/// is larger too. Nothing comes out when stopped.
Differences compare(const Scene& drawing, const Scene& result, double tolerance,
                    const geometry::StopCheck& stop = {}, std::size_t mostPieces = kMostPieces);

}  // namespace quillon::preview
