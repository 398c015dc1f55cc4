#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/encoding.h"
#include "dxf/entities.h"
#include "exact/shapes.h"
#include "rules/losses.h"

namespace quillon::exact {

using rules::LossList;

/// Which of the lines across an MLINE.
enum class MlineAcross : std::uint8_t { Start, Joint, End };

/// Lines across an MLINE at its ends and corners. Whether they are drawn is up to its style.
struct MlineCrossings {
  std::string style;      ///< upper-cased name
  LossList::Event loss;   ///< for caps that are not drawn
  bool hasStart = false;  ///< the style may put a cap there
  bool hasEnd = false;
  /// A part of a line, or a dot of its line type.
  struct Piece {
    MlineAcross where;
    Origin origin;
    std::variant<Chain, Dot> shape;
  };
  std::vector<Piece> pieces{};

  /// Whether it may have caps as long as nothing is known of its style. The one of each new drawing
  /// has none.
  bool mayHaveCaps() const { return (hasStart || hasEnd) && style != "STANDARD"; }
};

/// Draws straight caps and joints of MLINEs. Styles come after all entities.
class MlineStyles final : public dxf::ObjectSink {
 public:
  MlineStyles(base::Encoding encoding, ShapeSink& sink, LossList& losses)
      : encoding_(encoding), sink_(sink), losses_(losses) {}

  /// An MLINE was drawn, apart from these.
  void note(MlineCrossings crossings);
  /// Nothing waits for its style.
  bool empty() const { return waiting_.empty(); }

  void takeGroup(int code, std::string_view value) override;
  /// Draws what the styles want, and names caps of other forms.
  void endOfObjects() override;
  /// Names caps of styles that never came.
  void finish();

 private:
  void endStyle();
  void draw(MlineCrossings& crossings, int flags);

  base::Encoding encoding_;
  ShapeSink& sink_;
  LossList& losses_;
  std::vector<MlineCrossings> waiting_;
  std::map<std::string, int, std::less<>> flagsOfStyles_;  ///< by upper-cased name

  // The object being read.
  bool isStyle_ = false;
  std::string name_;
  int flags_ = 0;
};

}  // namespace quillon::exact
