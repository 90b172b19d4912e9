/// The tournament window.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <functional>
#include <string>
#include <vector>

#include "board/tournament.h"
#include "ui/kit/choice_box.h"
#include "ui/kit/plain_list.h"
#include "ui/windows/side_window.h"

namespace korvanta {

/// The tab strip. Reports every choice by mouse or keyboard, even of the current tab. The wheel
/// does not choose tabs, since a choice sends a request.
class TabStrip : public QTabBar {
 public:
  TabStrip();

  /// Does not call `on_chosen`.
  void ShowChosen(int index);

  std::function<void(int index)> on_chosen;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

class frmTournament : public SideWindow {
 public:
  frmTournament(Tournament& tournament, QWidget* owner);

  void Refresh();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLineEdit* MakeBox(const char* name, std::string TournamentTexts::*text);
  void BindBox(QLineEdit* box, std::string TournamentTexts::*text);
  QPushButton* MakeCommand(const char* name, const QString& caption, void (Tournament::*clicked)());
  void FillInfoPage();
  void FillTeamsPage();
  void FillAdminPage();

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
  ChoiceBox* cmbTeam;
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
