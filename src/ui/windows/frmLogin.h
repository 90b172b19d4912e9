/// The login dialog's window; `LoginDialog` holds its state and decides everything.
#pragma once

#include <QDialog>

#include "startup/login_dialog.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace korvanta {

/// Made when the dialog is shown, destroyed after it was unloaded. Closing it by its frame or by
/// Esc unloads the dialog.
class frmLogin : public QDialog {
 public:
  /// `dialog` outlives the window and tells it of changes until it is destroyed.
  frmLogin(LoginDialog& dialog, QWidget* owner);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Build();
  void Connect();
  void FocusFirstNeeded();
  void ShowUserNameMenu(const QPoint& at);
  void Refresh();
  void RefreshUserNames(const LoginForm& form);

  LoginDialog& dialog_;

  QGroupBox* frmValues;
  QLabel* lblServer;
  QLabel* lblUsername;
  QLabel* lblPassword;
  QComboBox* cboServer;
  QComboBox* cboUsernames;
  QLineEdit* txtPassword;
  QToolButton* imgDispose;
  QPushButton* btnLogin;
  QCheckBox* chkSave;
  QPushButton* btnClear;
  QPushButton* btnCancel;
};

}  // namespace korvanta
