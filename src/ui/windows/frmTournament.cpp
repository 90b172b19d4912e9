#include "ui/windows/frmTournament.h"

#include <QAbstractItemView>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <limits>

#include "ui/kit/choice_box.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// While a tool window has the keyboard its owner's access keys hold too; none stands in both.
constexpr Qt::WindowFlags kToolWindow = Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                        Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

constexpr int kPageWidth = 320;

QString WithoutAccessKey(QString caption) { return caption.remove(QLatin1Char('&')); }

QGroupBox* MakePage(const char16_t* name, const char16_t* caption) {
  const QString title = QString::fromUtf16(caption);
  auto* page = new QGroupBox(title);
  NameControl(*page, QString::fromUtf16(name), title);
  return page;
}

/// The label of a control, which takes its accessible name from it.
QLabel* MakeLabel(const char16_t* caption, QWidget* control) {
  const QString text = QString::fromUtf16(caption);
  auto* label = new QLabel(text);
  label->setBuddy(control);
  control->setAccessibleName(WithoutAccessKey(text));
  return label;
}

void AddRow(QGridLayout& grid, const char16_t* caption, QLineEdit* box) {
  const int row = grid.rowCount();
  grid.addWidget(MakeLabel(caption, box), row, 0);
  grid.addWidget(box, row, 1);
}

void AddBelow(QGridLayout& grid, QWidget* control) {
  grid.addWidget(control, grid.rowCount(), 0, 1, 2);
}

QGridLayout* MakeGrid(QWidget* page) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins({});
  grid->setHorizontalSpacing(2 * theme::kUnit);
  grid->setVerticalSpacing(theme::kUnit);
  grid->setColumnStretch(1, 1);
  return grid;
}

}  // namespace

TabStrip::TabStrip() {
  setDrawBase(false);
  setExpanding(false);
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    if (on_chosen) {
      on_chosen(index);
    }
  });
}

void TabStrip::ShowChosen(int index) {
  const QSignalBlocker quiet(this);
  setCurrentIndex(index);
}

void TabStrip::mousePressEvent(QMouseEvent* event) {
  const int chosen = currentIndex();
  const int clicked = tabAt(event->position().toPoint());
  const bool again = event->button() == Qt::LeftButton && clicked >= 0 && clicked == chosen;
  QTabBar::mousePressEvent(event);
  if (again && on_chosen) {
    on_chosen(chosen);
  }
}

void TabStrip::wheelEvent(QWheelEvent* event) { event->ignore(); }

