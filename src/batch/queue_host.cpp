#include "batch/queue_host.h"

namespace quillon::batch {

using texts::TextId;

void QueueHost::setProgress(bool writing, int percent) {
  (writing ? writePercent_ : readPercent_) = percent;
  if (watch_.progress) watch_.progress((readPercent_ + writePercent_) / 2);
}

bool QueueHost::cancelRequested() {
  cancelled_ = cancelled_ || (watch_.cancelled && watch_.cancelled());
  return cancelled_;
}

bool QueueHost::ask(const convert::Message& question) {
  // A conversion asks only one question: whether to replace the script.
  foundScript_ = true;
  convert::Message refusal = question;
  refusal.detail = texts_(TextId::QueueScriptExists, {question.detail});
  tell(refusal);
  return false;
}

void QueueHost::tell(const convert::Message& message) {
  if (!text_.empty()) text_ += '\n';
  text_ += message.detail;
}

bool QueueHost::goOnPastLimit(const convert::Message& limit) {
  convert::Message refusal = limit;
  refusal.detail += " " + std::string(texts_(TextId::ConvertInWindow));
  tell(refusal);
  return false;
}

}  // namespace quillon::batch
