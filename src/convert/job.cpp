#include "convert/job.h"

#include <array>

namespace quillon::convert {
namespace {

template <std::size_t N>
std::string_view entry(const std::array<std::string_view, N>& list, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < N ? list[static_cast<std::size_t>(index)]
                                                           : std::string_view{};
}

}  // namespace

std::string_view versionText(int version) {
  return entry(std::array<std::string_view, 2>{"3.5", "4.x/5.x"}, version);
}

std::string_view unitText(int unit) {
  return entry(std::array<std::string_view, 4>{"mic", "mm", "mil", "inch"}, unit);
}

}  // namespace quillon::convert