frmTournament::frmTournament(Tournament& tournament, QWidget* owner)
    : SideWindow(tournament.window(), owner, kToolWindow),
      tournament_(tournament),
      TStrip(new TabStrip),
      pages_(new QStackedWidget),
      fInfo(MakePage(u"fInfo", u"Information")),
      iEntryFee(MakeBox(u"iEntryFee", &TournamentTexts::iEntryFee)),
      txtPurse(MakeBox(u"txtPurse", &TournamentTexts::txtPurse)),
      iMaxTeams(MakeBox(u"iMaxTeams", &TournamentTexts::iMaxTeams)),
      iMaxPlayers(MakeBox(u"iMaxPlayers", &TournamentTexts::iMaxPlayers)),
      cmbTeam(new ChoiceBox),
      txtPassword(MakeBox(u"txtPassword", &TournamentTexts::txtPassword)),
      Command4(MakeButton(u"Command4", u"C&reate/Join", &Tournament::CreateJoinClicked)),
      fTeams(MakePage(u"fTeams", u"Teams")),
      lstTeams(new PlainListView(QStringLiteral("Team Information"))),
      KickPlayer(MakeButton(u"KickPlayer", u"&Kick Player", &Tournament::KickPlayerClicked)),
      btnDisband(MakeButton(u"btnDisband", u"&Disband Team", &Tournament::DisbandTeamClicked)),
      fAdmin(MakePage(u"fAdmin", u"Admin")),
      EntryFee(MakeBox(u"EntryFee", &TournamentTexts::EntryFee)),
      MaxTeams(MakeBox(u"MaxTeams", &TournamentTexts::MaxTeams)),
      MaxPlayers(MakeBox(u"MaxPlayers", &TournamentTexts::MaxPlayers)),
      Command1(MakeButton(u"Command1", u"&Start Tournament", &Tournament::StartTournamentClicked)),
      Command2(
          MakeButton(u"Command2", u"Set To&urnament Game", &Tournament::SetTournamentGameClicked)),
      Command3(MakeButton(u"Command3", u"E&nd Tournament", &Tournament::EndTournamentClicked)) {
  setObjectName(QStringLiteral("frmTournament"));
  setWindowTitle(QStringLiteral("Tournament Window"));
  NameControl(*TStrip, QStringLiteral("TStrip"), windowTitle());

  FillInfoPage();
  FillTeamsPage();
  FillAdminPage();
  TStrip->addTab(QStringLiteral("&Info"));
  TStrip->addTab(QStringLiteral("&Teams"));
  pages_->addWidget(fInfo);
  pages_->addWidget(fTeams);
  pages_->addWidget(fAdmin);
  pages_->setFixedWidth(kPageWidth);
  if (tournament_.state().has_admin_tab) {
    TStrip->addTab(QStringLiteral("&Admin"));
  }

  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(2 * theme::kUnit, theme::kUnit, 2 * theme::kUnit, 2 * theme::kUnit);
  all->setSpacing(theme::kUnit);
  all->addWidget(TStrip);
  all->addWidget(pages_);
  all->setSizeConstraint(QLayout::SetFixedSize);
  Command4->setDefault(true);  // the dialog hears of it only from a button that it has

  TStrip->on_chosen = [this](int index) {
    tournament_.TabChosen(static_cast<TournamentTab>(index));
  };
  tournament_.on_changed = [self = QPointer(this)] {
    if (self) {
      self->Refresh();
    }
  };
  Refresh();
  cmbTeam->setFocus();
  if (owner != nullptr) {
    CentreOver(*owner);
  }
}

QLineEdit* frmTournament::MakeBox(const char16_t* name, std::string TournamentTexts::*text) {
  auto* box = new QLineEdit;
  box->setObjectName(QString::fromUtf16(name));
  box->setMaxLength(std::numeric_limits<int>::max());
  connect(box, &QLineEdit::textEdited, this,
          [this, text](const QString& typed) { tournament_.Typed(text, ToBytes(typed)); });
  boxes_.push_back({box, text});
  return box;
}

QPushButton* frmTournament::MakeButton(const char16_t* name, const char16_t* caption,
                                       void (Tournament::*clicked)()) {
  const QString text = QString::fromUtf16(caption);
  auto* button = new QPushButton(text);
  NameControl(*button, QString::fromUtf16(name), WithoutAccessKey(text));
  connect(button, &QPushButton::clicked, this,
          [&tournament = tournament_, clicked] { (tournament.*clicked)(); });
  return button;
}

void frmTournament::FillInfoPage() {
  txtPassword->setEchoMode(QLineEdit::Password);
  cmbTeam->setObjectName(QStringLiteral("cmbTeam"));
  cmbTeam->setItemDelegate(new OneLineDelegate(cmbTeam));
  cmbTeam->view()->setTextElideMode(Qt::ElideRight);
  cmbTeam->view()->setAccessibleName(QStringLiteral("Team Name"));
  cmbTeam->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  cmbTeam->lineEdit()->setAccessibleName(QStringLiteral("Team Name"));
  const auto typed = [this](const QString& text) {
    tournament_.Typed(&TournamentTexts::cmbTeam, ToBytes(text));
  };
  connect(cmbTeam->lineEdit(), &QLineEdit::textEdited, this, typed);
  connect(cmbTeam, &QComboBox::textActivated, this, typed);

  QGridLayout* grid = MakeGrid(fInfo);
  AddRow(*grid, u"&Entry Fee", iEntryFee);
  AddRow(*grid, u"Current &Purse", txtPurse);
  AddRow(*grid, u"&Current Teams", iMaxTeams);
  AddRow(*grid, u"C&urrent Players", iMaxPlayers);
  AddBelow(*grid, MakeLabel(u"Team &Name", cmbTeam));
  AddBelow(*grid, cmbTeam);
  AddBelow(*grid, MakeLabel(u"Team Pass&word", txtPassword));
  AddBelow(*grid, txtPassword);
  AddBelow(*grid, Command4);
}

