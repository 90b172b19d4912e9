#include "ui/windows/frmLogin.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <initializer_list>

#include "ui/kit/choice_box.h"
#include "ui/kit/controls.h"
#include "ui/kit/mnemonics.h"
#include "ui/kit/picture.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// Width of the boxes in characters.
constexpr int kBoxCharacters = 28;

QLabel* MakeLabel(const char* name, const QString& text, QWidget* box) {
  QLabel* label = MakeCaption(text, *box);
  label->setObjectName(QLatin1String(name));
  return label;
}

ChoiceBox* MakeChoiceBox(const char* name) {
  auto* box = new ChoiceBox(name);
  box->setMinimumContentsLength(kBoxCharacters);
  return box;
}

}  // namespace

frmLogin::frmLogin(LoginDialog& dialog, QWidget* owner)
    : SideWindow(dialog.window(), owner),
      dialog_(dialog),
      frmValues(new QGroupBox(QStringLiteral("Connection Values:"))),
      cboServer(MakeChoiceBox("cboServer")),
      cboUsernames(MakeChoiceBox("cboUsernames")),
      txtPassword(MakeTextBox("txtPassword")),
      lblServer(MakeLabel("lblServer", QStringLiteral("&Server:"), cboServer)),
      lblUsername(MakeLabel("lblUsername", QStringLiteral("&Username:"), cboUsernames)),
      lblPassword(MakeLabel("lblPassword", QStringLiteral("&Password:"), txtPassword)),
      imgDispose(new QToolButton),
      btnLogin(MakeButton("btnLogin", QStringLiteral("&Login"))),
      chkSave(new QCheckBox(QStringLiteral("Sa&ve Password"))),
      btnClear(MakeButton("btnClear", QStringLiteral("&Clear"))),
      btnCancel(MakeButton("btnCancel", QStringLiteral("C&ancel"))) {
  setObjectName(QStringLiteral("frmLogin"));
  setWindowTitle(ToQString(LoginDialog::kTitle));
  NameControl(*frmValues, "frmValues", frmValues->title());
  NameControl(*chkSave, "chkSave", chkSave->text());
  cboServer->lineEdit()->setPlaceholderText(QStringLiteral("Any name; there is one server"));
  cboUsernames->setContextMenuPolicy(Qt::CustomContextMenu);
  cboUsernames->lineEdit()->setPlaceholderText(QStringLiteral("A new name makes a new player"));
  txtPassword->setPlaceholderText(QStringLiteral("Four or more letters or digits"));
  txtPassword->setEchoMode(QLineEdit::Password);
  imgDispose->setText(QStringLiteral("&Remove User"));
  NameControl(*imgDispose, "imgDispose", imgDispose->text());
  imgDispose->setIcon(QIcon(PictureFile(QStringLiteral("remove_user"))));
  imgDispose->setToolTip(imgDispose->accessibleName());
  imgDispose->setAutoRaise(true);
  imgDispose->setFocusPolicy(Qt::NoFocus);

  LayOut();
  Connect();
  Refresh();
  FocusFirstNeeded();
}

void frmLogin::LayOut() {
  auto* values = new QGridLayout(frmValues);
  values->setContentsMargins({});
  values->setHorizontalSpacing(theme::kUnit);
  values->setVerticalSpacing(theme::kUnit);
  values->addWidget(lblServer, 0, 0);
  values->addWidget(cboServer, 0, 1, 1, 2);
  values->addWidget(lblUsername, 1, 0);
  values->addWidget(cboUsernames, 1, 1, 1, 2);
  values->addWidget(lblPassword, 2, 0);
  values->addWidget(txtPassword, 2, 1);
  values->addWidget(imgDispose, 2, 2);
  values->addWidget(chkSave, 3, 1, Qt::AlignLeft);
  values->setRowMinimumHeight(4, theme::kUnit);
  values->setColumnStretch(1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(theme::kUnit);
  buttons->addStretch();
  buttons->addWidget(btnLogin);
  buttons->addWidget(btnClear);
  buttons->addWidget(btnCancel);
  values->addLayout(buttons, 5, 0, 1, 3);

  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(2 * theme::kUnit, theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit);
  whole->addWidget(frmValues);
  whole->addStretch();
  btnLogin->setDefault(true);  // after the dialog contains it: only then does Enter reach it

  QWidget* before = cboServer;
  for (QWidget* next : std::initializer_list<QWidget*>{cboUsernames, txtPassword, btnLogin, chkSave,
                                                       btnClear, btnCancel}) {
    setTabOrder(before, next);
    before = next;
  }
}

void frmLogin::Connect() {
  OnTyped(*cboServer->lineEdit(), [this](const std::string& text) { dialog_.ServerTyped(text); });
  OnTyped(*cboUsernames->lineEdit(),
          [this](const std::string& text) { dialog_.UserNameTyped(text); });
  OnTyped(*txtPassword, [this](const std::string& text) { dialog_.PasswordTyped(text); });
  connect(cboUsernames, &QComboBox::activated, this,
          [this](int index) { dialog_.UserNameChosen(static_cast<std::size_t>(index)); });
  connect(cboUsernames, &QWidget::customContextMenuRequested, this, &frmLogin::ShowUserNameMenu);
  // Assistive programs toggle the box without a click.
  connect(chkSave, &QCheckBox::toggled, this,
          [this](bool checked) { dialog_.SaveClicked(checked); });
  connect(imgDispose, &QToolButton::clicked, this, [this] { dialog_.RemoveUserClicked(); });
  connect(btnLogin, &QPushButton::clicked, this, [this] { dialog_.LoginClicked(); });
  connect(btnClear, &QPushButton::clicked, this, [this] { dialog_.ClearClicked(); });
  connect(btnCancel, &QPushButton::clicked, this, [this] { dialog_.CancelClicked(); });
}

void frmLogin::FocusFirstNeeded() {
  if (cboUsernames->currentText().isEmpty()) {
    cboUsernames->setFocus();
  } else if (txtPassword->text().isEmpty()) {
    txtPassword->setFocus();
  } else {
    btnLogin->setFocus();
  }
}

/// The box's standard menu, and "Remove User", which the keyboard does not reach otherwise.
void frmLogin::ShowUserNameMenu(const QPoint& at) {
  QMenu* menu = cboUsernames->lineEdit()->createStandardContextMenu();
  menu->setAccessibleName(cboUsernames->accessibleName());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addSeparator();
  QAction* remove = menu->addAction(imgDispose->icon(), imgDispose->accessibleName());
  remove->setShortcut(imgDispose->shortcut());
  connect(remove, &QAction::triggered, this, [this] { dialog_.RemoveUserClicked(); });
  AddMnemonics(*menu);
  menu->popup(cboUsernames->mapToGlobal(at));
}

void frmLogin::Refresh() {
  const LoginForm& form = dialog_.form();
  ShowText(*cboServer->lineEdit(), form.cboServer);
  cboUsernames->ShowChoices(form.cboUsernames_list);
  ShowText(*cboUsernames->lineEdit(), form.cboUsernames);
  ShowText(*txtPassword, form.txtPassword);
  chkSave->setChecked(form.chkSave);
}

}  // namespace korvanta
