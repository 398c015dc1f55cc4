#include "errors/call_stack.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace quillon::errors {

void CallStackList::record(std::string text) {
  if (!recording_) return;
  Entry& entry = add();
  entry.module = {};
  entry.procedure = {};
  entry.text = std::move(text);
  entry.line = 0;
  publish();
}

void CallStackList::recordProcedure(std::string_view module, std::string_view procedure,
                                    SourceLine line) {
  if (!recording_) return;
  Entry& entry = add();
  entry.module = module;
  entry.procedure = procedure;
  entry.text.clear();
  entry.line = line;
  publish();
  if (watcher_) watcher_(entry);
}

/// A place for a record. The oldest but the first gives way when there is no other.
CallStackList::Entry& CallStackList::add() {
  if (size_ == kMostEntries) {
    --size_;
    std::rotate(entries_.begin() + 1, entries_.begin() + 2, entries_.end());
  }
  Entry& entry = entries_[size_];
  entry.serial = nextSerial_++;
  return entry;
}

void CallStackList::publish() {
  std::atomic_signal_fence(std::memory_order_release);
  ++size_;
}

const CallStackList::Entry* CallStackList::newestProcedure() const {
  for (std::size_t i = size_; i > 0; --i) {
    if (!entries_[i - 1].procedure.empty()) return &entries_[i - 1];
  }
  return nullptr;
}

SourceLine CallStackList::newestLine() const {
  const Entry* const newest = newestProcedure();
  return newest == nullptr ? 0 : newest->line;
}

void CallStackList::backTo(std::uint64_t mark) {
  while (size_ > 0 && entries_[size_ - 1].serial >= mark) --size_;
}

std::string entryText(const CallStackList::Entry& entry) {
  if (entry.procedure.empty()) return entry.text;
  return std::string(entry.module) + "." + std::string(entry.procedure);
}

}  // namespace quillon::errors
