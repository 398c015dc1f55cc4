#include "batch/drawing_queue.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/quotable.h"
#include "batch/drawing_files.h"
#include "batch/queue_host.h"
#include "convert/findings.h"
#include "convert/messages.h"
#include "convert/summary.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "texts/error_texts.h"

namespace quillon::batch {

namespace fs = std::filesystem;

namespace {

using texts::TextId;

QueueResult failure(std::string message) {
  QueueResult result;
  result.state = EntryState::Failed;
  result.message = std::move(message);
  return result;
}

/// Why something cannot be a drawing, whatever the settings; "" otherwise.
std::string refusal(const std::string& path, const texts::Texts& texts) {
  const fs::path file = files::toPath(path);
  const files::FileKind kind = files::fileKind(file);
  if (kind == files::FileKind::Other)
    return texts(TextId::QueueNotRegularFile, {base::quotable(path)});
  if (kind != files::FileKind::Folder) return {};
  const FolderDrawings found = drawingsIn(file);
  if (found.reason == 0) return texts(TextId::FolderWithoutDrawings, {base::quotable(path)});
  return convert::Messages(texts).unreadableText(path, texts::reasonText(found.reason, texts));
}

EntryState stateOf(const convert::ConversionResult& result, const QueueHost& host) {
  if (result.outcome == convert::Outcome::Converted) return EntryState::Done;
  if (host.wasCancelled()) return EntryState::Cancelled;
  return host.foundScript() ? EntryState::Skipped : EntryState::Failed;
}

std::uint64_t fileSize(const fs::path& path) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  return error ? 0 : size;
}

}  // namespace

QueueResult convertQueued(const convert::ConversionJob& job,
                          const convert::Surroundings& surroundings, const QueueWatch& watch) {
  const texts::Texts texts(surroundings.languageOffset);
  std::string refused = refusal(job.dxfFile, texts);
  if (!refused.empty()) return failure(std::move(refused));
  QueueHost host(texts, watch);
  const convert::ConversionResult converted = convert::convertDXF(job, host, surroundings);
  QueueResult result;
  result.state = stateOf(converted, host);
  if (converted.outcome != convert::Outcome::Ended) {
    for (const convert::Message& warning : convert::lossWarnings(converted, texts)) {
      host.tell(warning);
    }
    result.losses = convert::lossCount(converted.losses);
    result.commands = converted.commandCount;
    result.scriptFile = converted.scriptFile;
  }
  result.message = host.text();
  return result;
}

QueueResult faultResult(std::string_view what) { return failure(std::string(what)); }

std::size_t DrawingQueue::add(const std::string& fileOrFolder) {
  const fs::path path = files::wholePath(files::findExisting(fileOrFolder));
  const files::FileKind kind = files::fileKind(path);
  if (kind != files::FileKind::Folder) {
    return addEntry(path, kind != files::FileKind::Other) ? 1 : 0;
  }
  std::size_t added = 0;
  const FolderDrawings found = drawingsIn(path);
  for (const auto& drawing : found.drawings)
    added += addEntry(files::toPath(drawing.path), true) ? 1 : 0;
  for (const auto& other : found.others) added += addEntry(files::toPath(other), false) ? 1 : 0;
  const bool isEmpty = found.drawings.empty() && found.others.empty();
  if (isEmpty || found.reason != 0) added += addEntry(path, false) ? 1 : 0;
  return added;
}

bool DrawingQueue::addEntry(const fs::path& path, bool mayHaveScript) {
  fs::path key = files::uniquePath(path);
  if (!drawings_.insert(key).second) return false;
  QueueEntry entry;
  entry.path = files::fromPath(path);
  entry.bytes = fileSize(path);
  NativePath script;
  if (mayHaveScript) {
    script = files::uniquePath(files::toPath(files::scriptBeside(entry.path))).native();
    scripts_.emplace(script, added_);
  }
  entries_.push_back(std::move(entry));
  keys_.push_back({std::move(key), std::move(script), added_++});
  return true;
}

