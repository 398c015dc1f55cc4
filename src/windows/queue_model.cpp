#include "windows/queue_model.h"

#include <QLocale>

#include "base/quotable.h"
#include "files/paths.h"
#include "windows/screen_fit.h"

namespace quillon::windows {
namespace {

using batch::EntryState;
using texts::TextId;

constexpr texts::TextRow kCaptions =
    texts::textRow(TextId::QueueColumnFile, TextId::QueueColumnResult);
static_assert(kCaptions.size() == QueueModel::kColumns);

/// In the order of EntryState.
constexpr texts::TextRow kStates = texts::textRow(TextId::QueueWaiting, TextId::QueueSkipped);

QString nameText(const std::string& path) {
  return toQt(base::quotable(files::lastComponent(path)));
}

/// A text of several lines on one, without the folder of the drawing that it is about.
QString shortened(QString text, const std::string& path) {
  const std::string folder = path.substr(0, path.size() - files::lastComponent(path).size());
  return text.remove(toQt(base::quotable(folder))).replace('\n', "; ");
}

}  // namespace

QueueModel::QueueModel(const AppContext& context, const batch::DrawingQueue& queue, QObject* parent)
    : QAbstractTableModel(parent), context_(context), queue_(queue) {}

void QueueModel::reset(const std::function<void()>& change) {
  beginResetModel();
  change();
  endResetModel();
}

void QueueModel::refresh() {
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
  if (rowCount() > 0) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
}

int QueueModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(queue_.entries().size());
}

int QueueModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kColumns);
}

QVariant QueueModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const batch::QueueEntry& entry = queue_.entries()[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return text(entry, index.column());
    case Qt::ToolTipRole:
      if (index.column() == kFile) return wholeToolTip(toQt(base::quotable(entry.path)));
      return index.column() == kResult ? wholeToolTip(resultText(entry)) : QString();
    case Qt::TextAlignmentRole: {
      const bool isNumber = index.column() == kSize || index.column() == kLosses;
      return QVariant((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    default:
      return {};
  }
}

QVariant QueueModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return context_.text(kCaptions[static_cast<std::size_t>(section)]);
}

QString QueueModel::text(const batch::QueueEntry& entry, int column) const {
  const batch::QueueResult& result = entry.result;
  switch (column) {
    case kFile:
      return nameText(entry.path);
    case kSize: {
      const bool german = context_.LanguageOffset == texts::kGerman;
      const QLocale locale(german ? QLocale::German : QLocale::English);
      return locale.formattedDataSize(static_cast<qint64>(entry.bytes), 1,
                                      QLocale::DataSizeTraditionalFormat);
    }
    case kState:
      return context_.text(kStates[static_cast<std::size_t>(result.state)]);
    case kLosses:
      return result.state == EntryState::Done ? QString::number(result.losses) : QString();
    default:
      return shortened(resultText(entry), entry.path);
  }
}

/// Where the script is, and the messages below it.
QString QueueModel::resultText(const batch::QueueEntry& entry) const {
  const batch::QueueResult& result = entry.result;
  QString messages = toQt(result.message);
  if (result.state != EntryState::Done) return messages;
  const QString written =
      context_.text(TextId::QueueConverted,
                    {fromQt(nameText(result.scriptFile)), std::to_string(result.commands)});
  return messages.isEmpty() ? written : written + '\n' + messages;
}

}  // namespace quillon::windows
