#include "convert/job.h"

#include <array>

namespace quillon::convert {

std::string_view versionText(int version) {
  constexpr std::array<std::string_view, 3> kVersions = {"3.5", "4.x/5.x", "6 and later, Fusion"};
  const auto index = static_cast<std::size_t>(version);
  return version >= 0 && index < kVersions.size() ? kVersions[index] : std::string_view{};
}

std::string_view unitText(base::Unit unit) {
  return unit == base::Unit::None ? std::string_view{} : base::unitRecord(unit).word;
}

}  // namespace quillon::convert
