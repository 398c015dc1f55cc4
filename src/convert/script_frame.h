#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::convert {

/// The user's lines at the start and at the end of every script, byte for byte.
struct ScriptFrame {
  std::vector<std::string> startBlock;
  std::vector<std::string> endBlock;
};

/// Takes the first start block and the first end block from the text of a frame file. A block opens
/// behind a line that contains "[start]" or "[end]" in any case and ends before the next line that
/// contains "endblock", or at the end of the text.
ScriptFrame parseFrame(std::string_view text);

/// The nine lines of the frame file that is created when there is none.
std::string_view defaultFrameText();

/// Where the frame comes from.
struct FrameSource {
  std::string path;        ///< the frame file
  bool mustExist = false;  ///< a missing file is an error
  bool create = false;     ///< a missing file is created with the defaults
};

/// Loads the frame; a missing file gives the defaults. Throws WriteError when the file cannot be
/// created, and ReadError when it cannot be read or must exist and does not.
ScriptFrame loadFrame(const FrameSource& source);

}  // namespace quillon::convert
