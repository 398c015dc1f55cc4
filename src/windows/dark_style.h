#pragma once

#include <QObject>
#include <QString>

namespace quillon::windows {

/// While the application's colours are dark, gives it the style Fusion, and its own style when they
/// are light again: a system's own style may have light colours only. Colours that can hardly be
/// told from a dark background are changed too. Needs an application, and ends before it.
class DarkStyle : public QObject {
 public:
  DarkStyle();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void follow();

  QString light_;  // the name of the application's own style
  bool wasDark_ = false;
  bool following_ = false;
};

}  // namespace quillon::windows
