#include "web/facts.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "web/arrays.h"
#include "workbench/loss_rows.h"
#include "workbench/picture_text.h"

namespace quillon::web {
namespace {

using emscripten::val;
using texts::TextId;

// In the order of their enums.
constexpr auto kOffers = std::to_array<std::string_view>(
    {"takeUnit", "drawAsLines", "useExact", "showPlaces", "moveIntoArea", "joinEnds"});
constexpr auto kMessageKinds = std::to_array<std::string_view>({"error", "warning", "question"});

val textValue(std::string_view text) { return val(std::string(text)); }

/// What is to be said instead of a picture, or of one that lacks something.
std::string messageOf(const ReadSoFar& read, const texts::Texts& texts) {
  if (!read.failure.empty() || read.result == nullptr) return read.failure;
  return workbench::pictureNote(*read.result, read.differences, texts);
}

val hintValue(const workbench::Hint& hint) {
  std::vector<double> places;
  for (const geometry::Point place : hint.places) places.insert(places.end(), {place.x, place.y});
  val value = val::object();
  value.set("offer", textValue(kOffers[static_cast<std::size_t>(hint.offer)]));
  value.set("text", hint.text);
  value.set("button", hint.button);
  value.set("places", typedArray(places));
  return value;
}

}  // namespace

workbench::Offer offerNamed(const std::string& word) {
  const auto* const found = std::find(kOffers.begin(), kOffers.end(), word);
  if (found == kOffers.end()) return workbench::Offer::ShowPlaces;
  return static_cast<workbench::Offer>(found - kOffers.begin());
}

val messageList(const std::vector<convert::Message>& messages) {
  return listOf(messages, [](const convert::Message& message) {
    val value = val::object();
    value.set("kind", textValue(kMessageKinds[static_cast<std::size_t>(message.kind)]));
    value.set("title", message.title);
    value.set("text", message.text);
    value.set("detail", message.detail);
    return value;
  });
}

val lossList(const workbench::Reading& reading, const texts::Texts& texts) {
  return listOf(workbench::lossRows(reading, texts), [](const workbench::LossRow& row) {
    val value = val::object();
    value.set("text", row.text);
    value.set("kind", row.kind);
    value.set("layer", row.layer);
    value.set("count", static_cast<double>(row.count));
    value.set("line", static_cast<double>(row.line));
    constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();
    const geometry::Point at = row.at.value_or(geometry::Point{kNowhere, kNowhere});
    value.set("x", at.x);
    value.set("y", at.y);
    value.set("isCleaned", row.isCleaned);
    return value;
  });
}

val factsValue(const ReadSoFar& read, const texts::Texts& texts) {
  const workbench::Reading* const result =
      read.result != nullptr && read.result->isWhole() ? read.result : nullptr;
  const bool hasUnitHint = result != nullptr && workbench::namesAnotherUnit(*result, read.drawing);
  const std::string message = messageOf(read, texts);
  const preview::Scene* const scene = result == nullptr ? nullptr : result->scene.get();
  val facts = val::object();
  facts.set("isWhole", result != nullptr);
  facts.set("message", message);
  facts.set("size", scene == nullptr ? std::string() : workbench::sizeText(scene->bounds()));
  facts.set("unit", result == nullptr || hasUnitHint
                        ? std::string()
                        : workbench::unitText(*result, read.drawing, texts));
  facts.set("hints", result == nullptr
                         ? val::array()
                         : listOf(workbench::hintsOf(*result, read.drawing, texts), hintValue));
  facts.set("losses", result == nullptr ? val::array() : lossList(*result, texts));
  facts.set("lossCount",
            result == nullptr ? 0.0 : static_cast<double>(workbench::lossCount(*result)));
  facts.set("description", result == nullptr ? message : workbench::pictureText(*result, texts));
  facts.set("messages", read.result == nullptr ? val::array() : messageList(read.result->messages));
  return facts;
}

}  // namespace quillon::web
