#pragma once

#include <string_view>

namespace quillon::dxf {

/// Variables of the header that only rules need which show the drawing as it is; their defaults
/// stand for absent ones.
struct HeaderValues {
  double insUnits = 0.0;      ///< $INSUNITS: the drawing's unit; 0: none
  double pdMode = 0.0;        ///< $PDMODE: how points look
  double pdSize = 0.0;        ///< $PDSIZE: how large; 0 and below: a share of the screen
  double attMode = 1.0;       ///< $ATTMODE: which attributes are visible
  std::string_view codePage;  ///< $DWGCODEPAGE, as found
};

}  // namespace quillon::dxf
