#include "files/ini_document.h"

#include "files/ini_line.h"

namespace quillon::files {
namespace {

std::string keyLine(std::string_view key, std::string_view value) {
  std::string line = std::string(key) + "=";
  for (const char c : value) line += c == '\r' || c == '\n' || c == '\0' ? ' ' : c;
  return line;
}

}  // namespace

IniDocument::IniDocument(std::string_view bytes) {
  bytes = withoutByteOrderMark(bytes);
  while (!bytes.empty()) lines_.emplace_back(takeIniLine(bytes));
}

void IniDocument::set(std::string_view section, std::string_view key, std::string_view value) {
  const std::size_t start = findSection(section);
  if (start == lines_.size()) {
    append(section, {{key, value}});
    return;
  }
  const std::string folded = foldedName(key);
  std::size_t afterLast = start + 1;
  for (std::size_t i = start + 1; i < lines_.size(); ++i) {
    const IniLine line = parseIniLine(lines_[i]);
    if (line.kind == IniLine::Kind::Section) break;
    if (line.kind == IniLine::Kind::Key && foldedName(line.name) == folded) {
      lines_[i] = keyLine(line.name, value);
      return;
    }
    if (lines_[i].find_first_not_of(" \t") != std::string::npos) afterLast = i + 1;
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(afterLast), keyLine(key, value));
}

void IniDocument::removeSections(const std::function<bool(std::string_view)>& fits) {
  std::vector<std::string> kept;
  bool removing = false;
  for (std::string& text : lines_) {
    const IniLine line = parseIniLine(text);
    if (line.kind == IniLine::Kind::Section) removing = fits(foldedName(line.name));
    if (!removing) kept.push_back(std::move(text));
  }
  lines_ = std::move(kept);
}

void IniDocument::append(std::string_view section, const std::vector<Entry>& entries) {
  lines_.push_back("[" + std::string(section) + "]");
  for (const auto& [key, value] : entries) lines_.push_back(keyLine(key, value));
}

std::string IniDocument::text() const {
  std::string out;
  for (const std::string& line : lines_) out.append(line).append("\r\n");
  return out;
}

std::size_t IniDocument::findSection(std::string_view section) const {
  const std::string folded = foldedName(section);
  std::size_t i = 0;
  for (; i < lines_.size(); ++i) {
    const IniLine line = parseIniLine(lines_[i]);
    if (line.kind == IniLine::Kind::Section && foldedName(line.name) == folded) break;
  }
  return i;
}

}  // namespace quillon::files
