#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "convert/host.h"
#include "convert/layer_file.h"
#include "convert/layer_file_kind.h"
#include "convert/number_note.h"
#include "rules/cancel_poll.h"
#include "texts/string_table.h"

namespace quillon::convert {

/// The messages of a conversion in one language: the text of the box, and a line of detail with
/// file and line where known.
class Messages {
 public:
  explicit Messages(const texts::Texts& texts) : texts_(texts) {}

  /// There is no drawing at this path; `reason` is the system's.
  Message drawingMissing(std::string_view path, std::string_view reason) const;
  Message fileUnreadable(std::string_view path, std::string_view reason) const;
  /// What is used instead of a layer file or a frame file that cannot be read.
  Message layersUnreadable(std::string_view path, std::string_view reason) const;
  /// What is wrong with the numbers of a layer file.
  std::vector<Message> layerWarnings(std::string_view path,
                                     const std::vector<LayerRow>& rows) const;
  Message standardLayerCut(std::string_view text) const;
  /// The standard layer on the command line is invalid; another one is used.
  Message layerNotUsed(std::string_view text, std::string_view used) const;
  Message frameUnreadable(std::string_view path, std::string_view reason) const;
  /// A string-table message about one file or name, with the title of file errors.
  Message fileError(texts::TextId id, std::string_view subject) const;
  /// The drawing has more than `most` bytes.
  Message tooLarge(std::string_view drawing, std::uint64_t most) const;
  Message scriptExists(std::string_view path) const;
  Message nameMissing() const;
  /// The exact rules need commands that EAGLE 3.5 does not have.
  Message exactNeedsEagle4() const;
  /// None of the four targets is selected.
  Message targetMissing() const;
  /// A DXF layer has no assignment, and there is no standard layer for it.
  Message standardLayerMissing(std::string_view dxfLayer) const;
  Message scaleIsZero() const;
  Message outOfRange(std::string_view drawing) const;
  Message cancelled(std::string_view drawing, std::uint64_t line) const;
  /// The drawing has entities, but none was converted.
  Message nothingConverted(std::string_view drawing) const;
  /// A text is read as a number that it may not mean.
  Message numberCut(const NumberNote& note) const;
  /// A setting cannot have a text; `used` is its value instead.
  Message valueRefused(std::string_view setting, std::string_view text,
                       std::string_view used) const;
  /// The text of a setting was saved, but will not be loaded as it is.
  Message valueNotKept(std::string_view setting) const;
  /// The conversion has reached a limit of `most`; its script is not kept.
  Message limit(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const;
  /// The same when the script is kept.
  Message partial(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const;
  /// An error ended the conversion, for the reason in `detail`.
  Message scriptError(std::string_view script, std::string detail) const;

  std::string unreadableText(std::string_view path, std::string_view reason) const;
  /// `path` is the file as the user knows it, `target` where it was to be written.
  std::string unwritableText(std::string_view path, const std::filesystem::path& target,
                             int reason) const;
  /// Says what a file is that is not a layer file.
  std::string notALayerFileText(std::string_view path, LayerFileKind kind) const;

 private:
  Message warning(const std::string& text) const;
  /// Three lines: a text of the table, a path, another text of the table.
  std::string aroundPath(texts::TextId before, std::string_view path, texts::TextId after) const;

  const texts::Texts& texts_;
};

}  // namespace quillon::convert
