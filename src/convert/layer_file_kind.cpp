#include "convert/layer_file_kind.h"

#include <algorithm>

#include "convert/input_check.h"
#include "files/ini_line.h"

namespace quillon::convert {
namespace {

/// What the lines of an INI file reveal about it.
struct FileLines {
  bool any = false;         ///< a non-empty line
  bool assignment = false;  ///< a layer's name in an assignment section
  bool foreign = false;     ///< a line that no INI file has
};

FileLines inspect(std::string_view bytes) {
  FileLines lines;
  bool inAssignment = false;
  while (!bytes.empty()) {
    const std::string_view text = files::takeIniLine(bytes);
    if (text.find_first_not_of(" \t") == std::string_view::npos) continue;
    lines.any = true;
    const files::IniLine line = files::parseIniLine(text);
    if (line.kind == files::IniLine::Kind::Section) inAssignment = isAssignmentSection(line.name);
    if (line.kind != files::IniLine::Kind::Key) continue;
    lines.assignment =
        lines.assignment || (inAssignment && files::foldedName(line.name) == "LAYERNAME");
    lines.foreign = lines.foreign || text.find('=') == std::string_view::npos;
  }
  return lines;
}

/// True for a text with a DXF "SECTION" among its first lines.
bool isDxf(std::string_view text) {
  text = text.substr(0, kCheckedBytes);
  for (bool afterZero = false; !text.empty();) {
    const std::string line = files::foldedName(files::takeIniLine(text));
    if (afterZero && line == "SECTION") return true;
    afterZero = line == "0";
  }
  return false;
}

bool isNamedLay(std::string_view path) { return files::foldedName(path).ends_with(".LAY"); }

}  // namespace

LayerFileKind layerFileKind(std::string_view path, std::string_view bytes) {
  switch (checkInput(bytes.substr(0, kCheckedBytes))) {
    case InputKind::BinaryDxf:
      return LayerFileKind::BinaryDxf;
    case InputKind::Dwg:
      return LayerFileKind::Dwg;
    default:
      break;
  }
  if (bytes.find('\0') != std::string_view::npos) return LayerFileKind::Binary;
  bytes = files::withoutByteOrderMark(bytes);
  const FileLines lines = inspect(bytes);
  if (!lines.any || lines.assignment || (!lines.foreign && isNamedLay(path))) {
    return LayerFileKind::LayerFile;
  }
  return isDxf(bytes) ? LayerFileKind::Dxf : LayerFileKind::OtherText;
}

bool isAssignmentSection(std::string_view name) {
  return !name.empty() &&
         std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace quillon::convert
