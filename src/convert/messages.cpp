#include "convert/messages.h"

#include <utility>

#include "base/number_text.h"
#include "base/quotable.h"
#include "files/paths.h"
#include "texts/error_texts.h"

namespace quillon::convert {
namespace {

using texts::TextId;

/// What a file is in the place of a layer file, in the order of the kinds after
/// LayerFileKind::LayerFile.
constexpr texts::TextRow kForeignKinds = texts::textRow(TextId::KindDrawing, TextId::KindOtherText);
static_assert(kForeignKinds.size() == static_cast<std::size_t>(LayerFileKind::OtherText));

/// The start of a comma-separated list.
std::string shortList(const std::vector<std::string>& entries) {
  constexpr std::size_t kMostEntries = 10;
  std::string list;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (i == kMostEntries) return list + ", …";
    list += (list.empty() ? "" : ", ") + entries[i];
  }
  return list;
}

}  // namespace

Message Messages::drawingMissing(std::string_view path, std::string_view reason) const {
  return {MessageKind::Error, std::string(texts_(TextId::FileErrorTitle)),
          aroundPath(TextId::DrawingMissingBeforePath, path, TextId::DrawingMissingAfterPath),
          unreadableText(path, reason)};
}

Message Messages::fileUnreadable(std::string_view path, std::string_view reason) const {
  const std::string text = unreadableText(path, reason);
  return {MessageKind::Error, std::string(texts_(TextId::FileErrorTitle)), text, text};
}

Message Messages::layersUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(TextId::LayerFileUnreadable, {base::quotable(path), reason}));
}

std::vector<Message> Messages::layerWarnings(std::string_view path,
                                             const std::vector<LayerRow>& rows) const {
  std::vector<std::string> foreign;
  std::vector<std::string> cut;
  for (const LayerRow& row : rows) {
    const std::string name = base::quotable(row.name);
    if (isForeignLayer(row)) foreign.push_back(name + " (" + base::quotable(row.text) + ")");
    if (isCutLayer(row.text))
      cut.push_back(name + " (\"" + base::quotable(row.text) + "\": " + row.layer + ")");
  }
  std::vector<Message> warnings;
  if (!cut.empty())
    warnings.push_back(
        warning(texts_(TextId::LayerNumbersCutShort, {base::quotable(path), shortList(cut)})));
  if (!foreign.empty()) {
    warnings.push_back(
        warning(texts_(TextId::LayerNumbersForeign, {base::quotable(path), shortList(foreign)})));
  }
  return warnings;
}

Message Messages::standardLayerCut(std::string_view text) const {
  const std::string name = texts::captionName(texts_(TextId::CaptionStandardLayer));
  return numberCut({name, std::string(text), base::numberText(base::numberValue(text))});
}

Message Messages::layerNotUsed(std::string_view text, std::string_view used) const {
  return warning(texts_(TextId::StandardLayerRefused, {base::quotable(text), used}));
}

Message Messages::frameUnreadable(std::string_view path, std::string_view reason) const {
  return warning(texts_(TextId::FrameFileUnreadable, {base::quotable(path), reason}));
}

Message Messages::fileError(TextId id, std::string_view subject) const {
  const std::string text = texts_(id, {base::quotable(subject)});
  return {MessageKind::Error, std::string(texts_(TextId::FileErrorTitle)), text, text};
}

Message Messages::tooLarge(std::string_view drawing, std::uint64_t most) const {
  const std::string text =
      texts_(TextId::DrawingTooLarge, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(TextId::FileErrorTitle)), text, text};
}

Message Messages::scriptExists(std::string_view path) const {
  return {MessageKind::Question, std::string(texts_(TextId::WarningTitle)),
          aroundPath(TextId::ScriptExistsBeforePath, path, TextId::ScriptExistsAfterPath),
          base::quotable(path)};
}

Message Messages::nameMissing() const {
  const std::string text(texts_(TextId::DrawingNameMissing));
  return {MessageKind::Error, std::string(texts_(TextId::DrawingNameMissingTitle)), text, text};
}

Message Messages::exactNeedsEagle4() const {
  const std::string text(texts_(TextId::ExactNeedsEagle4));
  return {MessageKind::Error, std::string(texts_(TextId::ErrorTitle)), text, text};
}

Message Messages::targetMissing() const {
  const std::string text(texts_(TextId::TargetNotChosen));
  return {MessageKind::Error, std::string(texts_(TextId::ErrorTitle)), text, text};
}

