#include "ui/windows/frmTournament.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "ui/kit/controls.h"
#include "ui/kit/text.h"
#include "ui/kit/theme.h"

namespace korvanta {
namespace {

/// While a tool window has the keyboard focus, its owner's mnemonics work as well; the two have no
/// letter in common.
constexpr Qt::WindowFlags kToolWindow = Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                        Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;

constexpr int kPageWidth = 320;

QGroupBox* MakePage(const char* name, const QString& caption) {
  auto* page = new QGroupBox(caption);
  NameControl(*page, name, caption);
  return page;
}

void AddRow(QGridLayout& grid, const QString& caption, QLineEdit* box) {
  const int row = grid.rowCount();
  grid.addWidget(MakeCaption(caption, *box), row, 0);
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
      fInfo(MakePage("fInfo", QStringLiteral("Information"))),
      iEntryFee(MakeBox("iEntryFee", &TournamentTexts::iEntryFee)),
      txtPurse(MakeBox("txtPurse", &TournamentTexts::txtPurse)),
      iMaxTeams(MakeBox("iMaxTeams", &TournamentTexts::iMaxTeams)),
      iMaxPlayers(MakeBox("iMaxPlayers", &TournamentTexts::iMaxPlayers)),
      cmbTeam(new ChoiceBox("cmbTeam")),
      txtPassword(MakeBox("txtPassword", &TournamentTexts::txtPassword)),
      Command4(
          MakeCommand("Command4", QStringLiteral("C&reate/Join"), &Tournament::CreateJoinClicked)),
      fTeams(MakePage("fTeams", QStringLiteral("Teams"))),
      lstTeams(new PlainListView(QStringLiteral("Team Information"))),
      KickPlayer(MakeCommand("KickPlayer", QStringLiteral("&Kick Player"),
                             &Tournament::KickPlayerClicked)),
      btnDisband(MakeCommand("btnDisband", QStringLiteral("&Disband Team"),
                             &Tournament::DisbandTeamClicked)),
      fAdmin(MakePage("fAdmin", QStringLiteral("Admin"))),
      EntryFee(MakeBox("EntryFee", &TournamentTexts::EntryFee)),
      MaxTeams(MakeBox("MaxTeams", &TournamentTexts::MaxTeams)),
      MaxPlayers(MakeBox("MaxPlayers", &TournamentTexts::MaxPlayers)),
      Command1(MakeCommand("Command1", QStringLiteral("&Start Tournament"),
                           &Tournament::StartTournamentClicked)),
      Command2(MakeCommand("Command2", QStringLiteral("Set To&urnament Game"),
                           &Tournament::SetTournamentGameClicked)),
      Command3(MakeCommand("Command3", QStringLiteral("E&nd Tournament"),
                           &Tournament::EndTournamentClicked)) {
  setObjectName(QStringLiteral("frmTournament"));
  setWindowTitle(QStringLiteral("Tournament Window"));
  NameControl(*TStrip, "TStrip", windowTitle());

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

  TStrip->on_chosen = [this](int index) {
    tournament_.TabChosen(static_cast<TournamentTab>(index));
  };
  Refresh();
  cmbTeam->setFocus();
}

QLineEdit* frmTournament::MakeBox(const char* name, std::string TournamentTexts::*text) {
  QLineEdit* box = MakeTextBox(name);
  BindBox(box, text);
  return box;
}

void frmTournament::BindBox(QLineEdit* box, std::string TournamentTexts::*text) {
  OnTyped(*box, [this, text](const std::string& typed) { tournament_.Typed(text, typed); });
  boxes_.push_back({box, text});
}

QPushButton* frmTournament::MakeCommand(const char* name, const QString& caption,
                                        void (Tournament::*clicked)()) {
  QPushButton* button = MakeButton(name, caption);
  connect(button, &QPushButton::clicked, this,
          [&tournament = tournament_, clicked] { (tournament.*clicked)(); });
  return button;
}

void frmTournament::FillInfoPage() {
  cmbTeam->lineEdit()->setPlaceholderText(QStringLiteral("A new name makes a new team"));
  txtPassword->setPlaceholderText(QStringLiteral("The team's, or one for a new team"));
  txtPassword->setEchoMode(QLineEdit::Password);
  BindBox(cmbTeam->lineEdit(), &TournamentTexts::cmbTeam);

  QGridLayout* grid = MakeGrid(fInfo);
  AddRow(*grid, QStringLiteral("&Entry Fee"), iEntryFee);
  AddRow(*grid, QStringLiteral("Current &Purse"), txtPurse);
  AddRow(*grid, QStringLiteral("&Current Teams"), iMaxTeams);
  AddRow(*grid, QStringLiteral("C&urrent Players"), iMaxPlayers);
  AddBelow(*grid, MakeCaption(QStringLiteral("Team &Name"), *cmbTeam));
  AddBelow(*grid, cmbTeam);
  AddBelow(*grid, MakeCaption(QStringLiteral("Team Pass&word"), *txtPassword));
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
  AddRow(*grid, QStringLiteral("&Entry Fee"), EntryFee);
  AddRow(*grid, QStringLiteral("Ma&x Teams"), MaxTeams);
  AddRow(*grid, QStringLiteral("Max &Players"), MaxPlayers);
  AddBelow(*grid, Command1);
  AddBelow(*grid, Command2);
  AddBelow(*grid, Command3);
  grid->setRowStretch(grid->rowCount(), 1);
}

/// Window managers show a tool window without focusing it; this one is for typing.
void frmTournament::showEvent(QShowEvent* event) {
  SideWindow::showEvent(event);
  activateWindow();
}

void frmTournament::Refresh() {
  const TournamentState& state = tournament_.state();
  for (const Box& box : boxes_) {
    ShowServerText(*box.control, state.texts.*box.text);
  }
  cmbTeam->ShowChoices(state.team_names);

  QStringList teams;
  for (const std::string& team : state.lstTeams) {
    teams.append(ToQString(team));
  }
  lstTeams->ShowRows(teams, state.selected_team);

  const int chosen = static_cast<int>(state.chosen_tab);
  TStrip->ShowChosen(chosen);
  pages_->setCurrentIndex(chosen);
}

}  // namespace korvanta
