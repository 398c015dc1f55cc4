#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <functional>
#include <vector>

#include "settings/settings.h"
#include "windows/app_context.h"

class QGridLayout;

namespace quillon::windows {

/// The rules by which a drawing is converted, and what the exact ones are told, which is folded in
/// for those who do not need it.
class RulesGroup : public QGroupBox {
 public:
  RulesGroup(AppContext& context, QWidget* parent);

  void loadResources();
  void showSettings(const settings::Settings& settings);
  /// Sets what the controls show; a text that is none of what its field takes leaves the setting.
  void read(settings::Settings& settings) const;

  bool isUnfolded() const;
  void setUnfolded(bool unfolded);
  /// In the order in which Tab goes through them.
  std::vector<QWidget*> controls() const;

  std::function<void()> onChanged;  ///< when the user has chosen other rules

 private:
  struct Choice;
  struct Switch;
  struct Length;

  void addChoices(QGridLayout& layout);
  void addTexts(QGridLayout& layout);
  void addSwitches(QGridLayout& layout);
  void refill(QComboBox& list, const std::vector<QString>& entries);
  QString pointsWord() const;
  void showPoints(const QString& word);
  void enableOptions();
  bool isExact() const { return cboRules_->currentIndex() == 1; }

  AppContext& context_;
  QLabel* labRules_;
  QComboBox* cboRules_;
  QToolButton* unfold_;
  QWidget* options_;
  std::vector<Choice> choices_;
  std::vector<Length> lengths_;
  std::vector<Switch> switches_;
  QLabel* labPoints_;
  QComboBox* points_;
  QLabel* labHoles_;
  QLineEdit* holes_;
  QLabel* labHoleDiameters_;
  QLineEdit* holeDiameters_;
  std::string rules_;  ///< as set: "" stays until the user chooses
};

}  // namespace quillon::windows
