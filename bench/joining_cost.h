#pragma once

#include <cstddef>
#include <string>

namespace quillon::bench {

/// Converts lines whose million ends have to be joined, and prints what joining them and leaving
/// out duplicates add to the processor time. False when joining takes longer than its limit.
bool measureJoining(const std::string& folder, std::size_t rounds);

}  // namespace quillon::bench
