#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "convert/number_note.h"

namespace quillon::convert {

/// The options of the command line, numbered as settings refer to them.
enum class CommandLineOption : std::uint8_t {
  DxfFile = 1,
  ScriptFile = 2,
  DrawingName = 3,
  TargetKind = 4,
  LayerFile = 5,
  Layer = 6,
  Version = 7,
  Unit = 8,
  Scale = 9,
  Dotted = 10,
  Ellipses = 11,
  Poly = 12,
  Blocks = 13,
  Report = 14,
  Unattended = 15,
  Overwrite = 16,
  ArcToLine = 17,
  Rules = 18,
};

/// The parsed command line: options as "/key:value", in lower case. An invalid value means whatever
/// its option makes of it.
struct CommandLine {
  /// 2^(n-1) is added for every item of option n, so a repeated option carries into the next bit;
  /// kept so that existing command lines work.
  std::uint32_t CmdLineGiven = 0;

  std::string dxfFile;
  std::string scriptFile;
  std::string drawingName;
  std::string layerFile;
  std::string layer;  ///< an entry of the layer list
  std::string unit;   ///< a word
  std::int16_t targetKind = 0;
  std::int16_t version = 0;
  std::string rules;  ///< "classic" or "exact"
  std::int16_t poly = 0;
  std::int16_t blocks = 0;
  double scale = 0.0;
  bool dotted = false;
  bool ellipses = false;
  bool report = false;
  bool arcToLine = false;

  std::vector<NumberNote> notes;  ///< on numeric values

  bool autoRun = false;          ///< a single conversion, then exit
  bool autoRunExit = false;      ///< every drawing of a folder, then exit
  bool overwriteScript = false;  ///< without asking

  /// The first item of a path that was cut off at a "/": the item with "\" instead; "" when there
  /// is none.
  std::string splitPath;

  /// The bit of an option; when set, its value is taken from the command line, not the settings
  /// file.
  bool given(CommandLineOption option) const {
    return (CmdLineGiven >> (static_cast<unsigned>(option) - 1U) & 1U) != 0;
  }
};

/// Parses a command line (UTF-8, without the program's name). Each "/" starts an item.
CommandLine parseCommandLine(std::string_view text);

/// The arguments of a process joined to one command line.
std::string joinArguments(const std::vector<std::string>& arguments);

}  // namespace quillon::convert
