/// The login dialog's window; its presenter is `LoginDialog`.
#pragma once

#include "startup/login_dialog.h"
#include "ui/windows/side_window.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace korvanta {

class ChoiceBox;

class frmLogin : public SideWindow {
 public:
  /// `dialog` must outlive the window.
  frmLogin(LoginDialog& dialog, QWidget* owner);

  void Refresh();

 private:
  void LayOut();
  void Connect();
  void FocusFirstNeeded();
  void ShowUserNameMenu(const QPoint& at);

  LoginDialog& dialog_;

  QGroupBox* frmValues;
  ChoiceBox* cboServer;
  ChoiceBox* cboUsernames;
  QLineEdit* txtPassword;
  QLabel* lblServer;
  QLabel* lblUsername;
  QLabel* lblPassword;
  QToolButton* imgDispose;
  QPushButton* btnLogin;
  QCheckBox* chkSave;
  QPushButton* btnClear;
  QPushButton* btnCancel;
};

}  // namespace korvanta
