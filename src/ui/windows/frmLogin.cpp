#include "ui/windows/frmLogin.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <initializer_list>
#include <limits>

#include "ui/kit/choice_box.h"
#include "ui/kit/mnemonics.h"
#include "ui/kit/plain_list.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// Characters that the boxes are wide enough for.
constexpr int kBoxCharacters = 28;

/// "Save Password" from "Sa&ve Password".
QString Caption(QString text) { return text.remove(QLatin1Char('&')); }

template <typename Control>
Control* Name(Control* control, const char* name, const QString& text) {
  control->setObjectName(QLatin1String(name));
  control->setAccessibleName(Caption(text));
  return control;
}

template <typename Button>
Button* MakeButton(const char* name, const QString& text) {
  auto* button = new Button;
  button->setText(text);
  return Name(button, name, text);
}

QLabel* MakeLabel(const char* name, const QString& text, QWidget* box) {
  auto* label = Name(new QLabel(text), name, text);
  label->setBuddy(box);
  box->setAccessibleName(Caption(text));
  if (auto* choice = qobject_cast<QComboBox*>(box)) {
    choice->lineEdit()->setAccessibleName(Caption(text));
    choice->view()->setAccessibleName(Caption(text));
  }
  return label;
}

QComboBox* MakeComboBox(const char* name) {
  auto* box = new ChoiceBox;
  box->setObjectName(QLatin1String(name));
  box->setMinimumContentsLength(kBoxCharacters);
  box->setItemDelegate(new OneLineDelegate(box));  // of a kind that heeds the theme's item spacing
  box->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  return box;
}

/// Replaces a box's text when it stands for other bytes. The caret goes to the end, or stays when
/// only the letter case changed.
void SetText(QLineEdit& box, const std::string& bytes) {
  if (ToBytes(box.text()) == bytes) {
    return;
  }
  const QString text = ToQString(bytes);
  const bool same_letters = text.compare(box.text(), Qt::CaseInsensitive) == 0;
  const int caret = same_letters ? box.cursorPosition() : static_cast<int>(text.size());
  box.setText(text);
  box.setCursorPosition(caret);
}

}  // namespace

frmLogin::frmLogin(LoginDialog& dialog, QWidget* owner) : QDialog(owner), dialog_(dialog) {
  Build();
  Connect();
  Refresh();
  FocusFirstNeeded();
  dialog_.on_changed = [self = QPointer(this)] {
    if (self) {
      self->Refresh();
    }
  };
}

void frmLogin::Build() {
  setObjectName(QStringLiteral("frmLogin"));
  setWindowTitle(ToQString(LoginDialog::kTitle));

  cboServer = MakeComboBox("cboServer");
  cboUsernames = MakeComboBox("cboUsernames");
  cboUsernames->setContextMenuPolicy(Qt::CustomContextMenu);
  txtPassword = new QLineEdit;
  txtPassword->setObjectName(QStringLiteral("txtPassword"));
  txtPassword->setEchoMode(QLineEdit::Password);
  txtPassword->setMaxLength(std::numeric_limits<int>::max());
  lblServer = MakeLabel("lblServer", QStringLiteral("&Server:"), cboServer);
  lblUsername = MakeLabel("lblUsername", QStringLiteral("&Username:"), cboUsernames);
  lblPassword = MakeLabel("lblPassword", QStringLiteral("&Password:"), txtPassword);

  imgDispose = MakeButton<QToolButton>("imgDispose", QStringLiteral("&Remove User"));
  imgDispose->setIcon(QIcon(QStringLiteral(":/pictures/remove_user.svg")));
  imgDispose->setToolTip(imgDispose->accessibleName());
  imgDispose->setAutoRaise(true);
  imgDispose->setFocusPolicy(Qt::NoFocus);

  btnLogin = MakeButton<QPushButton>("btnLogin", QStringLiteral("&Login"));
  chkSave = MakeButton<QCheckBox>("chkSave", QStringLiteral("Sa&ve Password"));
  btnClear = MakeButton<QPushButton>("btnClear", QStringLiteral("&Clear"));
  btnCancel = MakeButton<QPushButton>("btnCancel", QStringLiteral("C&ancel"));

  const QString title = QStringLiteral("Connection Values:");
  frmValues = Name(new QGroupBox(title), "frmValues", title);
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
  btnLogin->setDefault(true);  // the dialog hears of it only from a button that it has

  QWidget* before = cboServer;
  for (QWidget* next : std::initializer_list<QWidget*>{cboUsernames, txtPassword, btnLogin, chkSave,
                                                       btnClear, btnCancel}) {
    setTabOrder(before, next);
    before = next;
  }
}

void frmLogin::Connect() {
  connect(cboServer->lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { dialog_.ServerTyped(ToBytes(text)); });
  connect(cboUsernames->lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { dialog_.UserNameTyped(ToBytes(text)); });
  connect(cboUsernames, &QComboBox::activated, this,
          [this](int index) { dialog_.UserNameChosen(static_cast<std::size_t>(index)); });
  connect(cboUsernames, &QWidget::customContextMenuRequested, this, &frmLogin::ShowUserNameMenu);
  connect(txtPassword, &QLineEdit::textEdited, this,
          [this](const QString& text) { dialog_.PasswordTyped(ToBytes(text)); });
  connect(chkSave, &QCheckBox::clicked, this,
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

/// The box's own menu, and the one thing that the mouse could do and the keyboard could not.
void frmLogin::ShowUserNameMenu(const QPoint& at) {
  QMenu* menu = cboUsernames->lineEdit()->createStandardContextMenu();
  menu->setAccessibleName(cboUsernames->accessibleName());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addSeparator();
  QAction* remove = menu->addAction(imgDispose->icon(), imgDispose->accessibleName());
  remove->setShortcut(imgDispose->shortcut());
  connect(remove, &QAction::triggered, this, [this] { dialog_.RemoveUserClicked(); });
  GiveAccessKeys(*menu);
  menu->popup(cboUsernames->mapToGlobal(at));
}

void frmLogin::Refresh() {
  const LoginForm& form = dialog_.form();
  SetText(*cboServer->lineEdit(), form.cboServer);
  RefreshUserNames(form);
  SetText(*txtPassword, form.txtPassword);
  chkSave->setChecked(form.chkSave);
}

void frmLogin::RefreshUserNames(const LoginForm& form) {
  QStringList names;
  for (const std::string& name : form.cboUsernames_list) {
    names += ToQString(name);
  }
  QStringList shown;
  for (int i = 0; i < cboUsernames->count(); ++i) {
    shown += cboUsernames->itemText(i);
  }
  if (names != shown) {
    cboUsernames->clear();
    cboUsernames->addItems(names);
  }
  SetText(*cboUsernames->lineEdit(), form.cboUsernames);
  // The toolkit takes a text that equals another entry than the current one for a choice as soon as
  // the box is left; keeping the two in step leaves choosing to the user.
  const QString text = cboUsernames->currentText();
  if (cboUsernames->itemText(cboUsernames->currentIndex()) != text) {
    const int index = cboUsernames->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0 || text.isEmpty()) {
      cboUsernames->setCurrentIndex(index);
    }
  }
}

void frmLogin::reject() { dialog_.CancelClicked(); }

void frmLogin::closeEvent(QCloseEvent* event) {
  dialog_.CancelClicked();
  event->accept();
}

}  // namespace korvanta
