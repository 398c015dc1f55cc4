#include "convert/join_offer.h"

#include <algorithm>
#include <cmath>

namespace quillon::convert {

std::optional<JoinOffer> joinOfferOf(const ExactFindings& findings) {
  constexpr double kFurthest = 1.0;  // millimetres
  constexpr double kStepsPerMillimetre = 1000.0;
  JoinOffer offer;
  for (const exact::OpenEnd& gap : findings.outlines.gaps) {
    const double distance = gap.distance * findings.scriptUnit;
    if (!gap.hasNext || !(distance <= kFurthest)) continue;
    // Rounded up, so that the text of the number joins them too.
    const double tolerance = std::ceil(distance * kStepsPerMillimetre) / kStepsPerMillimetre;
    offer.millimetres = std::max(offer.millimetres, tolerance);
    ++offer.ends;
  }
  if (offer.ends == 0) return std::nullopt;
  return offer;
}

}  // namespace quillon::convert
