/// The splash window.
#pragma once

#include <QWidget>
#include <array>

#include "startup/splash.h"

class QLabel;

namespace korvanta {

class frmSplash : public QWidget {
 public:
  /// Takes over the splash's `on_changed`; the splash must outlive the window.
  explicit frmSplash(Splash& splash);
  ~frmSplash() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Refresh();

  QLabel& Image1;
  QLabel& Label1;
  QLabel& Label3;
  QLabel& Label4;
  std::array<QLabel*, 3> Label5;
  Splash& splash_;
};

}  // namespace korvanta
