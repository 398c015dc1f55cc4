#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::convert {

/// The user's lines at the start and end of every script, byte for byte.
struct ScriptFrame {
  std::vector<std::string> startBlock;
  std::vector<std::string> endBlock;
};

/// Takes the first start block and the first end block from a frame file. A block starts after a
/// line that contains "[start]" or "[end]" in any case, and ends before the next line that contains
/// "endblock", or at the end of the text.
ScriptFrame parseFrame(std::string_view text);

/// What the frame file created when there is none contains.
ScriptFrame defaultFrame();
/// Its nine lines.
std::string_view defaultFrameText();

/// Where the frame comes from.
struct FrameSource {
  std::string path;        ///< the frame file; "" for none
  bool mustExist = false;  ///< fail when the file is missing
  bool create = false;     ///< create a missing file with the defaults
  /// The frame where it has been loaded for another script already: no file is looked at.
  std::shared_ptr<const ScriptFrame> loaded = nullptr;
};

/// Loads the frame; the defaults when the file is missing. Throws WriteError when the file cannot
/// be created, and ReadError when it cannot be read, or is missing and must exist.
ScriptFrame loadFrame(const FrameSource& source);

}  // namespace quillon::convert
