#pragma once

#include <string>
#include <string_view>

#include "convert/job.h"
#include "convert/script_frame.h"
#include "dxf/drawing.h"
#include "eagle/commands.h"

namespace quillon::convert {

/// Issues what surrounds the drawing in a script: the commands that open the target, the header,
/// the user's blocks and the commands of the block library.
class TargetCommands {
 public:
  TargetCommands(eagle::Commands& commands, const ConversionJob& job, const ScriptFrame& frame,
                 const dxf::Drawing& drawing);

  /// The drawing's name as written in the script.
  const std::string& drawingName() const { return drawingName_; }

  /// Opens the target drawing.
  void writeTargetOpen();
  /// Wire style, pour style, grid and the user's start block.
  void writeScriptHeader();
  /// The user's end block.
  void writeScriptTrailer();
  /// Opens a library part for one block.
  void writeBlockLibraryOpen(std::string_view partName);
  /// Creates the device of a symbol part.
  void writeBlockDevice(std::string_view partName);
  /// Returns to the drawing and makes the library available there.
  void writeUseLibrary();

 private:
  void line(std::string_view a, std::string_view b, std::string_view c);

  eagle::Commands& commands_;
  const ScriptFrame& frame_;
  int targetKind_;
  int version_;
  bool fills_;
  base::Unit unit_;
  std::string drawingName_;
  std::string partName_;  ///< library part of the package and symbol targets
};

}  // namespace quillon::convert