bool DrawingQueue::remove(std::size_t index) {
  if (index >= entries_.size() || running_ == index) return false;
  drawings_.erase(keys_[index].drawing);
  scripts_.erase({keys_[index].script, keys_[index].number});
  const auto place = static_cast<std::ptrdiff_t>(index);
  keys_.erase(keys_.begin() + place);
  entries_.erase(entries_.begin() + place);
  if (running_ && *running_ > index) --*running_;
  return true;
}

QueueCounts DrawingQueue::counts() const {
  QueueCounts counts;
  for (const QueueEntry& entry : entries_) {
    counts.losses += entry.result.losses;
    switch (entry.result.state) {
      case EntryState::Waiting:
      case EntryState::Running:
        ++counts.waiting;
        break;
      case EntryState::Done:
        ++counts.converted;
        break;
      case EntryState::Failed:
        ++counts.failed;
        break;
      case EntryState::Cancelled:
        ++counts.cancelled;
        break;
      case EntryState::Skipped:
        ++counts.skipped;
        break;
    }
  }
  return counts;
}

void DrawingQueue::retry() {
  for (QueueEntry& entry : entries_) {
    const EntryState state = entry.result.state;
    const bool isOver = state == EntryState::Failed || state == EntryState::Cancelled ||
                        state == EntryState::Skipped;
    if (isOver) entry.result = {};
  }
}

const QueueEntry* DrawingQueue::ownerOfScript(std::size_t index) const {
  const Keys& key = keys_[index];
  if (key.script.empty()) return nullptr;
  const std::size_t owner = scripts_.lower_bound({key.script, 0})->second;
  if (owner == key.number) return nullptr;
  const auto wasAddedBefore = [](const Keys& keys, std::size_t number) {
    return keys.number < number;
  };
  const auto found = std::lower_bound(keys_.begin(), keys_.end(), owner, wasAddedBefore);
  return &entries_[static_cast<std::size_t>(found - keys_.begin())];
}

std::optional<convert::ConversionJob> DrawingQueue::begin(const convert::ConversionJob& settings,
                                                          bool replace, const texts::Texts& texts) {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    QueueEntry& entry = entries_[i];
    if (entry.result.state != EntryState::Waiting) continue;
    const std::string script = files::scriptBeside(entry.path);
    if (const QueueEntry* const owner = ownerOfScript(i)) {
      entry.result = failure(
          texts(TextId::ScriptOfOtherDrawing,
                {base::quotable(entry.path), base::quotable(script), base::quotable(owner->path)}));
      continue;
    }
    entry.result = {};
    entry.result.state = EntryState::Running;
    running_ = i;
    convert::ConversionJob job = settings;
    job.dxfFile = entry.path;
    job.scriptFile = script;
    job.literalPaths = true;
    job.drawingName = nameFromFile(files::fromPath(files::toPath(entry.path).stem()));
    job.report = false;
    job.overwriteScript = replace || keys_[i].hasPartialScript;
    return job;
  }
  return std::nullopt;
}

void DrawingQueue::finish(QueueResult result) {
  if (!running_) return;
  bool& hasPartialScript = keys_[*running_].hasPartialScript;
  if (!result.scriptFile.empty()) hasPartialScript = result.state == EntryState::Cancelled;
  entries_[*running_].result = std::move(result);
  running_.reset();
}

bool DrawingQueue::runNext(const convert::ConversionJob& settings, bool replace,
                           const convert::Surroundings& surroundings, const QueueWatch& watch) {
  const texts::Texts texts(surroundings.languageOffset);
  const std::optional<convert::ConversionJob> job = begin(settings, replace, texts);
  if (!job) return false;
  QueueResult result = faultResult(texts(TextId::UnknownError));
  try {
    result = convertQueued(*job, surroundings, watch);
  } catch (...) {
    finish(std::move(result));
    throw;
  }
  finish(std::move(result));
  return true;
}

}  // namespace quillon::batch
