#include "exact/mtext_layout.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>

#include "exact/mtext_parser.h"
#include "exact/mtext_wrap.h"
#include "geometry/vectors.h"

namespace quillon::exact {
namespace {

/// The distance of baselines, in heights of capitals.
constexpr double kLinePitch = 5.0 / 3.0;
/// How far letters such as g reach below the baseline, in heights of capitals.
constexpr double kDescent = 0.3;

/// A 1-based position from the top left to the bottom right.
struct Attachment {
  Columns columns;
  Rows rows;
};

Attachment attachmentOf(int number) {
  constexpr Columns kAttachedColumns[] = {Columns::Left, Columns::Centre, Columns::Right};
  constexpr Rows kAttachedRows[] = {Rows::Top, Rows::Centre, Rows::Bottom};
  const int index = number >= 1 && number <= 9 ? number - 1 : 0;
  return {kAttachedColumns[index % 3], kAttachedRows[index / 3]};
}

double spacingOf(const ParagraphText& text) {
  return text.lineSpacing > 0.0 && geometry::usable(text.lineSpacing) ? text.lineSpacing : 1.0;
}

/// The number of lines that fill the height of a text.
double linesIn(const ParagraphText& text) {
  const double pitch = kLinePitch * spacingOf(text) * text.height;
  return std::round(1.0 + (text.boxHeight - text.height) / pitch);
}

WrapSettings wrapSettings(const ParagraphText& text, const ParsedText& parsed,
                          const TextEncoder& encoder, double widthFactor, Canvas& canvas) {
  if (!(text.width > 0.0) || !geometry::usable(text.width)) return {};
  if (!(text.boxHeight > 0.0)) return {text.width, usualLetterWidth(widthFactor)};
  return {text.width,
          letterWidthFor(parsed, encoder, text.width, widthFactor, linesIn(text), canvas)};
}

/// Walks down the lines of a text.
class LineWalk {
 public:
  explicit LineWalk(const ParagraphText& text)
      : text_(text), pitch_(kLinePitch * spacingOf(text)) {}

  void next(const WrappedLine& line) {
    height_ = line.height > 0.0 ? line.height : text_.height;
    if (count_++ == 0) {
      firstHeight_ = height_;
    } else {
      depth_ += pitch_ * (text_.exactSpacing ? text_.height : height_);
    }
    hasMixedHeights_ = hasMixedHeights_ || line.hasMixedHeights;
  }

  std::size_t count() const { return count_; }
  double height() const { return height_; }  ///< of the line walked last
  double firstHeight() const { return firstHeight_; }
  double depth() const { return depth_; }  ///< of its baseline below the first one
  bool hasMixedHeights() const { return hasMixedHeights_; }

 private:
  const ParagraphText& text_;
  double pitch_;
  std::size_t count_ = 0;
  double height_ = 0.0;
  double firstHeight_ = 0.0;
  double depth_ = 0.0;
  bool hasMixedHeights_ = false;
};

/// How far the first baseline is above the point of the text.
double firstBaseline(const LineWalk& whole, Rows rows) {
  switch (rows) {
    case Rows::Top:
      break;
    case Rows::Centre:
      return 0.5 * (whole.depth() - whole.firstHeight());
    case Rows::Bottom:
      return whole.depth() + kDescent * whole.height();
  }
  return -whole.firstHeight();
}

std::string contentOf(const ParsedText& parsed, TextSpan span, Columns columns) {
  std::string content = parsed.text.substr(span.begin, span.end - span.begin);
  std::replace(content.begin(), content.end(), kHardBlank, ' ');
  const std::size_t last = content.find_last_not_of(' ');
  content.erase(last == std::string::npos ? 0 : last + 1);
  // Blanks at its start move a line only where it starts at the point.
  if (columns != Columns::Left) content.erase(0, content.find_first_not_of(' '));
  return content;
}

/// What the lines of a text suffer by their codes and their style.
void noteChanges(const ParsedText& parsed, const TextEncoder& encoder, const LineWalk& whole,
                 const TextStyle& style, TextSetter& setter) {
  const auto note = [&setter](bool isChanged, LossRule rule) {
    if (isChanged) setter.change(rule);
  };
  note(parsed.hasLines, LossRule::TextLines);
  note(parsed.hasColumns, LossRule::TextColumns);
  note(parsed.hasWidths, LossRule::TextWidth);
  note(parsed.hasOblique || style.oblique != 0.0, LossRule::TextOblique);
  note(style.isVertical, LossRule::TextVertical);
  note(encoder.hasReplaced(), LossRule::CharacterReplaced);
  note(whole.count() > parsed.lines.size(), LossRule::TextBroken);
  note(whole.hasMixedHeights(), LossRule::TextMixedHeights);
}

}  // namespace

void drawLines(const Item& item, const ParagraphText& text, Lettering lettering, const Affine& map,
               Canvas& canvas, std::span<const LossRule> changes) {
  if (!(text.height > 0.0)) return canvas.lose(item, LossRule::NoSize, map(text.at));
  const TextStyle style = canvas.textStyle(text.style);
  lettering.widthFactor = style.widthFactor;
  TextEncoder encoder(canvas.drawing(), canvas.options().plainLetters);
  const ParsedText parsed = parseMtext(text.content, text.height, encoder);
  if (parsed.isBlank()) return canvas.lose(item, LossRule::EmptyText, map(text.at));
  const WrapSettings settings = wrapSettings(text, parsed, encoder, style.widthFactor, canvas);
  LineWalk whole(text);
  forEachLine(parsed, encoder, settings, canvas,
              [&whole](const WrappedLine& line) { whole.next(line); });
  const Attachment attachment = attachmentOf(text.attachment);
  const double first = firstBaseline(whole, attachment.rows);
  TextSetter setter(item, canvas, map, lettering);
  for (const LossRule rule : changes) setter.change(rule);
  noteChanges(parsed, encoder, whole, style, setter);
  LineWalk walk(text);
  const auto drawLine = [&](const WrappedLine& line) {
    walk.next(line);
    std::string content = contentOf(parsed, line.span, attachment.columns);
    if (content.empty()) return;
    double baseline = first - walk.depth();
    // Each line has its top where its bottom was, the first line lowest.
    if (setter.turnsLinesOver()) {
      baseline = 2.0 * first + whole.firstHeight() - whole.depth() - baseline - walk.height();
    }
    setter.draw({std::move(content), text.at + lettering.up * baseline, walk.height(),
                 attachment.columns, Rows::Bottom});
  };
  forEachLine(parsed, encoder, settings, canvas, std::ref(drawLine));
}

}  // namespace quillon::exact
