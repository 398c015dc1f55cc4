#include "convert/layer_file.h"

#include <algorithm>
#include <cerrno>

#include "base/encoding.h"
#include "base/layer_number.h"
#include "base/number_text.h"
#include "files/ini_document.h"
#include "files/ini_file.h"
#include "files/output_file.h"
#include "files/paths.h"

namespace quillon::convert {
namespace {

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

/// Reading removes one pair of quotes, so a quoted name gets a second pair. So does a name with a
/// control character such as a tab at either end, which reading would trim.
std::string quotedOnce(std::string name) {
  const bool quoted = name.size() >= 2 && name.front() == name.back() &&
                      (name.front() == '"' || name.front() == '\'');
  const bool trimmed = !name.empty() && (isControl(name.front()) || isControl(name.back()));
  return quoted || trimmed ? '"' + name + '"' : name;
}

/// A name of nothing but blanks and control characters would read as empty and end the list.
bool isVisible(std::string_view name) {
  return std::any_of(name.begin(), name.end(), [](char c) { return c != ' ' && !isControl(c); });
}

std::vector<LayerRow> rowsOf(const files::IniFile& file) {
  std::vector<LayerRow> rows;
  for (std::size_t n = 1;; ++n) {
    const std::string section = std::to_string(n);
    const std::string name = file.value(section, "layername");
    const std::string_view trimmed = base::trimBlanks(name);
    if (trimmed.empty()) return rows;
    // The number stays text: "16.7" is kept, a text without a number becomes "0".
    const std::string number = file.value(section, "layernr");
    rows.push_back({base::windows1252ToUtf8(trimmed), base::numberText(base::numberValue(number)),
                    base::windows1252ToUtf8(number),
                    base::numberValue(file.value(section, "areas")) != 0.0});
  }
}

}  // namespace

std::vector<LayerRow> readLayerRows(const std::string& path) {
  return path.empty() ? std::vector<LayerRow>() : rowsOf(files::IniFile::read(path));
}

std::vector<LayerRow> readNamedLayerRows(const std::string& path) {
  return rowsOf(files::IniFile(files::readFile(path)));
}

bool isEagleLayer(std::string_view text) {
  bool fits = false;
  const double number = base::roundedInteger16(base::numberValue(text), fits);
  return fits && (base::isEagleLayer(number) || number == base::kNotConverted);
}

bool isForeignLayer(const LayerRow& row) {
  return base::startsWithNumber(row.text) && !isEagleLayer(row.text);
}

bool isCutLayer(std::string_view text) {
  const std::string_view rest = base::textAfterNumber(text);
  return !base::startsWithNumber(text) ||
         (!rest.empty() && rest.front() != ' ' && rest.front() != '\t');
}

bool isSaved(const LayerRow& row) {
  const double layer = base::numberValue(row.layer);
  return isVisible(row.name) && (base::isEagleLayer(layer) || layer == base::kNotConverted);
}

bool fitsLayerFile(const std::string& name) {
  return base::windows1252ToUtf8(base::fromUtf8(name, base::Encoding::Windows1252)) == name;
}

void saveLayerRows(const std::string& path, const std::vector<LayerRow>& rows) {
  const std::filesystem::path target = files::findForCreation(path);
  if (files::isInMissingFolder(target)) throw files::WriteError(ENOENT);
  const std::string before =
      files::isMissing(target) ? "" : files::readFile(files::fromPath(target));
  const LayerFileKind kind = layerFileKind(path, before);
  if (kind != LayerFileKind::LayerFile) throw NotALayerFile(kind);
  files::IniDocument document(before);
  document.removeSections(isAssignmentSection);
  std::size_t n = 0;
  for (const LayerRow& row : rows) {
    if (!isSaved(row)) continue;
    const std::string name =
        quotedOnce(base::fromUtf8(base::trimBlanks(row.name), base::Encoding::Windows1252));
    const std::string layer = base::numberText(base::numberValue(row.layer));
    std::vector<files::IniDocument::Entry> entries = {{"layername", name}, {"layernr", layer}};
    if (row.areas) entries.push_back({"areas", "1"});
    document.append(std::to_string(++n), entries);
  }
  files::replaceFile(target, document.text());
}

}  // namespace quillon::convert
