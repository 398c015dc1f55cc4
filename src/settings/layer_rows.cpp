#include "settings/layer_rows.h"

#include <algorithm>
#include <cmath>

#include "base/encoding.h"
#include "base/layer_number.h"
#include "base/number_text.h"
#include "texts/layer_lists.h"

namespace quillon::settings {
namespace {

constexpr std::size_t kLongestHistory = 100;

/// The leading number of a text as it may be typed: digits, with or without a fraction, followed by
/// nothing or a blank. "" for any other text.
std::string leadingNumber(const std::string& text) {
  constexpr const char* kDigits = "0123456789";
  std::size_t end = text.find_first_not_of(kDigits);
  if (end == 0) return {};
  if (end < text.size() && text[end] == '.') end = text.find_first_not_of(kDigits, end + 1);
  const bool whole = end == std::string::npos || text[end] == ' ';
  return whole ? text.substr(0, end) : std::string();
}

}  // namespace

LayerRows::LayerRows(const texts::Texts& texts) : entries_(texts::editorLayers(texts)) {}

void LayerRows::clear() {
  rows_.fill({});
  history_.clear();
  modified_ = false;
  leftOut_ = 0;
}

void LayerRows::load(const std::vector<convert::LayerRow>& rows) {
  clear();
  const std::size_t shown = std::min(rows.size(), kMostRows);
  for (std::size_t i = 0; i < shown; ++i) {
    rows_[i] = {{rows[i].name, entryOf(rows[i].layer), {}, rows[i].areas}, rows[i].layer};
  }
  leftOut_ = rows.size() - shown;
}

/// The entry at the index of its number: right for 1..49 and 53..255, while 50, 51 and 52 show
/// their neighbours; kept so that the table looks as it always has. The file's number is not
/// affected.
std::string LayerRows::entryOf(const std::string& layer) const {
  const double number = base::numberValue(layer);
  if (number == base::kNotConverted) return entries_.back();
  if (number != std::floor(number) || !base::isEagleLayer(number)) return layer;
  return entries_[static_cast<std::size_t>(number) - 1];
}

std::vector<convert::LayerRow> LayerRows::rows() const {
  std::vector<convert::LayerRow> rows;
  rows.reserve(rows_.size());
  // Where a neighbour is shown, the file's own number is kept.
  for (const Row& row : rows_) {
    rows.push_back({row.name, row.number.empty() ? row.layer : row.number, {}, row.areas});
  }
  return rows;
}

void LayerRows::setName(std::size_t index, const std::string& name) {
  Row& row = rows_[index];
  if (row.name == name) return;
  if (foldedName(row.name) != foldedName(name)) row.areas = false;  // that of the former layer
  row.name = name;
  modified_ = true;
}

std::optional<std::string> LayerRows::typedLayer(const std::string& text) const {
  if (text.empty() || std::find(entries_.begin(), entries_.end(), text) != entries_.end()) {
    return text;
  }
  const std::string typed = leadingNumber(text);
  if (typed.empty()) return std::nullopt;
  // A typed number selects the entry that begins with it.
  const double number = base::numberValue(typed);
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [number](const std::string& entry) {
        return number != 0.0 && base::numberValue(entry) == number;
      });
  return found != entries_.end() ? *found : typed;
}

bool LayerRows::setLayer(std::size_t index, const std::string& layer) {
  Row& row = rows_[index];
  if (row.layer == layer) return true;
  const std::optional<std::string> text = typedLayer(layer);
  if (!text) return false;
  if (row.layer == *text) return true;
  row.layer = *text;
  row.number.clear();
  modified_ = true;
  return true;
}

void LayerRows::clearRow(std::size_t index) {
  setName(index, "");
  setLayer(index, "");
}

void LayerRows::take(const std::vector<std::string>& names) {
  Names assigned = assignedNames();
  auto free = rows_.begin();
  for (const std::string& name : names) {
    if (!assigned.insert(foldedName(name)).second) continue;
    while (free != rows_.end() && !free->name.empty()) ++free;
    if (free == rows_.end()) return;
    free->name = name;
    modified_ = true;
  }
}

bool LayerRows::isDuplicate(std::size_t index) const {
  const std::string wanted = foldedName(rows_[index].name);
  if (wanted.empty()) return false;
  return std::count_if(rows_.begin(), rows_.end(), [&wanted](const convert::LayerRow& row) {
           return !row.name.empty() && foldedName(row.name) == wanted;
         }) > 1;
}

LayerRows::Names LayerRows::assignedNames() const {
  Names names;
  for (const convert::LayerRow& row : rows_) {
    if (!row.name.empty()) names.insert(foldedName(row.name));
  }
  return names;
}

std::string LayerRows::foldedName(const std::string& name) {
  return base::upperCase(base::trimBlanks(name), base::Encoding::Utf8);
}

void LayerRows::beginChange() {
  if (history_.size() == kLongestHistory) history_.erase(history_.begin());
  history_.push_back(rows_);
}

bool LayerRows::undo() {
  while (!history_.empty()) {
    const Rows before = std::move(history_.back());
    history_.pop_back();
    const auto same = [](const convert::LayerRow& a, const convert::LayerRow& b) {
      return a.name == b.name && a.layer == b.layer && a.areas == b.areas;
    };
    // A change that left everything the same is not worth an undo step.
    if (std::equal(before.begin(), before.end(), rows_.begin(), same)) continue;
    rows_ = before;
    modified_ = true;
    return true;
  }
  return false;
}

}  // namespace quillon::settings
