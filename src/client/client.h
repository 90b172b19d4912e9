/// The whole program below its windows: one of everything, wired together. Read this file and
/// client.cpp to see how the parts meet; main.cpp makes one, tests make as many as they like.
#pragma once

#include <memory>
#include <string>

#include "board/board_actions.h"
#include "board/game_clock.h"
#include "board/research_board.h"
#include "board/tournament.h"
#include "client/deployment_values.h"
#include "lobby/chat_input.h"
#include "lobby/language_filter.h"
#include "lobby/main_window.h"
#include "lobby/message_view.h"
#include "lobby/news.h"
#include "lobby/online_list.h"
#include "lobby/statistics.h"
#include "platform/platform.h"
#include "protocol/connection.h"
#include "protocol/connection_values.h"
#include "protocol/dispatcher.h"
#include "protocol/options.h"
#include "startup/login_dialog.h"
#include "startup/saved_logins.h"
#include "startup/settings.h"
#include "startup/splash.h"

namespace korvanta {

class Client;

namespace modData {

/// The start-up initialisation: connection display, filter words, version, saved logins, settings.
void InitClient(Client& client);

}  // namespace modData

/// The parts are public: each window uses its own presenter and nothing else.
class Client {
 public:
  /// Everything that `desktop` refers to must outlive the client.
  Client(const Platform& desktop, const DeploymentValues& deployment);

  /// Shows the splash; four seconds later the main window and the login dialog. Returns false if
  /// another instance is running: the user has been informed, no setting has been read, and the
  /// program should end.
  bool StartUp();

  /// Closes the main window, for whatever reason: says goodbye to the server, saves the settings,
  /// unloads the other windows, flushes the socket, and reports settings that could not be saved.
  /// Only the first call has an effect.
  void CloseMainWindow();

  /// The menu items "Korvanta Help" and "Homepage".
  void OpenHomepage();

  // In order of dependency.
  Platform platform;
  ConnectionValues values;
  Options options;
  SavedLogins saved_logins;
  Settings settings{options, saved_logins};

  MainWindow main_window{options};
  MessageView message_view{options};
  LanguageFilter language_filter;
  Connection connection;
  ChatInput chat_input{connection, options};
  OnlineList online_list;
  GameClock game_clock;
  ResearchBoard research_board{game_clock};
  Statistics statistics{connection, values};
  News news{connection};
  Tournament tournament;
  BoardActions board_actions;
  LoginDialog login_dialog;
  Splash splash;

 private:
  std::string homepage_address_;
  Dispatcher dispatcher_;
  /// Exists until the main window closes; answers that the desktop gives later are dropped.
  std::shared_ptr<const void> life_ = std::make_shared<bool>();
};

}  // namespace korvanta
