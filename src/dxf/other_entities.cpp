#include "dxf/other_entities.h"

#include <algorithm>

#include "base/number_text.h"

namespace quillon::dxf {

bool OtherEntities::begin(std::string_view name) {
  if (wanted_.empty()) return false;
  finish();
  const auto found = std::find(wanted_.begin(), wanted_.end(), name);
  if (found == wanted_.end()) return false;
  open_ = {};
  open_.name = *found;
  return true;
}

void OtherEntities::place(std::size_t block, std::uint64_t line) {
  open_.block = block;
  open_.line = line;
  isOpen_ = true;
  isInvisible_ = false;
}

void OtherEntities::take(std::string_view code, std::string_view value) {
  // Kept, as its lines may be gone when the entity ends.
  if (code == "8" && open_.layer.empty()) {
    const auto known = layers_.find(value);
    open_.layer = known != layers_.end() ? *known : *layers_.insert(arena_.keep(value)).first;
  }
  if (code == "60") isInvisible_ = base::numberValue(value) != 0.0;
  if (code == "67") open_.isInPaperSpace = base::numberValue(value) != 0.0;
}

void OtherEntities::finish() {
  if (!isOpen_) return;
  isOpen_ = false;
  if (isInvisible_) return;
  const Key key(open_.block, open_.name, open_.layer, open_.isInPaperSpace);
  const auto [found, isNew] = index_.try_emplace(key, groups_.size());
  if (isNew) groups_.push_back(open_);
  ++groups_[found->second].count;
}

}  // namespace quillon::dxf
