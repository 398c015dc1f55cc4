#include "convert/layer_file.h"

#include <algorithm>

#include "convert/ini_document.h"
#include "convert/ini_file.h"
#include "convert/output_file.h"
#include "convert/paths.h"
#include "dxf/encoding.h"
#include "dxf/number_text.h"

namespace quillon::convert {
namespace {

constexpr double kLastLayer = 255.0;
constexpr double kUnconverted = 999.0;

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20; }

/// A name that stands in quotes gets a second pair, since reading takes one off. One with a control
/// character such as a tab at an end gets quotes as well, since reading would trim it.
std::string quotedOnce(std::string name) {
  const bool quoted = name.size() >= 2 && name.front() == name.back() &&
                      (name.front() == '"' || name.front() == '\'');
  const bool trimmed = !name.empty() && (isControl(name.front()) || isControl(name.back()));
  return quoted || trimmed ? '"' + name + '"' : name;
}

/// A name without any other character than blanks and control characters would be read as none,
/// and end the file for the reader.
bool isVisible(std::string_view name) {
  return std::any_of(name.begin(), name.end(), [](char c) { return c != ' ' && !isControl(c); });
}

}  // namespace

std::vector<LayerRow> readLayerRows(const std::string& path) {
  std::vector<LayerRow> rows;
  if (path.empty()) return rows;
  const IniFile file = IniFile::read(path);
  for (std::size_t n = 1;; ++n) {
    const std::string section = std::to_string(n);
    const std::string name = file.value(section, "layername");
    const std::string_view trimmed = dxf::trimBlanks(name);
    if (trimmed.empty()) return rows;
    // The number stays a text: "16.7" is kept, a text without a number becomes "0".
    rows.push_back({dxf::windows1252ToUtf8(trimmed),
                    dxf::numberText(dxf::numberValue(file.value(section, "layernr")))});
  }
}

bool isSaved(const LayerRow& row) {
  const double layer = dxf::numberValue(row.layer);
  return isVisible(row.name) && ((layer >= 1.0 && layer <= kLastLayer) || layer == kUnconverted);
}

bool fitsLayerFile(const std::string& name) {
  return dxf::windows1252ToUtf8(dxf::fromUtf8(name, dxf::Encoding::Windows1252)) == name;
}

void saveLayerRows(const std::string& path, const std::vector<LayerRow>& rows) {
  const std::filesystem::path target = findForCreation(path);
  const std::string before = isMissing(target) ? "" : readFile(fromPath(target));
  const LayerFileKind kind = layerFileKind(path, before);
  if (kind != LayerFileKind::LayerFile) throw NotALayerFile(kind);
  IniDocument document(before);
  document.removeSections(isAssignmentSection);
  std::size_t n = 0;
  for (const LayerRow& row : rows) {
    if (!isSaved(row)) continue;
    const std::string name =
        quotedOnce(dxf::fromUtf8(dxf::trimBlanks(row.name), dxf::Encoding::Windows1252));
    const std::string layer = dxf::numberText(dxf::numberValue(row.layer));
    document.append(std::to_string(++n), {{"layername", name}, {"layernr", layer}});
  }
  replaceFile(target, document.text());
}

}  // namespace quillon::convert
