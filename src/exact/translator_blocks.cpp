#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "dxf/short_code.h"
#include "dxf/table_entries.h"
#include "exact/texts.h"
#include "exact/translator.h"

namespace quillon::exact {
namespace {

/// The handle of an entity; 0 without one.
std::uint64_t handleOfEntity(const Item& item, const Canvas& canvas) {
  EntityGroups groups = canvas.groupsOf(item);
  for (dxf::Group group; groups.next(group);) {
    if (group.code == 5) return dxf::handleValue(group.value);
  }
  return 0;
}

/// Layouts are kept as blocks, but for one: its content is in the ENTITIES section.
bool isPaperLayout(const dxf::BlockRec& block) {
  constexpr std::string_view kPaper = "PAPER_SPACE";
  return block.isLayout() && block.name.substr(1, kPaper.size()) == kPaper;
}

}  // namespace

void Translator::drawLayouts() {
  const bool hasNothing = !sawModel_ && !sawPaper_;
  if (space_ == Space::Model && !hasNothing) return;
  bool isDrawn = sawPaper_;
  for (std::size_t i = 0; i < drawing_.blocks.size(); ++i) {
    const dxf::BlockRec& block = drawing_.blocks[i];
    if (!isPaperLayout(block) || !hasMoreThanViewports(i)) continue;
    if (isDrawn) {
      losses_.add({LossRule::LayoutNotDrawn, "LAYOUT", {}, block.firstLine, {}, 0.0, block.name});
      continue;
    }
    isDrawn = true;
    if (space_ == Space::Model) turnToPaper();
    drawLayout(i);
  }
}

/// Hands on its entities until one is not taken.
template <typename Take>
void Translator::walkLayout(std::size_t blockIndex, const Take& take) {
  const auto& [range, firstLine] = contentOf(blockIndex);
  dxf::LineCounter lines(range.begin, firstLine, drawing_.lineEnds.eolChar);
  dxf::EntityWalk walk(drawing_, dxf::LineCursor(range, drawing_.lineEnds));
  for (dxf::DxfEntity found; !walk.atEnd();) {
    if (!walk.step(found)) continue;
    found.line = lines.lineAt(found.groups);
    if (poll_() || !take(found)) return;
  }
}

bool Translator::hasMoreThanViewports(std::size_t blockIndex) {
  bool hasMore = false;
  walkLayout(blockIndex, [&](const dxf::DxfEntity& found) {
    hasMore = reader_.read(found).kind != Kind::Viewport;
    return !hasMore;
  });
  return hasMore;
}

void Translator::drawLayout(std::size_t blockIndex) {
  isInLayout_ = true;
  walkLayout(blockIndex, [this](dxf::DxfEntity& found) {
    takeEntity(found);
    return true;
  });
  polyline_.finish(canvas_);
  isInLayout_ = false;
}

/// Draws the blocks nested within the `enclosing` outermost ones. They wait in a list, so that a
/// drawing cannot exhaust the stack.
void Translator::drawExpansions(std::size_t enclosing) {
  if (expansions_.size() == enclosing) return;
  dxf::DxfEntity found;
  while (expansions_.size() > enclosing) {
    Expansion& expansion = expansions_.back();
    if (poll_() || !nextOfBlock(expansion, found)) {
      endExpansion();
      continue;
    }
    draw(found, expansion.inside);
  }
}

void Translator::endExpansion() {
  const Expansion& expansion = expansions_.back();
  polyline_.finish(canvas_);
  faces_.end();
  currentPosition_ = expansion.insertedAt;
  expanding_[expansion.blockIndex] = 0;
  // Those that follow are of the insertion just shown.
  attributesAreHidden_ = false;
  if (!expansion.attributes.empty()) {
    const Origin& origin = expansion.origin;
    losses_.add({LossRule::LeaderAttributes, origin.kind, origin.dxfLayer, origin.line});
  }
  expansions_.pop_back();
}

const Translator::BlockContent& Translator::contentOf(std::size_t blockIndex) {
  BlockContent& content = contents_[blockIndex];
  if (content.lines.begin != nullptr) return content;
  const dxf::BlockRec& block = drawing_.blocks[blockIndex];
  content = {block.text, block.firstLine};
  dxf::LineCursor lines(block.text, drawing_.lineEnds);
  while (!lines.atEnd()) {
    const std::string_view line = lines.next();
    if (dxf::readShortCode(line.data(), drawing_.lineEnds.eolChar).code <= 0 || lines.atEnd())
      break;
    lines.next();
    content.lines.begin = lines.position();
    content.firstLine += 2;
  }
  return content;
}

/// The next entity of the block; false after that of the last cell.
bool Translator::nextOfBlock(Expansion& expansion, dxf::DxfEntity& found) {
  for (;;) {
    if (!expansion.walk) {
      if (expansion.places.empty() || poll_()) return false;
      // Not earlier: of several blocks of one entity, those still waiting contain nothing yet.
      expanding_[expansion.blockIndex] = 1;
      expansion.inside.map = expansion.places.map();
      const auto& [lines, firstLine] = contentOf(expansion.blockIndex);
      expansion.walk.emplace(drawing_, dxf::LineCursor(lines, drawing_.lineEnds));
      expansion.lines.emplace(lines.begin, firstLine, drawing_.lineEnds.eolChar);
    }
    while (!expansion.walk->atEnd()) {
      if (!expansion.walk->step(found)) continue;
      found.line = expansion.lines->lineAt(found.groups);
      return true;
    }
    polyline_.finish(canvas_);
    expansion.walk.reset();
    expansion.places.next();
  }
}

/// An attribute definition, with the text that the block being drawn has for it.
void Translator::drawDefinition(const Item& item, bool isInBlock) {
  if (!isInBlock || expansions_.back().attributes.empty()) {
    return drawAttributeDefinition(item, canvas_, isInBlock);
  }
  std::vector<AttributeText>& attributes = expansions_.back().attributes;
  const auto found =
      std::find_if(attributes.begin(), attributes.end(),
                   [handle = handleOfEntity(item, canvas_)](const AttributeText& given) {
                     return given.definition == handle;
                   });
  if (found == attributes.end()) return drawAttributeDefinition(item, canvas_, isInBlock);
  const std::string_view text = found->text;
  attributes.erase(found);
  drawAttributeDefinition(item, canvas_, text);
}

}  // namespace quillon::exact
