#include "exact/texts.h"
#include "text_losses.h"

namespace quillon::testing {
namespace {

/// What drawParagraph draws for an item of some other kind on layer 20.
struct ParagraphShapes {
  ParagraphShapes(const exact::ParagraphText& text, const geometry::Affine& map,
                  const exact::Options& options = {}) {
    TestMonitor monitor;
    rules::CancelPoll poll(monitor);
    const dxf::Drawing drawing;
    exact::Canvas canvas(options, drawing, log, losses, poll);
    const exact::Entity entity;
    const exact::Pen pen;
    const exact::Item item{entity, {}, {20, "LEADER", "NOTES", 5}, pen};
    exact::drawParagraph(item, text, map, canvas);
  }

  ShapeLog log;
  exact::LossList losses;
};

exact::ParagraphText paragraph(std::string content) {
  exact::ParagraphText text;
  text.content = std::move(content);
  text.at = {1.0, 2.0};
  text.height = 3.0;
  return text;
}

TEST(ExactParagraphs, OtherKindsDrawTheirTextsLikeMtext) {
  exact::ParagraphText text = paragraph("a\\P%%c5");
  text.angle = 90.0;
  text.attachment = 5;
  const ParagraphShapes shapes(text, geometry::Affine::scaling(2.0, 2.0));
  // 8 from the top to the lower baseline, all twice as large.
  EXPECT_EQ(shapes.log.text(),
            "20 text 'a' 6 R90 bottom centre (0 4)\n"
            "20 text '\xD8"
            "5' 6 R90 bottom centre (10 4)\n");
  EXPECT_EQ(shapes.losses.countOf(exact::LossRule::TextShapes), 1U);
}

TEST(ExactParagraphs, TheirLinesBreakAndTheirSpacingCounts) {
  exact::ParagraphText text = paragraph("ab cd");
  text.width = 6.0;
  text.lineSpacing = 2.0;
  const ParagraphShapes shapes(text, {});
  EXPECT_EQ(shapes.log.text(),
            "20 text 'ab' 3 R0 bottom left (1 -1)\n"
            "20 text 'cd' 3 R0 bottom left (1 -11)\n");
  EXPECT_EQ(shapes.losses.countOf(exact::LossRule::TextBroken), 1U);
}

TEST(ExactParagraphs, WithoutLettersOrHeightThereIsNothing) {
  EXPECT_EQ(ParagraphShapes(paragraph(" \\P "), {}).losses.countOf(exact::LossRule::EmptyText), 1U);
  exact::ParagraphText flat = paragraph("a");
  flat.height = 0.0;
  EXPECT_EQ(ParagraphShapes(flat, {}).losses.countOf(exact::LossRule::NoSize), 1U);
  EXPECT_EQ(ParagraphShapes(flat, {}).log.text(), "");
}

}  // namespace
}  // namespace quillon::testing
