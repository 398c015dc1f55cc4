#include "workbench/loss_rows.h"

#include <algorithm>
#include <cmath>

#include "base/quotable.h"
#include "convert/findings.h"

namespace quillon::workbench {
namespace {

bool isCleaned(const convert::NamedLoss& loss) {
  return rules::groupOf(loss.rule) == rules::LossGroup::Cleaned;
}

/// Entities that are damaged, or of a kind that nothing knows, are known to the reader alone.
void addUnread(std::vector<LossRow>& rows, const Reading& reading, const texts::Texts& texts) {
  const dxf::DroppedEntities& dropped = reading.result.dropped;
  if (dropped.count > 0) {
    LossRow row;
    row.text = convert::lossText(rules::LossRule::DamagedEntity, texts);
    row.count = dropped.count;
    row.line = dropped.firstLine;
    rows.push_back(std::move(row));
  }
}

}  // namespace

std::vector<LossRow> lossRows(const Reading& reading, const texts::Texts& texts) {
  std::vector<convert::NamedLoss> losses = reading.result.losses;
  std::stable_sort(losses.begin(), losses.end(),
                   [](const convert::NamedLoss& a, const convert::NamedLoss& b) {
                     return rules::groupOf(a.rule) < rules::groupOf(b.rule);
                   });
  std::vector<LossRow> rows;
  addUnread(rows, reading, texts);
  for (const convert::NamedLoss& loss : losses) {
    const geometry::Point at = reading.frame(loss.at);
    const bool hasPlace = std::isfinite(at.x) && std::isfinite(at.y);
    rows.push_back({convert::lossText(loss.rule, texts), convert::kindText(loss),
                    base::quotable(loss.layer), loss.count, loss.line,
                    hasPlace ? std::optional(at) : std::nullopt, isCleaned(loss)});
  }
  return rows;
}

std::string lossSentence(const LossRow& row, const texts::Texts& texts) {
  using texts::TextId;
  std::string count = std::to_string(row.count);
  const std::string line = std::to_string(row.line);
  if (row.kind.empty() || row.layer.empty()) {
    if (!row.kind.empty()) count += " " + row.kind;
    return row.line == 0 ? texts(TextId::LossWithoutLayer, {row.text, count})
                         : texts(TextId::LossWithoutLayerInLine, {row.text, count, line});
  }
  return row.line == 0 ? texts(TextId::LossWithoutLine, {row.text, count, row.kind, row.layer})
                       : texts(TextId::LossPlace, {row.text, count, row.kind, row.layer, line});
}

std::uint64_t lossCount(const Reading& reading) {
  return reading.result.dropped.count + convert::lossCount(reading.result.losses);
}

}  // namespace quillon::workbench
