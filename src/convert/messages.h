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

/// The messages of a conversion in one language: the box's text, and a line of detail that names
/// file and line where they are known.
class Messages {
 public:
  explicit Messages(const texts::Texts& texts) : texts_(texts) {}

  /// No drawing at this path; `reason` is the system's.
  Message drawingMissing(std::string_view path, std::string_view reason) const;
  Message fileUnreadable(std::string_view path, std::string_view reason) const;
  /// What is used in the place of a layer file or a frame file that cannot be read.
  Message layersUnreadable(std::string_view path, std::string_view reason) const;
  /// What is not as it should be with the numbers of a layer file.
  std::vector<Message> layerWarnings(std::string_view path,
                                     const std::vector<LayerRow>& rows) const;
  Message standardLayerCut(std::string_view text) const;
  /// The standard layer of the command line is none; another one is used.
  Message layerNotUsed(std::string_view text, std::string_view used) const;
  Message frameUnreadable(std::string_view path, std::string_view reason) const;
  /// A message of the string table about one file or name, with the title of file errors.
  Message fileError(texts::TextId id, std::string_view subject) const;
  /// The drawing has more than `most` bytes.
  Message tooLarge(std::string_view drawing, std::uint64_t most) const;
  Message scriptExists(std::string_view path) const;
  Message nameMissing() const;
  /// None of the four targets is chosen.
  Message targetMissing() const;
  /// A DXF layer without an assignment, and no number for it.
  Message standardLayerMissing(std::string_view dxfLayer) const;
  Message scaleIsZero() const;
  Message outOfRange(std::string_view drawing) const;
  Message cancelled(std::string_view drawing, std::uint64_t line) const;
  /// The drawing has entities, and none of them was converted.
  Message nothingConverted(std::string_view drawing) const;
  /// A text counts as a number that it may not mean.
  Message numberCut(const NumberNote& note) const;
  /// The conversion has reached a limit, of so many; its script is not kept.
  Message limit(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const;
  /// The same for a script that is kept.
  Message partial(std::string_view drawing, rules::LimitKind kind, std::uint64_t most) const;
  /// The error handler's message: the script could not be made, for the reason in `detail`.
  Message scriptError(std::string_view script, std::string detail) const;

  std::string unreadableText(std::string_view path, std::string_view reason) const;
  /// `path` is what the user knows the file by, `target` where it was to be written.
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
