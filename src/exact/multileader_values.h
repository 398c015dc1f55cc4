#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exact/canvas.h"
#include "exact/texts.h"

namespace quillon::exact {

/// Lines that end in one point, from where a short one, the dogleg, leads on to the content.
struct LeaderBranch {
  std::vector<std::vector<Point>> lines;  ///< each from its arrow on, without the common end
  std::optional<Point> end;
  Point dogleg;  ///< the direction
  double doglegLength = 0.0;
  bool hasDogleg = false;
};

struct LeaderText {
  std::string content;  ///< with codes as in paragraphs
  Point at;
  Point direction{1.0, 0.0};
  double rotation = 0.0;  ///< radians
  double height = 0.0;
  double width = 0.0;
  double lineSpacing = 1.0;
  double spacingStyle = 1.0;
  double column = 1.0;     ///< 1 left, 2 centre, 3 right
  std::string_view style;  ///< upper-cased
};

struct LeaderBlock {
  std::string_view name;  ///< upper-cased
  Point at;
  double normalX = 0.0;
  double normalY = 0.0;
  double normalZ = 1.0;
  double scaleX = 1.0;
  double scaleY = 1.0;
  double rotation = 0.0;  ///< radians
};

/// A MULTILEADER: what its context says of its lines and content, and its own settings. Everything
/// is in world coordinates, at its full size.
struct MultiLeader {
  std::vector<LeaderBranch> branches;
  std::optional<LeaderText> text;
  std::optional<LeaderBlock> block;
  std::string_view arrowBlock;  ///< upper-cased; empty: the usual arrow
  double arrowSize = 0.0;
  double height = 0.0;  ///< of all its points
  bool hasContext = false;
  bool hasLines = true;
  bool hasSplines = false;
  bool hasDoglegs = true;
  bool hasBreaks = false;                 ///< gaps where lines cross others
  std::vector<AttributeText> attributes;  ///< of its block; none is empty
};

ParagraphText leaderParagraph(const LeaderText& text);

MultiLeader readMultiLeader(const Item& item, Canvas& canvas);

}  // namespace quillon::exact
