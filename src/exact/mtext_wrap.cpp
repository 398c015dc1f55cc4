#include "exact/mtext_wrap.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace quillon::exact {
namespace {

// How far letters are from each other in the fonts of CAD programs, in hundredths of their height.
constexpr int kUsualWidth = 90;
constexpr int kLeastWidth = 60;
constexpr int kMostWidth = 130;

constexpr double kHundredth = 0.01;
/// Lines may be longer than they should by this part, so that rounding breaks none.
constexpr double kSlack = 1e-9;

/// Tells the height of letters for ascending bytes of a text.
class HeightWalk {
 public:
  explicit HeightWalk(const ParsedText& text) : heights_(text.heights) {}

  double at(std::size_t byte) {
    while (next_ < heights_.size() && heights_[next_].begin <= byte) ++next_;
    return heights_[next_ - 1].height;
  }

 private:
  const std::vector<ParsedText::HeightFrom>& heights_;
  std::size_t next_ = 1;
};

/// Breaks lines and hands their spans on.
template <typename Take>
class Wrapper {
 public:
  Wrapper(const ParsedText& text, const TextEncoder& encoder, const WrapSettings& settings,
          Take take)
      : text_(text), encoder_(encoder), settings_(settings), heights_(text), take_(take) {
    settings_.width *= 1.0 + kSlack;
  }

  void add(TextSpan line) {
    line_ = line;
    width_ = 0.0;
    hasWord_ = hasBreak_ = false;
    if (settings_.width > 0.0 && mayBeTooLong(line)) {
      for (std::size_t at = line.begin; at < line.end;) at = step(at);
    }
    take_(line_);
  }

 private:
  /// False for most lines, in which no character has to be looked at.
  bool mayBeTooLong(TextSpan line) const {
    constexpr double kMore = 1.0 + 1e-6;
    if (text_.heights.size() > 1) return true;
    const double most = static_cast<double>(line.end - line.begin) * settings_.letterWidth *
                        text_.heights.front().height;
    return !(most * kMore < settings_.width);
  }

  /// Takes the character at this byte; returns where the next one is.
  std::size_t step(std::size_t at) {
    const std::string_view rest = std::string_view(text_.text).substr(at, line_.end - at);
    const std::size_t next = at + encoder_.firstLength(rest);
    width_ += settings_.letterWidth * heights_.at(at);
    if (rest.front() == ' ') {
      if (hasWord_ && !inBlanks_) wordEnd_ = at;
      hasBreak_ = hasWord_;
      nextWord_ = next;
      widthBefore_ = width_;
      inBlanks_ = true;
      return next;
    }
    inBlanks_ = false;
    hasWord_ = true;
    if (hasBreak_ && width_ > settings_.width) {
      take_(TextSpan{line_.begin, wordEnd_});
      line_.begin = nextWord_;
      width_ -= widthBefore_;
      hasBreak_ = false;
    }
    return next;
  }

  const ParsedText& text_;
  const TextEncoder& encoder_;
  WrapSettings settings_;
  HeightWalk heights_;
  Take take_;
  TextSpan line_;         ///< what has not been handed on
  double width_ = 0.0;    ///< of that, as far as it has been walked
  bool hasWord_ = false;  ///< in the line
  bool inBlanks_ = false;
  bool hasBreak_ = false;     ///< there is a blank to break at:
  std::size_t wordEnd_ = 0;   ///< before it
  std::size_t nextWord_ = 0;  ///< and after it
  double widthBefore_ = 0.0;  ///< the next word
};

/// Without the blanks at its end.
TextSpan trimmedSpan(const ParsedText& text, TextSpan span) {
  while (span.end > span.begin && text.text[span.end - 1] == ' ') --span.end;
  return span;
}

WrappedLine measured(const ParsedText& text, TextSpan span, HeightWalk& heights) {
  WrappedLine line{trimmedSpan(text, span), 0.0, false};
  const bool areAlike = text.heights.size() == 1;
  for (std::size_t at = line.span.begin; at < line.span.end; ++at) {
    if (text.text[at] == ' ' || text.text[at] == kHardBlank) continue;
    const double height = heights.at(at);
    if (line.height != 0.0 && height != line.height) line.hasMixedHeights = true;
    line.height = std::max(line.height, height);
    if (areAlike) break;
  }
  return line;
}

double lineCount(const ParsedText& text, const TextEncoder& encoder, const WrapSettings& settings,
                 Canvas& canvas) {
  double count = 0.0;
  Wrapper wrapper(text, encoder, settings, [&count](TextSpan) { count += 1.0; });
  for (const TextSpan line : text.lines) {
    if (canvas.step()) break;
    wrapper.add(line);
  }
  return count;
}

}  // namespace

void forEachLine(const ParsedText& text, const TextEncoder& encoder, const WrapSettings& settings,
                 Canvas& canvas, const std::function<void(const WrappedLine&)>& take) {
  HeightWalk heights(text);
  bool isOver = false;
  Wrapper wrapper(text, encoder, settings, [&](TextSpan span) {
    isOver = isOver || canvas.step();
    if (!isOver) take(measured(text, span, heights));
  });
  for (const TextSpan line : text.lines) {
    if (isOver) return;
    wrapper.add(line);
  }
}

double usualLetterWidth(double widthFactor) { return kUsualWidth * kHundredth * widthFactor; }

double letterWidthFor(const ParsedText& text, const TextEncoder& encoder, double width,
                      double widthFactor, double lines, Canvas& canvas) {
  const auto countAt = [&](int hundredths) {
    return lineCount(text, encoder, {width, hundredths * kHundredth * widthFactor}, canvas);
  };
  const double usual = usualLetterWidth(widthFactor);
  const double usualCount = countAt(kUsualWidth);
  if (usualCount == lines) return usual;
  // Wider letters never make fewer lines: between the usual width, at which there are too few or
  // too many, and the end of the range, the first width with enough is looked for.
  const bool needsMore = usualCount < lines;
  const auto isEnough = [needsMore, lines](double count) {
    return needsMore ? count >= lines : count <= lines;
  };
  int tooNear = kUsualWidth;
  int enough = needsMore ? kMostWidth : kLeastWidth;
  if (!isEnough(countAt(enough))) return usual;
  while (std::abs(enough - tooNear) > 1) {
    const int middle = (tooNear + enough) / 2;
    (isEnough(countAt(middle)) ? enough : tooNear) = middle;
  }
  return countAt(enough) == lines ? enough * kHundredth * widthFactor : usual;
}

}  // namespace quillon::exact
