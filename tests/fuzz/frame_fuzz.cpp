// Any bytes are a frame file: its lines are taken as they are and contain no line ends.
#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

#include "convert/script_frame.h"
#include "parts.h"
#include "run_once.h"

namespace {

using quillon::fuzz::require;

bool contains(std::string_view line, std::string_view wanted) {
  return std::search(line.begin(), line.end(), wanted.begin(), wanted.end(), [](char a, char b) {
           return std::tolower(static_cast<unsigned char>(a)) == b;
         }) != line.end();
}

}  // namespace

void quillon::fuzz::runOnce(std::string_view text) {
  const quillon::convert::ScriptFrame frame = quillon::convert::parseFrame(text);
  for (const auto* const block : {&frame.startBlock, &frame.endBlock}) {
    std::size_t bytes = 0;
    std::size_t from = 0;
    for (const std::string& line : *block) {
      require(line.find_first_of("\r\n") == std::string::npos, "a line holds no line end");
      require(!contains(line, "endblock"), "a block ends before its end mark");
      const std::size_t at = text.find(line, from);
      require(at != std::string_view::npos, "lines stand in the file, in their order");
      from = at + line.size();
      bytes += line.size();
    }
    require(bytes <= text.size() && block->size() <= text.size() + 1,
            "a block is no larger than its file");
  }
  require(frame.startBlock.empty() || contains(text, "[start]"), "a start block has its mark");
  require(frame.endBlock.empty() || contains(text, "[end]"), "an end block has its mark");
}
