#include "client/client.h"

#include <string>
#include <utility>

#include "lobby/web_pages.h"

namespace korvanta {

Client::Client(const Platform& desktop, const DeploymentValues& deployment)
    : platform(desktop),
      connection(desktop.socket, desktop.timers, values, message_view, main_window,
                 deployment.server_address),
      game_clock(desktop.timers),
      tournament(connection, values, desktop.message_box),
      board_actions(connection, online_list, statistics, desktop.message_box),
      login_dialog(connection, values, saved_logins, desktop.message_box),
      splash(desktop.timers, deployment.rights_notice),
      homepage_address_(deployment.homepage_address),
      dispatcher_({connection, options, message_view, language_filter, desktop.sounds, game_clock,
                   research_board, statistics, news, online_list, tournament}) {
  platform.socket.on_data_arrival = [this](std::string_view block) {
    dispatcher_.HandleBlock(block);
  };
  splash.on_finished = [this] {
    main_window.Show();
    login_dialog.window().Show();
  };
}

void Client::OpenHomepage() {
  modData::OpenWebPage(platform.web, platform.message_box, homepage_address_, life_);
}

bool Client::StartUp() {
  if (platform.instance.IsAnotherRunning()) {
    platform.message_box.Show("A version of Korvanta is already running.", kApplicationTitle,
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
  ShowConnectionState(client.main_window, client.values, false);
  client.language_filter.SetFilterWords(kFilterWords);
  client.values.ClientVersion = kVersionText;
  client.saved_logins.Reset();
  modFiles::LoadSettings(client.settings, client.platform.settings);
}

void Client::CloseMainWindow() {
  if (!std::exchange(life_, nullptr)) {
    return;
  }
  connection.Disconnect();
  const std::string error = modFiles::SaveSettings(settings, platform.settings);
  login_dialog.window().Unload();
  news.window().Unload();
  splash.window().Unload();
  statistics.window().Unload();
  tournament.window().Unload();
  platform.socket.Drain();
  if (!error.empty()) {
    platform.message_box.Show(error, kApplicationTitle, MessageIcon::Exclamation);
  }
}

}  // namespace korvanta
