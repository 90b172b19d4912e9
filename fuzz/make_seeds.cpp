/// make_seeds FOLDER: writes the inputs that the fuzzing starts from, in one folder for each
/// target, and the words of the protocol as a dictionary. They come from the table of messages, in
/// the letters of each target's events.
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/input.h"
#include "practice/server.h"
#include "protocol/message_catalogue.h"
#include "protocol/message_kind.h"
#include "protocol/message_table.h"
#include "tests/fakes/menu_items.h"

namespace korvanta::fuzz {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

using Inputs = std::vector<std::string>;

std::string Join(const Inputs& events) {
  std::string input;
  for (const std::string& event : events) {
    input += Events::Written(event);
  }
  return input;
}

std::string_view PlainField(FieldRole role) {
  switch (role) {
    case FieldRole::Text:
      return "Marlow";
    case FieldRole::Boolean:
      return "True";
    case FieldRole::Code:
      return kMessageKindCodes.front();
    default:
      return "2";
  }
}

/// The message with something plain in each field, without its terminator.
template <typename Row>
std::string Plain(const Row& row) {
  std::string message(row.tag);
  for (std::size_t i = 0; i < row.fields.size(); ++i) {
    message += (i == 0 ? "" : std::string(1, kFieldSeparator));
    message += PlainField(row.fields[i]);
  }
  return message;
}

/// What a client may say behind the login: an evening, then every message.
Inputs Requests() {
  using namespace outbound;
  Inputs requests = {
      KeepAlive(),
      FormAlliance("Marlow"),
      AttackPlayer("Marlow"),
      EnterGame(),
      LookUpStatistics("Admin"),
      TopicInformation(TopicCode::Military),
      ResearchTopic(TopicCode::Industry, 1),
      RequestNews(),
      RequestTournamentInfo(),
      RequestTeamList(),
      JoinTeam("Foxes", "secret"),
      KickPlayer("Marlow"),
      DisbandTeam(),
      SetTournamentGame(),
      StartTournament("10", "4", "8"),
      EndTournament(),
      ResearchTopic(TopicCode::GoldenKnowledge, 5),
  };
  for (const std::string_view line :
       {"c hello", "/c hello", "help", "who", "tell Marlow good evening", "reply yes", "team now",
        "me waves", "roll 20", "away", "stats Admin", "news", "time", "announce soon", "start"}) {
    requests.push_back(ChatLine(line));
  }
  for (const auto& row : kClientMessages) {
    requests.push_back(Plain(row) + kMessageTerminator);
  }
  requests.push_back(Disconnect());
  return requests;
}

/// Keeps what one connection hears, message by message.
class Ear : public practice::Transport {
 public:
  void Send(practice::ConnectionId connection, std::string_view messages) override {
    if (connection == 1) {
      for (std::string_view message : Split(messages.substr(0, messages.size() - 1), '\0')) {
        heard[std::string(message.substr(0, kTagLength))].emplace_back(message);
      }
    }
  }
  void Close(practice::ConnectionId /*connection*/) override {}

