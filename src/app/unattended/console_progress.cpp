#include "app/unattended/console_progress.h"

#include "app/console/interrupt.h"
#include "base/quotable.h"
#include "convert/messages.h"

namespace quillon::unattended {

void ConsoleProgress::begin(std::string_view file, bool) {
  label_ = base::quotable(file);
  readPercent_ = writePercent_ = 0;
}

void ConsoleProgress::setProgress(bool writing, int percent) {
  (writing ? writePercent_ : readPercent_) = percent;
  console_.showProgress((readPercent_ + writePercent_) / 2, label_);
}

bool ConsoleProgress::cancelRequested() { return console::interrupted(); }

void ConsoleProgress::end() { console_.clearProgress(); }

}  // namespace quillon::unattended
