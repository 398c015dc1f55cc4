#include "app/headless/ordered_output.h"

#include <utility>

namespace quillon::headless {

void OrderedOutput::print(std::size_t index, Printed printed) {
  const std::lock_guard lock(mutex_);
  held_[index] = std::move(printed);
  for (; !held_.empty() && held_.begin()->first == printedUpTo_; ++printedUpTo_) {
    write(held_.begin()->second);
    held_.erase(held_.begin());
  }
  if (several_) {
    console_.showProgress(static_cast<int>(printedUpTo_ * 100 / count_),
                          std::to_string(printedUpTo_) + "/" + std::to_string(count_));
  }
}

void OrderedOutput::printRest() {
  const std::lock_guard lock(mutex_);
  for (const auto& [index, printed] : held_) write(printed);
  held_.clear();
}

void OrderedOutput::write(const Printed& printed) {
  console_.printError(printed.error);
  if (!printed.output.empty() && !console_.printOutput(printed.output)) failed_ = true;
}

}  // namespace quillon::headless
