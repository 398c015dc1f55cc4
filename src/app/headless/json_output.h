#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "convert/driver.h"
#include "convert/host.h"

namespace quillon::headless {

/// A text as a JSON string; valid UTF-8 for any bytes.
std::string jsonString(std::string_view text);

/// One conversion as a single line of JSON.
std::string toJson(const convert::ConversionResult& result, std::string_view reportFile,
                   const std::vector<convert::Message>& messages);

}  // namespace quillon::headless
