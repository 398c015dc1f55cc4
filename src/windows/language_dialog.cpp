#include "windows/language_dialog.h"

#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>

#include "settings/settings.h"
#include "windows/save_failure.h"
#include "windows/trap.h"

namespace quillon::windows {
namespace {

using texts::TextId;

constexpr int kGermanIndex = 1;

}  // namespace

LanguageDialog::LanguageDialog(AppContext& context, std::function<void()> apply, QWidget* parent)
    : QDialog(parent),
      context_(context),
      apply_(std::move(apply)),
      language_(new QComboBox(this)),
      ok_(new QPushButton(this)),
      cancel_(new QPushButton(this)) {
  setObjectName("frmConfig");
  language_->setObjectName("cboLanguage");
  ok_->setObjectName("OKButton");
  cancel_->setObjectName("CancelButton");
  language_->addItems({"english", "deutsch"});
  language_->setCurrentIndex(context_.LanguageOffset == texts::kGerman ? kGermanIndex : 0);
  ok_->setDefault(true);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(language_);
  layout->addStretch();
  layout->addLayout(buttons);
  connect(language_, &QComboBox::activated, this,
          trapped(context_, kModule, "cboLanguage_Click", [this] { showLanguage(); }));
  connect(ok_, &QPushButton::clicked, this,
          trapped(context_, kModule, "OKButton_Click", [this] { confirm(); }));
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  loadResources();
}

void LanguageDialog::loadResources() {
  setWindowTitle(context_.text(TextId::CaptionLanguage).remove('&'));
  ok_->setText(context_.text(TextId::EditorOk));
  cancel_->setText(context_.text(TextId::EditorCancel));
}

int LanguageDialog::chosen() const {
  return language_->currentIndex() == kGermanIndex ? texts::kGerman : texts::kEnglish;
}

void LanguageDialog::showLanguage() {
  context_.LanguageOffset = chosen();
  loadResources();
}

void LanguageDialog::confirm() {
  const int offset = chosen();
  context_.LanguageOffset = offset;
  if (!settings::saveLanguage(context_.store, offset)) showSaveFailure(context_, this);
  apply_();
  accept();
}

}  // namespace quillon::windows
