#include "workbench/differing.h"

#include <algorithm>

namespace quillon::workbench {
namespace {

/// Millimetres of the drawing that nobody sees: EAGLE rounds two hundred times finer, and curves
/// are usually within a twentieth of it from their arcs.
constexpr double kUnseen = 0.02;
/// The same as a part of the drawing's size, where that is more.
constexpr double kUnseenPart = 1e-5;

}  // namespace

std::shared_ptr<const preview::Differences> differencesOf(const Reading& drawing,
                                                          const Reading& result,
                                                          const Cancelled& cancelled) {
  if (drawing.scene == nullptr || result.scene == nullptr) return nullptr;
  const double tolerance =
      std::max(kUnseen * drawing.frame.factor, kUnseenPart * drawing.scene->bounds().diagonal());
  auto differences = std::make_shared<preview::Differences>(
      preview::compare(*drawing.scene, *result.scene, tolerance, geometry::StopCheck(cancelled)));
  return cancelled() ? nullptr : differences;
}

}  // namespace quillon::workbench
