#include "exact/options.h"

namespace quillon::exact {

Measures::Measures(const Options& options)
    : millimetre(1.0 / base::unitRecord(options.unit).millimetres) {
  const bool fine = options.version == Version::Eagle6;
  resolution = (fine ? 0.000003125 : 0.0001) * millimetre;
  tolerance = options.curveTolerance * millimetre;
  join = options.joinTolerance * millimetre;
  widestWire = (fine ? 200.0 : 13.1) * millimetre;
  tallestText = 50.8 * millimetre;
  leastHatchSpacing = 0.05 * millimetre;
  dot = 0.1 * millimetre;
}

}  // namespace quillon::exact
