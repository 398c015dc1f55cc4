#include "workbench/layer_list.h"

#include <algorithm>
#include <map>

#include "base/encoding.h"
#include "base/layer_number.h"
#include "base/number_text.h"
#include "convert/layer_file.h"
#include "files/paths.h"
#include "texts/layer_lists.h"

namespace quillon::workbench {
namespace {

/// How names are compared: a drawing's layers have none that differ by case alone.
std::string folded(std::string_view name) { return base::upperCase(name, base::Encoding::Utf8); }

/// The entry of a list that starts with a number; the number alone where there is none.
std::string entryOf(const std::vector<std::string>& entries, double number) {
  const auto found =
      std::find_if(entries.begin(), entries.end(), [number](const std::string& entry) {
        return base::startsWithNumber(entry) && base::numberValue(entry) == number;
      });
  return found == entries.end() ? base::numberText(number) : *found;
}

/// The assignments of a file, and where it is: those that are shown must be those that are saved,
/// however the path is spelled.
struct FoundRows {
  explicit FoundRows(const std::string& typed)
      : path(files::fromPath(files::findExisting(typed))),
        rows(files::isMissing(files::toPath(path)) ? std::vector<convert::LayerRow>()
                                                   : convert::readNamedLayerRows(path)) {}
  bool canBeSaved() const { return std::all_of(rows.begin(), rows.end(), convert::isSaved); }
  void save() const { convert::saveLayerRows(path, rows); }

  std::string path;
  std::vector<convert::LayerRow> rows;
};

}  // namespace

std::string layerName(int number, int targetKind, const texts::Texts& texts) {
  return entryOf(settings::layersOf(targetKind, texts), number);
}

std::vector<AssignedLayer> assignedLayers(const std::vector<std::string>& names,
                                          const std::string& path, const texts::Texts& texts) {
  const std::vector<std::string> entries = texts::editorLayers(texts);
  std::map<std::string, AssignedLayer> assigned;  // the first one of a name counts
  for (const convert::LayerRow& row : convert::readLayerRows(path)) {
    assigned.try_emplace(
        folded(row.name),
        AssignedLayer{row.name, entryOf(entries, base::numberValue(row.layer)), row.areas});
  }
  std::vector<AssignedLayer> layers;
  for (const std::string& name : names) {
    const auto found = assigned.find(folded(name));
    layers.push_back(found == assigned.end() ? AssignedLayer{} : found->second);
    layers.back().name = name;
  }
  return layers;
}

bool assignLayer(const std::string& path, std::string_view name, const std::string& entry) {
  FoundRows found(path);
  if (!found.canBeSaved()) return false;
  std::vector<convert::LayerRow>& rows = found.rows;
  const std::string wanted = folded(name);
  const auto isWanted = [&wanted](const convert::LayerRow& row) {
    return folded(row.name) == wanted;
  };
  const auto row = std::find_if(rows.begin(), rows.end(), isWanted);
  if (entry.empty()) {
    rows.erase(std::remove_if(rows.begin(), rows.end(), isWanted), rows.end());
  } else if (row != rows.end()) {
    row->layer = entry;
  } else {
    rows.push_back({std::string(name), entry});
  }
  found.save();
  return true;
}

bool setAreas(const std::string& path, std::string_view name, bool areas) {
  FoundRows found(path);
  if (!found.canBeSaved()) return false;
  const std::string wanted = folded(name);
  for (convert::LayerRow& row : found.rows) {
    if (folded(row.name) == wanted) row.areas = areas;
  }
  found.save();
  return true;
}

}  // namespace quillon::workbench