  std::map<std::string, Inputs> heard;  ///< by tag
};

/// What the practice server says in an evening of all requests.
std::map<std::string, Inputs> Answers() {
  Ear ear;
  practice::Server server(ear, {.seed = 7, .players = 0});
  for (practice::ConnectionId player = 1; player <= 2; ++player) {
    server.Connected(player);
    server.Received(player, outbound::Login("1.6", player == 1 ? "Admin" : "Marlow", "secret"));
  }
  int tenths = 0;
  for (const std::string& request : Requests()) {
    for (practice::ConnectionId player = 2; player > 0; --player) {
      server.Received(player, request);
    }
    for (int i = 0; i < 20; ++i) {
      server.Tick(std::chrono::milliseconds(100 * ++tenths));
    }
  }
  return std::move(ear.heard);
}

/// Messages in forms that no server should send.
Inputs OtherMessages() {
  using enum ServerMessage;
  const auto with = [](ServerMessage kind, std::initializer_list<std::string_view> fields) {
    std::string message = BuildMessage(TagOf(kind), fields);
    message.pop_back();
    return message;
  };
  return {
      with(GamePause, {"30abc"}),
      with(TournamentBoardCleared, {"x"}),
      with(ResearchPoints, {"2.50"}),
      with(GameClock, {"1e999"}),
      with(TopicResearched, {"3", "5"}),
      with(LoginAccepted, {"A", "90"}),
      with(ChatLine, {"cht", "a"}),
      with(ChatLine, {"cht", "", "True"}),
      with(ChatLine, {"cht", "Zo\xfe\xff: \xff\xfe", "False"}),
      with(LoginNotice, {"[nws][onl]x"}),
      with(OnlineList, {"A", "9", "x", "1\x02\x02 B", "1", "2", "0x1"}),
      with(LoginAccepted, {"Marlow", "32768"}),
  };
}

/// The names of all menu items.
Inputs MenuItems() {
  Inputs names;
  for (const MenuItem* item : fakes::AllItems()) {
    names.emplace_back(item->name);
  }
  return names;
}

/// What a player does in an evening, window by window; the events are parted at '|'.
constexpr std::string_view kDoings =
    "shello|s/who|c\0|c\1/"
    "tell|c\2|c\3|c\4\0|mmnuScrollLock|W\37|Y\0|o\0mnuAttack|o\0mInfo|o\1mAlliance|Y\1|B[onl]A|"
    "b\0\0mResearch|b\4\4mnuInfo|v\0\20\177|mmnuLogins|v\1\40\1|v\2|v\3|T|mmnuTournament|"
    "t\0\3Foxes|t\0\5secret|t\3\0|t\2\0|t\3\1|Y\1|t\3\2|Y\1|t\3\3|t\3\4|t\3\5|t\1\1|"
    "t\1\2|t\4|mmnuLookup|u\0Admin|u\1|u\2|mmnuNews|n|mmnuDisCon|H|mmnuDisCon|d\5|Y\1|d\3\0|d\4\1|"
    "d\6|d\10|mmnuHomepage"sv;

Inputs ClientInputs() {
  const Inputs login = {"LMarlow,secret", "A", "B[con]Marlow\00199"};
  Inputs everything = login;
  Inputs inputs;
  const auto add = [&](const std::string& message) {
    Inputs events = login;
    events.push_back("B" + message);
    inputs.push_back(Join(events));
    everything.push_back(events.back());
  };
  for (const auto& [tag, messages] : Answers()) {
    add(messages.back());
  }
  for (const auto& row : kServerMessages) {
    add(Plain(row));
  }
  for (const std::string& message : OtherMessages()) {
    add(message);
  }
  Inputs evening = login;
  evening.emplace_back("mmnuTournament");
  evening.insert(evening.end(), everything.begin(), everything.end());
  for (std::string_view event : Split(kDoings, '|')) {
    evening.emplace_back(event);
  }
  for (const std::string& item : MenuItems()) {
    inputs.push_back(Join({login[0], login[1], login[2], "m" + item, "H"}));
  }
  inputs.push_back(Join(everything));
  inputs.push_back(Join(evening));
  inputs.push_back(Join({"LMarlow,secret", "T", "T", "T", "T", "T", "T", "T", "T", "T", "X", "T"}));
  inputs.push_back(Join({"K\0\xc9\xc7\xc5\xcb,\xc9;"s, "K\1Ann", "d\3\0"s, "X", "X"}));
  return inputs;
}

Inputs PracticeInputs() {
  Inputs inputs;
  Inputs everything = {"LMarlow", "LAdmin"};
  for (std::string request : Requests()) {
    request.pop_back();
    const std::string of_first = "M\0"s + request;
    const std::string of_second = "M\x01" + request;
    inputs.push_back(Join({"LAdmin", "LMarlow", of_first, of_second, "T\x0a", of_first}));
    everything.push_back(of_second);
    everything.push_back(of_first);
    everything.emplace_back("T\x20");
  }
  inputs.push_back(Join(everything));
  inputs.push_back(Join({"C", "R\0[con]1.6\1Mar"s, "Y\37", "V\1"}));
  const std::size_t alone = inputs.size();
  inputs.push_back(Join({"LMarlow", "Y\x60", "M\0[ctc]c hello"s, "M\0[jon]"s, "Y\x60", "Y\x60"}));
  inputs.push_back(Join(everything));
  for (std::size_t i = 0; i < inputs.size(); ++i) {
    inputs[i].insert(inputs[i].begin(), i < alone ? '\0' : '\3');
  }
  return inputs;
}

Inputs MessageViewInputs() {
  const auto of_size = [](char chunk_size, const Inputs& events) {
    return std::string(1, chunk_size) + Join(events);
  };
  const Inputs lines = {
      "CAster: hello there", "Etwo\r\nlines: a\rb", "K",  "S\x20\x50", "DRen\xe9: at 10:30",
      "M\x02\x01",           "M\x03\x01",           "Fx", "K",         "Gend"};
  return {of_size(0, lines), of_size(6, lines), of_size(63, lines),
          of_size(3, {"Ca\r", "K", "S\x20\x20", "D\nb", "C", "E"})};
}

Inputs SettingsInputs() {
  const std::string file =
      "F\xef\xbb\xbf[Menu]\nScrollLock=True\nforeign=1\n\n[Other]\r\n; note\nkey = "
      "v%41\n\xef\xbb\xbfmark=1\n"
      "[Client Data]\nTime=1.5\n[Menu]\nSounds=0\n[Logins]\nLast User=Ann\n"
      "User/Password=%C9%C7,%C5;a,b;;x;%FF%FE,;";
  return {Join({file, "Anna,secret", "Ren\xe9,p", "\x03\x04Menua]=; b%41 "}), Join({file}),
          Join({"F", "Anna,", "Bert,pass", "F\x1c,\x1d\x1c"}),
          Join({"F[a]\n[a]\nb=1\nbroken\n\x01\n[", "x"})};
}

void Write(const std::filesystem::path& folder, const Inputs& inputs) {
  std::filesystem::create_directories(folder);
  int number = 0;
  for (const std::string& input : inputs) {
    std::ofstream file(folder / ("seed-" + std::to_string(++number)), std::ios::binary);
    file << input;
    file.close();
    Check(file.good(), "a seed can be written");
  }
}

void WriteDictionary(const std::filesystem::path& path) {
  Inputs words = MenuItems();
  for (const auto& row : kClientMessages) {
    words.emplace_back(row.tag);
  }
  for (const auto& row : kServerMessages) {
    words.emplace_back(row.tag);
  }
  for (const std::string_view code : kMessageKindCodes) {
    words.push_back(std::string(code) + "\\x01");
  }
  std::ofstream file(path);
  for (const std::string& word : words) {
    file << '"' << word << "\"\n";
  }
  file.close();
  Check(file.good(), "the dictionary can be written");
}

}  // namespace
}  // namespace korvanta::fuzz

int main(int count, char** words) {
  using namespace korvanta::fuzz;
  Check(count == 2, "usage: make_seeds FOLDER");
  const std::filesystem::path folder = words[1];
  Write(folder / "client", ClientInputs());
  Write(folder / "message_view", MessageViewInputs());
  Write(folder / "practice", PracticeInputs());
  Write(folder / "settings", SettingsInputs());
  WriteDictionary(folder / "protocol.dict");
}
