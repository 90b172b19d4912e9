/// The tournament window on the screen.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <functional>
#include <string>
#include <vector>

#include "board/tournament.h"
#include "ui/kit/plain_list.h"
#include "ui/windows/side_window.h"

namespace korvanta {

/// The tab strip: tells of every choice, by mouse or keyboard, also of the chosen tab again. The
/// wheel chooses nothing, for a choice sends a request.
class TabStrip : public QTabBar {
 public:
  TabStrip();

  /// Does not raise `on_chosen`.
  void ShowChosen(int index);

  std::function<void(int index)> on_chosen;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

class frmTournament : public SideWindow {
 public:
  frmTournament(Tournament& tournament, QWidget* owner);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLineEdit* MakeBox(const char16_t* name, std::string TournamentTexts::*text);
  QPushButton* MakeButton(const char16_t* name, const char16_t* caption,
                          void (Tournament::*clicked)());
  void FillInfoPage();
  void FillTeamsPage();
  void FillAdminPage();
  void CentreOver(const QWidget& owner);

  void Refresh();
  void ShowTeamNames();

  struct Box {
    QLineEdit* control;
    std::string TournamentTexts::*text;
  };

  Tournament& tournament_;
  std::vector<Box> boxes_;

  TabStrip* TStrip;
  QStackedWidget* pages_;

  QGroupBox* fInfo;
  QLineEdit* iEntryFee;
  QLineEdit* txtPurse;
  QLineEdit* iMaxTeams;
  QLineEdit* iMaxPlayers;
  QComboBox* cmbTeam;
  QLineEdit* txtPassword;
  QPushButton* Command4;

  QGroupBox* fTeams;
  PlainListView* lstTeams;
  QPushButton* KickPlayer;
  QPushButton* btnDisband;

  QGroupBox* fAdmin;
  QLineEdit* EntryFee;
  QLineEdit* MaxTeams;
  QLineEdit* MaxPlayers;
  QPushButton* Command1;
  QPushButton* Command2;
  QPushButton* Command3;
};

}  // namespace korvanta
