#include "exact/outlines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "exact/open_pieces.h"
#include "geometry/end_filter.h"
#include "geometry/end_grid.h"
#include "geometry/joining.h"
#include "geometry/path_tools.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

constexpr int kDimensionLayer = 20;
constexpr int kMillingLayer = 46;

/// Joins pieces. Those that may meet others become paths first; the others, of which there may be
/// millions, stay as they are.
class Joiner {
 public:
  Joiner(HeldLayer& layer, const Options& options, const Measures& measures, OutlineReport& report,
         const geometry::StopCheck& stop)
      : layer_(layer),
        options_(options),
        measures_(measures),
        report_(report),
        stop_(stop),
        pieces_(layer, stop) {}

  void join() {
    if (!findMeeting()) return giveBack();
    const geometry::JoinedEnds ends = geometry::joinEnds(meeting_.pieces, measures_.join, stop_);
    if (stop_()) return giveBack();
    std::vector<geometry::Chain> chains = chainsOf(ends);
    report_.joinedEnds += ends.moved;
    report_.largestMove = std::max(report_.largestMove, ends.largestMove);
    report_.openChains += pieceCount_ - meeting_.pieces.size();
    if (wantsGaps(chains)) pieces_.noteGaps(meeting_, ends, report_.gaps);
    tidyShapes();
    for (geometry::Chain& chain : chains) put(chain);
    layer_.settle();
  }

 private:
  /// False where it was stopped.
  bool findMeeting() {
    std::size_t count = 0;
    if (!pieces_.forEach([&](const OpenPieces::Place&, Point, Point) { ++count; })) return false;
    geometry::EndFilter filter(2 * count, measures_.join);
    const auto add = [&](const OpenPieces::Place&, Point start, Point end) {
      filter.add(start);
      filter.add(end);
    };
    if (!pieces_.forEach(add)) return false;
    pieceCount_ = count;
    return pieces_.forEach([&](const OpenPieces::Place& place, Point start, Point end) {
      if (!filter.mayMeet(start) && !filter.mayMeet(end)) return;
      meeting_.places.push_back(place);
      meeting_.pieces.push_back(pieces_.take(place));
    });
  }

  void giveBack() {
    for (std::size_t i = 0; i < meeting_.pieces.size(); ++i) {
      const OpenPieces::Place& place = meeting_.places[i];
      if (place.isShape) pieces_.chainAt(place).path = std::move(meeting_.pieces[i].path);
    }
  }

  std::vector<geometry::Chain> chainsOf(const geometry::JoinedEnds& ends) const {
    if (options_.chains) return geometry::chainsOf(meeting_.pieces, ends);
    std::vector<geometry::Chain> chains;
    chains.reserve(meeting_.pieces.size());
    for (std::size_t i = 0; i < meeting_.pieces.size(); ++i) {
      chains.push_back({meeting_.pieces[i].path, {i}});
    }
    return chains;
  }

  bool wantsGaps(const std::vector<geometry::Chain>& chains) const {
    if (layer_.number() == kDimensionLayer || layer_.number() == kMillingLayer) return true;
    return pieces_.hasClosed() ||
           std::any_of(chains.begin(), chains.end(),
                       [](const geometry::Chain& chain) { return chain.path.closed; });
  }

  /// What meets nothing is tidied like all chains; segments have always been.
  void tidyShapes() {
    for (HeldShape& held : layer_.shapes()) {
      Chain* const chain = held.chain();
      if (chain != nullptr && chain->cleanable && !chain->path.closed) tidy(*chain);
    }
  }

  void tidy(Chain& chain) const {
    geometry::dropClosePoints(chain.path, measures_.resolution);
    geometry::splitWideArcs(chain.path);
  }

  /// Puts a chain in the place of its first piece.
  void put(geometry::Chain& chain) {
    const std::size_t first = *std::min_element(chain.pieces.begin(), chain.pieces.end());
    for (const std::size_t piece : chain.pieces) {
      if (piece != first) pieces_.drop(meeting_.places[piece]);
    }
    Chain& held = pieces_.chainAt(meeting_.places[first]);
    held.path = std::move(chain.path);
    tidy(held);
    ++(held.path.closed ? report_.closedChains : report_.openChains);
  }

  HeldLayer& layer_;
  const Options& options_;
  const Measures& measures_;
  OutlineReport& report_;
  const geometry::StopCheck& stop_;
  OpenPieces pieces_;
  std::size_t pieceCount_ = 0;
  OpenPieces::Meeting meeting_;
};

}  // namespace

void joinOutlines(HeldLayer& layer, const Options& options, const Measures& measures,
                  OutlineReport& report, const geometry::StopCheck& stop) {
  if (!options.chains && measures.join <= 0.0) return;
  Joiner(layer, options, measures, report, stop).join();
}

}  // namespace quillon::exact
