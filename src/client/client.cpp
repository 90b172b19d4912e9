#include "client/client.h"

#include <string>
#include <utility>

#include "lobby/web_pages.h"

namespace korvanta {

Client::Client(const Platform& platform, const DeploymentValues& deployment)
    : platform_(platform),
      deployment_(deployment),
      connection(platform.socket, platform.timers, values, message_view, main_window,
                 deployment.server_address),
      game_clock(platform.timers),
      tournament(connection, values, platform.message_box),
      board_actions(connection, online_list, statistics, platform.message_box),
      login_dialog(connection, values, saved_logins, platform.message_box),
      splash(platform.timers, deployment.rights_notice),
      dispatcher_(
          {connection, options, message_view, language_filter, platform.sounds, *this, *this}) {
  platform_.socket.on_data_arrival = [this](std::string_view block) {
    dispatcher_.HandleBlock(block);
  };
  splash.on_finished = [this] {
    main_window.Show();
    login_dialog.window().Show();
  };
  WireMenus();
}

void Client::WireMenus() {
  Menus& menus = main_window.menus;
  const auto open_homepage = [this] {
    modData::OpenWebPage(platform_.web, platform_.message_box, deployment_.homepage_address, life_);
  };
  menus.SetAction("mnuDisCon", [this] { login_dialog.ConnectItemClicked(); });
  menus.SetAction("mnuExit", [this] { main_window.Close(); });
  menus.SetAction("mnuCity", [this] { board_actions.EnterGame(); });
  menus.SetAction("mnuTournament", [this] { tournament.ShowTournamentWindow(); });
  menus.SetAction("mnuLookup", [this] { statistics.window().Show(); });
  menus.SetAction("mnuScrollLock", [this] { message_view.ScrollLockToggled(); });
  menus.SetAction("mnuClear", [this] { message_view.Clear(); });
  menus.SetAction("mnuHelpSite", open_homepage);
  menus.SetAction("mnuNews", [this] { news.window().Show(); });
  menus.SetAction("mnuHomepage", open_homepage);

  menus.SetAction("mResearch", [this] { board_actions.ResearchThis(); });
  menus.SetAction("mnuInfo", [this] { board_actions.Information(); });
  menus.SetAction("mnuAttack", [this] { board_actions.AttackPlayer(); });
  menus.SetAction("mInfo", [this] { board_actions.ShowStatistics(); });
  menus.SetAction("mAlliance", [this] { board_actions.FormAlliance(); });
}

bool Client::StartUp() {
  if (platform_.instance.IsAnotherRunning()) {
    platform_.message_box.Show("A version of Korvanta is already running.", kApplicationTitle,
                               MessageIcon::None);
    return false;
  }
  splash.window().Create();
  modData::InitClient(*this);
  splash.ShowVersion();
  splash.window().Show();
  return true;
}

void modData::InitClient(Client& client) {
  ShowConnectionState(client.connection, false);
  client.language_filter.SetFilterWords(kFilterWords);
  client.values.ClientVersion = kVersionText;
  client.saved_logins.Reset();
  modFiles::LoadSettings(client.settings, client.platform_.settings);
}

void Client::CloseMainWindow() {
  if (!std::exchange(life_, nullptr)) {
    return;
  }
  if (connection.IsConnected()) {
    connection.Disconnect();
  }
  const std::string trouble = modFiles::SaveSettings(settings, platform_.settings);
  login_dialog.window().Unload();
  news.window().Unload();
  splash.window().Unload();
  statistics.window().Unload();
  tournament.window().Unload();
  platform_.socket.Drain();
  if (!trouble.empty()) {
    platform_.message_box.Show(trouble, kApplicationTitle, MessageIcon::Exclamation);
  }
}

void Client::StartGameClock(std::int16_t seconds) { game_clock.StartGameClock(seconds); }

void Client::LightTopic(std::int16_t topic, std::int16_t level) {
  modLight::LightTopic(research_board, topic, level);
}

void Client::ResetBoard() { modLight::ResetBoard(research_board); }

void Client::ShowResearchPoints(double points) { research_board.ShowResearchPoints(points); }

void Client::ShowOnlineList(std::string_view payload) { online_list.ShowOnlineList(payload); }

void Client::ShowUserStatistics(std::string_view payload) {
  statistics.ShowUserStatistics(payload);
}

void Client::ShowNews(std::string_view payload) { news.ShowNews(payload); }

void Client::ShowTournamentInfo(std::string_view payload) {
  tournament.ShowTournamentInfo(payload);
}

void Client::ShowTeamList(std::string_view payload) { tournament.ShowTeamList(payload); }

void Client::ShowTeamNames(std::string_view payload) { tournament.ShowTeamNames(payload); }

}  // namespace korvanta
