#include "convert/script_frame.h"

#include <algorithm>
#include <cerrno>

#include "base/read_error.h"
#include "files/output_file.h"
#include "files/paths.h"

namespace quillon::convert {
namespace {

/// Splits at CR LF, LF or CR; the last line may lack its end.
std::vector<std::string_view> splitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t stop = text.find_first_of("\r\n");
    lines.push_back(text.substr(0, stop));
    if (stop == std::string_view::npos) break;
    const bool pair = text.substr(stop, 2) == "\r\n";
    text.remove_prefix(stop + (pair ? 2 : 1));
  }
  return lines;
}

bool containsFolded(std::string_view line, std::string_view wanted) {
  const auto equal = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? static_cast<char>(a - 'A' + 'a') : a) == b;
  };
  return std::search(line.begin(), line.end(), wanted.begin(), wanted.end(), equal) != line.end();
}

std::vector<std::string> block(const std::vector<std::string_view>& lines,
                               std::string_view opening) {
  std::vector<std::string> out;
  const auto opened = std::find_if(lines.begin(), lines.end(), [opening](std::string_view line) {
    return containsFolded(line, opening);
  });
  if (opened == lines.end()) return out;
  for (auto line = opened + 1; line != lines.end() && !containsFolded(*line, "endblock"); ++line) {
    out.emplace_back(*line);
  }
  return out;
}

}  // namespace

ScriptFrame parseFrame(std::string_view text) {
  const std::vector<std::string_view> lines = splitLines(text);
  return {block(lines, "[start]"), block(lines, "[end]")};
}

ScriptFrame defaultFrame() {
  return {{"Set Optimizing off;", "Set Undo_Log off;"}, {"Set Undo_Log on;", "Window Fit;"}};
}

std::string_view defaultFrameText() {
  return "[Start]\r\n"
         "Set Optimizing off;\r\n"
         "Set Undo_Log off;\r\n"
         "EndBlock\r\n"
         "\r\n"
         "[End]\r\n"
         "Set Undo_Log on;\r\n"
         "Window Fit;\r\n"
         "EndBlock\r\n";
}

ScriptFrame loadFrame(const FrameSource& source) {
  if (source.loaded != nullptr) return *source.loaded;
  if (source.path.empty() && !source.mustExist) return defaultFrame();
  if (files::namesFile(files::findExisting(source.path)))
    return parseFrame(files::readFile(source.path));
  if (source.mustExist)
    throw base::ReadError(files::namesFolder(files::findExisting(source.path)) ? EISDIR : ENOENT);
  if (source.create) files::replaceFile(files::findForCreation(source.path), defaultFrameText());
  return defaultFrame();
}

}  // namespace quillon::convert
