#include "app/headless/headless_host.h"

#include "app/console/interrupt.h"

namespace quillon::headless {

using texts::TextId;

void HeadlessHost::setProgress(bool writing, int percent) {
  (writing ? writePercent_ : readPercent_) = percent;
  if (!label_.empty()) console_.showProgress((readPercent_ + writePercent_) / 2, label_);
}

bool HeadlessHost::cancelRequested() { return console::interrupted(); }

bool HeadlessHost::ask(const convert::Message& question) {
  // A conversion asks only one question: whether to replace the script.
  convert::Message refusal = question;
  refusal.kind = convert::MessageKind::Error;
  refusal.detail = texts_(TextId::FileExists, {question.detail});
  messages_.push_back(refusal);
  return false;
}

bool HeadlessHost::goOnPastLimit(const convert::Message& limit) {
  convert::Message refusal = limit;
  refusal.detail += " " + std::string(texts_(TextId::AllowMoreOrKeepPartial));
  tell(refusal);
  return false;
}

}  // namespace quillon::headless
