#include "exact/outlines.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>
#include <vector>

#include "exact/open_pieces.h"
#include "geometry/end_filter.h"
#include "geometry/end_grid.h"
#include "geometry/joining.h"
#include "geometry/path_tools.h"
#include "geometry/twins.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

constexpr int kDimensionLayer = 20;
constexpr int kMillingLayer = 46;

/// Joins pieces. Those that may meet others become paths first; the others, of which there may be
/// millions, stay as they are.
class Joiner {
 public:
  Joiner(HeldLayer& layer, const Options& options, const Measures& measures, LossList& losses,
         OutlineReport& report, const CleaningRun& run)
      : layer_(layer),
        options_(options),
        measures_(measures),
        losses_(losses),
        report_(report),
        stop_(run.stop),
        memory_(run.memory),
        pieces_(layer, run.stop) {}

  void join() {
    // More pieces would take more than a hundred gigabytes; they stay as they are.
    if (!findMeeting() || meeting_.pieces.size() > geometry::kMostPieces) return giveBack();
    geometry::JoinedEnds ends = geometry::joinEnds(meeting_.pieces, measures_.join, stop_);
    if (stop_()) return giveBack();
    if (options_.dropDuplicates) findTwins(ends);
    std::vector<geometry::Chain> chains = chainsOf(ends);
    if (stop_()) return giveBack();
    report_.joinedEnds += ends.moved;
    report_.largestMove = std::max(report_.largestMove, ends.largestMove);
    report_.openChains += known_.pieces - meeting_.pieces.size();
    if (wantsGaps(chains)) {
      report_.gapCount += pieces_.noteGaps(meeting_, ends, known_, options_.mostGaps, report_.gaps);
    }
    tidyShapes();
    for (std::size_t i = 0; i < chains.size(); ++i) {
      if (!twins_.empty() && dropsAsTwin(chains[i])) continue;
      // Past a stop, what is left stays in pieces.
      stop_() ? giveBack(chains[i].pieces) : put(chains[i]);
    }
    layer_.settle();
  }

 private:
  struct Ends {
    OpenPieces::Place place;
    Point start;
    Point end;
  };

  /// False where it was stopped.
  bool findMeeting() {
    known_.reach = reachFor(layer_.openCount(), layer_.endsBox());
    known_.tolerance = measures_.join;
    geometry::EndFilter filter(2 * layer_.openCount(), known_.reach,
                               geometry::EndFilter::Grid::Coarse, &memory_);
    const auto add = [&](const OpenPieces::Place& place, const Point& start, const Point& end) {
      known_.pieces = place.order + 1;
      filter.add(start, place.order);
      filter.add(end, place.order);
    };
    if (!pieces_.forEach(add)) return false;
    const std::vector<bool> mayMeet = filter.meeting(known_.pieces);
    std::vector<Ends> found;
    found.reserve(static_cast<std::size_t>(std::count(mayMeet.begin(), mayMeet.end(), true)));
    const auto find = [&](const OpenPieces::Place& place, const Point& start, const Point& end) {
      if (mayMeet[place.order]) found.push_back({place, start, end});
    };
    if (!pieces_.forEach(find)) return false;
    return sift(found);
  }

  /// How near ends have to be to others to be looked at: as near as those that joinEnds() compares,
  /// or so much farther that the gaps that are to be told are among them, where ends are scattered
  /// evenly.
  double reachFor(std::size_t pieces, const geometry::Box& box) const {
    const double compared = 2.0 * measures_.join;
    if (options_.mostGaps >= pieces) return compared;
    const double area = (box.high.x - box.low.x) * (box.high.y - box.low.y);
    const auto ends = 2.0 * static_cast<double>(pieces);
    const double share = static_cast<double>(options_.mostGaps) * area / (ends * ends);
    const double reach = std::sqrt(measures_.join * measures_.join + share);
    return geometry::usable(reach) ? std::max(compared, reach) : compared;
  }

