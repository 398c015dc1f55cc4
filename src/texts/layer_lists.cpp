#include "texts/layer_lists.h"

#include <utility>

namespace quillon::texts {
namespace {

constexpr int kFirstBoardName = 20000;
constexpr int kSuffix = 20051;  ///< " Userdefined"
constexpr int kFirstSchematicName = 20052;
constexpr int kLastSchematicName = 20057;
constexpr int kUnconverted = 20058;

constexpr int kFirstFreeLayer = 53;
constexpr int kFirstSchematicLayer = 91;
constexpr int kLastSchematicLayer = 96;
constexpr int kLastLayer = 255;

class LayerList {
 public:
  explicit LayerList(const Texts& texts) : texts_(texts) {}

  /// Entries of the string table, read without the language offset.
  LayerList& names(int firstId, int lastId) {
    for (int id = firstId; id <= lastId; ++id) entries_.emplace_back(loadString(id));
    return *this;
  }
  /// Layers without a name of their own.
  LayerList& free(int first, int last) {
    for (int number = first; number <= last; ++number) {
      entries_.push_back(std::to_string(number).append(texts_(kSuffix)));
    }
    return *this;
  }
  LayerList& unconverted() {
    entries_.emplace_back(texts_(kUnconverted));
    return *this;
  }
  std::vector<std::string> take() { return std::move(entries_); }

 private:
  const Texts& texts_;
  std::vector<std::string> entries_;
};

}  // namespace

// The board names include the bare suffix, in German for both languages; kept so that the lists
// stay the same.
std::vector<std::string> boardLayers(const Texts& texts) {
  return LayerList(texts)
      .names(kFirstBoardName, kSuffix)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .free(kLastSchematicLayer + 1, kLastLayer)
      .unconverted()
      .take();
}

std::vector<std::string> schematicLayers(const Texts& texts) {
  return LayerList(texts)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .names(kFirstSchematicName, kLastSchematicName)
      .free(kLastSchematicLayer + 1, kLastLayer)
      .take();
}

std::vector<std::string> editorLayers(const Texts& texts) {
  return LayerList(texts)
      .names(kFirstBoardName, kSuffix)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .names(kFirstSchematicName, kLastSchematicName)
      .free(kLastSchematicLayer + 1, kLastLayer)
      .unconverted()
      .take();
}

}  // namespace quillon::texts