Message Messages::standardLayerMissing(std::string_view dxfLayer) const {
  const std::string text = texts_(TextId::StandardLayerWithoutNumber, {base::quotable(dxfLayer)});
  return {MessageKind::Error, std::string(texts_(TextId::ErrorTitle)), text, text};
}

Message Messages::scaleIsZero() const {
  const std::string text(texts_(TextId::ScaleIsZero));
  return {MessageKind::Error, std::string(texts_(TextId::ErrorTitle)), text, text};
}

Message Messages::outOfRange(std::string_view drawing) const {
  Message message;
  message.kind = MessageKind::Warning;
  message.title = texts_(TextId::RangeWarningTitle);
  message.detail = base::quotable(drawing) + ":";
  for (const TextId id : {TextId::RangeWarningFirstLine, TextId::RangeWarningSecondLine,
                          TextId::RangeWarningLastLine}) {
    const std::string line(texts_(id));
    message.text += (message.text.empty() ? "" : "\r") + line;
    if (!base::trimBlanks(line).empty()) message.detail += " " + line;
  }
  return message;
}

Message Messages::cancelled(std::string_view drawing, std::uint64_t line) const {
  const std::string text = std::string(texts_(TextId::InterruptedBeforeLine)) +
                           std::to_string(line) + " " +
                           std::string(texts_(TextId::InterruptedAfterLine));
  return {MessageKind::Warning, std::string(texts_(TextId::WarningTitle)), text,
          base::quotable(drawing) + ": " + text};
}

Message Messages::limit(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const {
  const TextId id =
      kind == rules::LimitKind::Lines ? TextId::LineLimitReached : TextId::StepLimitReached;
  const std::string text = texts_(id, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Error, std::string(texts_(TextId::ScriptErrorTitle)), text,
          text + " " + std::string(texts_(TextId::ScriptNotKept))};
}

Message Messages::partial(std::string_view drawing, rules::LimitKind kind,
                          std::uint64_t most) const {
  const TextId id = kind == rules::LimitKind::Lines ? TextId::ScriptIncompleteByLines
                                                    : TextId::ScriptIncompleteBySteps;
  const std::string text = texts_(id, {base::quotable(drawing), std::to_string(most)});
  return {MessageKind::Warning, std::string(texts_(TextId::WarningTitle)), text, text};
}

Message Messages::numberCut(const NumberNote& note) const {
  return warning(texts_(
      TextId::NumberCutShort,
      {base::quotable(note.name), base::quotable(note.text), base::quotable(note.countsAs)}));
}

Message Messages::valueRefused(std::string_view setting, std::string_view text,
                               std::string_view used) const {
  return warning(texts_(TextId::SettingRefused,
                        {base::quotable(setting), base::quotable(text), base::quotable(used)}));
}

Message Messages::valueNotKept(std::string_view setting) const {
  return warning(texts_(TextId::SettingNotKept, {base::quotable(setting)}));
}

Message Messages::nothingConverted(std::string_view drawing) const {
  const std::string text = texts_(TextId::NothingConverted, {base::quotable(drawing)});
  return {MessageKind::Warning, std::string(texts_(TextId::WarningTitle)), text, text};
}

Message Messages::scriptError(std::string_view script, std::string detail) const {
  return {MessageKind::Error, std::string(texts_(TextId::ScriptErrorTitle)),
          aroundPath(TextId::ScriptNotWrittenBeforePath, script, TextId::ScriptNotWrittenAfterPath),
          std::move(detail)};
}

std::string Messages::unreadableText(std::string_view path, std::string_view reason) const {
  return texts_(TextId::FileUnreadable, {base::quotable(path), reason});
}

std::string Messages::unwritableText(std::string_view path, const std::filesystem::path& target,
                                     int reason) const {
  if (reason == ENOENT && files::isInMissingFolder(target)) {
    return texts_(TextId::FolderOfFileMissing,
                  {base::quotable(path), base::quotable(files::folderPart(path))});
  }
  return texts_(TextId::FileNotWritten, {base::quotable(path), texts::reasonText(reason, texts_)});
}

Message Messages::warning(const std::string& text) const {
  return {MessageKind::Warning, std::string(texts_(TextId::WarningTitle)), text, text};
}

std::string Messages::notALayerFileText(std::string_view path, LayerFileKind kind) const {
  return texts_(TextId::NotLayerFile,
                {base::quotable(path), texts_(kForeignKinds[static_cast<std::size_t>(kind) - 1])});
}

std::string Messages::aroundPath(TextId before, std::string_view path, TextId after) const {
  return std::string(texts_(before)) + "\r" + std::string(path) + "\r" + std::string(texts_(after));
}

}  // namespace quillon::convert
