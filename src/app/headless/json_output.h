#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "convert/driver.h"
#include "convert/host.h"

namespace quillon::headless {

/// A text as a JSON string; valid UTF-8 for any bytes.
std::string jsonString(std::string_view text);

/// What a conversion has written besides its script; "" for none.
struct Written {
  std::string report;
  std::string preview;
  bool failed = false;  ///< not everything that was wanted could be written
};

/// A drawing that was not converted because its script is newer, in the same form.
std::string skippedJson(const std::string& drawing, const std::string& script);

/// One conversion as a single line of JSON.
std::string toJson(const convert::ConversionResult& result, const Written& others,
                   const std::vector<convert::Message>& messages);

}  // namespace quillon::headless
