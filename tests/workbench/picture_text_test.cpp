#include "workbench/picture_text.h"

#include "preview/scene_parts.h"
#include "workbench/bench_drawing.h"

namespace quillon::workbench {
namespace {

TEST(PictureTextTest, SizesAreInBothUnits) {
  EXPECT_EQ(sizeText({{0.0, 0.0}, {100.0, 80.0}}), "100.0 x 80.0 mm (3.937 x 3.150 in)");
  EXPECT_EQ(sizeText({{-1.0, 2.0}, {0.27, 2.5}}), "1.27 x 0.5 mm (0.050 x 0.020 in)");
  EXPECT_EQ(sizeText({}), "");
}

TEST(PictureTextTest, PlacesAreInBothUnits) {
  EXPECT_EQ(placeText({12.7, -0.00001}), "12.7 / 0.0 mm (500 / 0 mil)");
  EXPECT_EQ(placeText({1e12, 0.0}), "1000000000000.0 / 0.0 mm (39370078740157.5 / 0 mil)");
}

TEST(PictureTextTest, DistancesHaveTheirParts) {
  EXPECT_EQ(distanceText({0.0, 0.0}, {3.0, -4.0}, texts::Texts(texts::kEnglish)),
            "Distance: 5.0 mm (196.9 mil), across 3.0 mm, up 4.0 mm");
  EXPECT_EQ(distanceText({0.0, 0.0}, {3.0, -4.0}, texts::Texts(texts::kGerman)),
            "Abstand: 5.0 mm (196.9 mil), waagrecht 3.0 mm, senkrecht 4.0 mm");
}

using PictureTest = BenchTest;

TEST_F(PictureTest, IsToldInWords) {
  addLine("0", "0", "10", "20");
  readBoth();
  EXPECT_EQ(pictureText(result, texts),
            "Size: 10.0 x 20.0 mm (0.394 x 0.787 in)\n"
            "Layer 20 Dimension (B), objects: 1\n"
            "Everything is shown as it is drawn.");
  addPlate();
  readBoth();
  EXPECT_EQ(pictureText(result, texts),
            "Size: 100.0 x 80.0 mm (3.937 x 3.150 in)\n"
            "Layer 20 Dimension (B), objects: 2\n"
            "Objects that are missing or look different from the drawing: 2");
  EXPECT_EQ(pictureText({}, texts),
            "Nothing would be drawn. Please check the drawing and the assignment of its layers.");
}

/// A result that shows what is recorded.
struct PictureNoteTest : preview::SceneTest {
  std::string note(const preview::Differences* differences = nullptr,
                   std::size_t most = preview::kMostPlacedObjects) const {
    Reading shown;
    shown.result.outcome = convert::Outcome::Converted;
    shown.scene = preview::makeScene(recorder.recording(), {}, most);
    return pictureNote(shown, differences, texts::Texts(texts::kEnglish));
  }
};

TEST_F(PictureNoteTest, SaysNothingOfAWholePicture) {
  line({0.0, 0.0}, {1.0, 0.0});
  EXPECT_EQ(note(), "");
}

TEST_F(PictureNoteTest, SaysHowManyPartsAreLeftOut) {
  recorder.edit("plate", ".brd");
  recorder.edit("P", ".pac");
  recorder.layer(21);
  for (int i = 0; i < 10; ++i) line({0.0, 0.0}, {1.0, 1.0 * i});
  recorder.edit("plate", ".brd");
  recorder.layer(20);
  line({0.0, 0.0}, {1.0, 0.0});
  for (int i = 0; i < 3; ++i) part("P", {5.0 * i, 0.0});
  EXPECT_EQ(note(nullptr, 25),
            "Parts that only the script has, because the picture would be too large: 1");
}

TEST_F(PictureNoteTest, SaysThatThereAreMoreDifferences) {
  line({0.0, 0.0}, {1.0, 0.0});
  preview::Differences differences;
  EXPECT_EQ(note(&differences), "");
  differences.isCut = true;
  EXPECT_EQ(note(&differences), "Too many differences: only the first ones are shown.");
}

TEST_F(PictureNoteTest, SaysWhatEndedTheConversion) {
  Reading ended;
  const texts::Texts texts(texts::kEnglish);
  EXPECT_EQ(pictureNote(ended, nullptr, texts), "");
  ended.messages.push_back({convert::MessageKind::Error, "title", "text", ""});
  EXPECT_EQ(pictureNote(ended, nullptr, texts), "text");
  ended.messages.push_back({convert::MessageKind::Error, "title", "text", "detail"});
  EXPECT_EQ(pictureNote(ended, nullptr, texts), "detail");
}

}  // namespace
}  // namespace quillon::workbench
