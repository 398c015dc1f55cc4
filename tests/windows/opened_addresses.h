#pragma once

#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

namespace quillon::windows {

/// Receives what the system would open.
class OpenedAddresses : public QObject {
  Q_OBJECT
 public:
  explicit OpenedAddresses(QList<QString> schemes) : schemes_(std::move(schemes)) {
    for (const QString& scheme : schemes_) QDesktopServices::setUrlHandler(scheme, this, "take");
  }
  ~OpenedAddresses() override {
    for (const QString& scheme : schemes_) QDesktopServices::unsetUrlHandler(scheme);
  }

  QList<QUrl> urls;

 public Q_SLOTS:
  void take(const QUrl& url) { urls.push_back(url); }

 private:
  QList<QString> schemes_;
};

}  // namespace quillon::windows