void frmTournament::FillTeamsPage() {
  lstTeams->setObjectName(QStringLiteral("lstTeams"));
  lstTeams->on_selected = [this](std::optional<std::size_t> row) { tournament_.TeamSelected(row); };
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(theme::kUnit);
  buttons->addWidget(KickPlayer);
  buttons->addWidget(btnDisband);
  auto* page = new QVBoxLayout(fTeams);
  page->setContentsMargins({});
  page->setSpacing(theme::kUnit);
  page->addWidget(lstTeams, 1);
  page->addLayout(buttons);
}

void frmTournament::FillAdminPage() {
  QGridLayout* grid = MakeGrid(fAdmin);
  AddRow(*grid, u"&Entry Fee", EntryFee);
  AddRow(*grid, u"Ma&x Teams", MaxTeams);
  AddRow(*grid, u"Max &Players", MaxPlayers);
  AddBelow(*grid, Command1);
  AddBelow(*grid, Command2);
  AddBelow(*grid, Command3);
  grid->setRowStretch(grid->rowCount(), 1);
}

/// Window managers show a tool window without giving it the keyboard; this one is for typing.
void frmTournament::showEvent(QShowEvent* event) {
  SideWindow::showEvent(event);
  activateWindow();
}

void frmTournament::CentreOver(const QWidget& owner) {
  const QRect screen = owner.screen()->availableGeometry();
  QRect place({}, sizeHint());
  place.moveCenter(owner.frameGeometry().center());
  place.moveRight(std::min(place.right(), screen.right()));
  place.moveBottom(std::min(place.bottom(), screen.bottom()));
  place.moveLeft(std::max(place.left(), screen.left()));
  place.moveTop(std::max(place.top(), screen.top()));
  move(place.topLeft());
}

void frmTournament::Refresh() {
  const TournamentState& state = tournament_.state();
  for (const Box& box : boxes_) {
    ShowText(*box.control, state.texts.*box.text);
  }
  ShowTeamNames();
  ShowText(*cmbTeam->lineEdit(), state.texts.cmbTeam);

  QStringList teams;
  for (const TeamListEntry& entry : state.lstTeams) {
    teams.append(ToQString(entry.text));
  }
  lstTeams->ShowRows(teams, state.selected_team);

  const int chosen = static_cast<int>(state.chosen_tab);
  TStrip->ShowChosen(chosen);
  pages_->setCurrentIndex(chosen);
}

void frmTournament::ShowTeamNames() {
  QStringList names;
  for (const std::string& name : tournament_.state().team_names) {
    names.append(ToQString(name));
  }
  QStringList shown;
  for (int i = 0; i < cmbTeam->count(); ++i) {
    shown.append(cmbTeam->itemText(i));
  }
  if (names == shown) {
    return;
  }
  // Changing the list writes to the text field; what is typed there stays, caret and selection too.
  QLineEdit& box = *cmbTeam->lineEdit();
  const QString typed = box.text();
  const int caret = box.cursorPosition();
  const int selection_start = box.selectionStart();
  const int selection_length = box.selectionLength();
  const bool backwards = selection_start == caret;
  cmbTeam->clear();
  cmbTeam->addItem(
      QString());  // the first item comes into the text field, where it would be laid out
  cmbTeam->addItems(names);
  cmbTeam->setCurrentIndex(-1);
  cmbTeam->removeItem(0);
  box.setText(typed);
  box.setCursorPosition(caret);
  if (selection_start >= 0) {
    box.setSelection(backwards ? selection_start + selection_length : selection_start,
                     backwards ? -selection_length : selection_length);
  }
}

}  // namespace korvanta
