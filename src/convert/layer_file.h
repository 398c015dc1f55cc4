#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "convert/layer_file_kind.h"

namespace quillon::convert {

/// One assignment of a layer assignment file.
struct LayerRow {
  std::string name;       ///< the DXF layer, UTF-8, as typed
  std::string layer;      ///< starts with the number of the EAGLE layer
  std::string text = {};  ///< the layer as written in the file, UTF-8
  bool areas = false;     ///< by the exact rules, closed polylines on it become areas
};

/// Assignments were to be saved into a file of another kind, which is left unchanged.
class NotALayerFile : public std::runtime_error {
 public:
  explicit NotALayerFile(LayerFileKind kind)
      : std::runtime_error("not a layer assignment file"), kind_(kind) {}
  LayerFileKind kind() const { return kind_; }

 private:
  LayerFileKind kind_;
};

/// The rows of sections 1, 2, 3, … up to the first without a name; layers are plain decimal
/// numbers. No rows for an empty path or one where no file can be read.
std::vector<LayerRow> readLayerRows(const std::string& path);

/// The same for a file the user specified: throws ReadError when it cannot be read.
std::vector<LayerRow> readNamedLayerRows(const std::string& path);

/// True when a text starts with the number of an EAGLE layer: rounded 1 to 255, or 999.
bool isEagleLayer(std::string_view text);

/// True when a number in a file is not an EAGLE layer. False for a text without a number, which
/// counts as layer 0.
bool isForeignLayer(const LayerRow& row);

/// True when a text has no number, or something directly follows it ("20,5"). A name may follow
/// after a blank ("20 Dimension (B)").
bool isCutLayer(std::string_view text);

/// True for a row that will be saved: it has a name, and a layer from 1 to 255, or 999.
bool isSaved(const LayerRow& row);

/// True when a name can be saved unchanged: the file is limited to Windows-1252.
bool fitsLayerFile(const std::string& name);

/// Replaces the assignments in a file by the rows that are saved, in order; sections whose name is
/// not a number are kept. The file is complete or unchanged. Characters missing from Windows-1252
/// become "?". Throws ReadError, NotALayerFile, or WriteError, also when the folder does not exist.
void saveLayerRows(const std::string& path, const std::vector<LayerRow>& rows);

}  // namespace quillon::convert
