#pragma once

#include <string_view>

namespace quillon::fuzz {

/// One run of a fuzzer on any bytes.
void runOnce(std::string_view data);

}  // namespace quillon::fuzz
