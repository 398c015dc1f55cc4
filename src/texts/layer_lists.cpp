#include "texts/layer_lists.h"

#include <utility>

#include "base/layer_number.h"

namespace quillon::texts {
namespace {

/// Ends with the suffix of layers without a name of their own.
constexpr TextRow kBoardNames = textRow(TextId::LayerTop, TextId::LayerUserDefined);
constexpr TextRow kSchematicNames = textRow(TextId::LayerNets, TextId::LayerValues);

constexpr int kFirstFreeLayer = 53;
constexpr int kFirstSchematicLayer = 91;
constexpr int kLastSchematicLayer = 96;

class LayerList {
 public:
  explicit LayerList(const Texts& texts) : texts_(texts) {}

  /// Entries of the string table, read without the language offset.
  LayerList& names(TextRow ids) {
    for (const TextId id : ids) entries_.emplace_back(loadString(id));
    return *this;
  }
  /// Layers without a name of their own.
  LayerList& free(int first, int last) {
    for (int number = first; number <= last; ++number) {
      entries_.push_back(std::to_string(number).append(texts_(TextId::LayerUserDefined)));
    }
    return *this;
  }
  LayerList& unconverted() {
    entries_.emplace_back(texts_(TextId::LayerUnconverted));
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
      .names(kBoardNames)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .free(kLastSchematicLayer + 1, base::kLastLayer)
      .unconverted()
      .take();
}

std::vector<std::string> schematicLayers(const Texts& texts) {
  return LayerList(texts)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .names(kSchematicNames)
      .free(kLastSchematicLayer + 1, base::kLastLayer)
      .take();
}

std::vector<std::string> editorLayers(const Texts& texts) {
  return LayerList(texts)
      .names(kBoardNames)
      .free(kFirstFreeLayer, kFirstSchematicLayer - 1)
      .names(kSchematicNames)
      .free(kLastSchematicLayer + 1, base::kLastLayer)
      .unconverted()
      .take();
}

}  // namespace quillon::texts