  /// A second look at those that are left.
  bool sift(const std::vector<Ends>& found) {
    geometry::EndFilter filter(2 * found.size(), known_.reach, geometry::EndFilter::Grid::Fine,
                               &memory_);
    for (std::size_t i = 0; i < found.size(); ++i) {
      filter.add(found[i].start, i);
      filter.add(found[i].end, i);
    }
    const std::vector<bool> mayMeet = filter.meeting(found.size());
    constexpr std::size_t kPiecesPerCheck = 64;
    for (std::size_t i = 0; i < found.size(); ++i) {
      if (i % kPiecesPerCheck == 0 && stop_()) return false;
      if (!mayMeet[i]) continue;
      meeting_.places.push_back(found[i].place);
      meeting_.pieces.push_back(pieces_.take(found[i].place));
    }
    return true;
  }

  void giveBack(std::size_t piece) {
    const OpenPieces::Place& place = meeting_.places[piece];
    if (!place.isShape) return;
    pieces_.chainAt(place).path = std::move(std::get<geometry::Path>(meeting_.pieces[piece].shape));
  }
  void giveBack(const std::vector<std::size_t>& pieces) {
    for (const std::size_t piece : pieces) giveBack(piece);
  }
  void giveBack() {
    for (std::size_t i = 0; i < meeting_.pieces.size(); ++i) giveBack(i);
  }

  std::vector<geometry::Chain> chainsOf(const geometry::JoinedEnds& ends) const {
    if (options_.chains) return geometry::chainsOf(meeting_.pieces, ends, stop_);
    std::vector<geometry::Chain> chains;
    chains.reserve(meeting_.pieces.size());
    for (std::size_t i = 0; i < meeting_.pieces.size(); ++i) {
      chains.push_back({pathOf(meeting_.pieces[i]), {i}});
    }
    return chains;
  }

  /// What joining has laid upon others follows nothing, and goes when the ends are known.
  void findTwins(geometry::JoinedEnds& ends) {
    twins_ = geometry::twinsOf(meeting_.pieces, ends, measures_.resolution);
    for (const std::size_t piece : twins_) {
      ends.points[2 * piece] = ends.points[2 * piece + 1] = geometry::kNoEnd;
    }
  }

  /// A twin is a chain of its own.
  bool dropsAsTwin(const geometry::Chain& chain) {
    const std::size_t piece = chain.pieces.front();
    if (!std::binary_search(twins_.begin(), twins_.end(), piece)) return false;
    const OpenPieces::Place& place = meeting_.places[piece];
    const Origin origin = layer_.originOf(layer_.segments()[place.index]);
    losses_.add({LossRule::Duplicate, origin.kind, origin.dxfLayer, origin.line,
                 endOf(meeting_.pieces[piece], 0)});
    pieces_.drop(place);
    return true;
  }

  bool wantsGaps(const std::vector<geometry::Chain>& chains) const {
    if (layer_.number() == kDimensionLayer || layer_.number() == kMillingLayer) return true;
    return pieces_.hasClosed() ||
           std::any_of(chains.begin(), chains.end(),
                       [](const geometry::Chain& chain) { return chain.path.closed; });
  }

  /// What meets nothing is tidied like all chains; segments have always been.
  void tidyShapes() {
    for (std::size_t i = 0; i < layer_.shapes().size(); ++i) {
      Chain* const chain = layer_.shapes()[i].chain();
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
  LossList& losses_;
  OutlineReport& report_;
  const geometry::StopCheck& stop_;
  geometry::HashMemory& memory_;
  OpenPieces pieces_;
  OpenPieces::EndsKnown known_;
  OpenPieces::Meeting meeting_;
  std::vector<std::size_t> twins_;  ///< of its pieces, ascending
};

}  // namespace

void joinOutlines(HeldLayer& layer, const Options& options, const Measures& measures,
                  LossList& losses, OutlineReport& report, const CleaningRun& run) {
  if (!options.chains && measures.join <= 0.0) return;
  Joiner(layer, options, measures, losses, report, run).join();
}

}  // namespace quillon::exact
