// The entry point of fuzzers whose cost is bounded by the size of their input.
#include "run_once.h"

#include <cstddef>

#include "cost.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  quillon::fuzz::requireCost({}, size, [bytes] {
    quillon::fuzz::runOnce(bytes);
    return std::uint64_t{0};
  });
  return 0;
}
