/// Fuzz target: the practice server's rules, fed any bytes from several connections while time
/// passes. What goes out must be whole messages that a client understands.
#include <algorithm>
#include <set>

#include "fuzz/input.h"
#include "practice/server.h"
#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "protocol/message_kind.h"
#include "protocol/message_table.h"

namespace korvanta::fuzz {
namespace {

using practice::ConnectionId;

constexpr std::chrono::milliseconds kLongestEvening = std::chrono::hours(1);

void CheckField(FieldRole role, std::string_view field) {
  switch (role) {
    case FieldRole::Integer:
      ToInt16(ReadNumber(field));
      break;
    case FieldRole::Number:
      ReadNumber(field);
      break;
    case FieldRole::Numbers:
      for (std::string_view number : Split(field, kRecordSeparator)) {
        ReadNumber(number);
      }
      break;
    case FieldRole::Boolean:
      ReadBoolean(field);
      break;
    case FieldRole::Code:
      Check(std::ranges::count(kMessageKindCodes, field) == 1, "a line has a known kind");
      break;
    case FieldRole::Text:
      Check(field.find(kRecordSeparator) == std::string_view::npos, "a text is one text");
      break;
  }
}

void CheckFields(const FieldRoles& roles, std::string_view payload) {
  std::size_t count = 0;
  for (std::string_view field : Split(payload, kFieldSeparator)) {
    Check(count < roles.size(), "a message has no fields beyond its own");
    CheckField(roles[count++], field);
  }
  Check(count == roles.size() || (roles.size() == 1 && payload.empty()),
        "a message has all its fields");
}

void CheckMessage(std::string_view message) {
  const auto* row = FindRow(kServerMessages, message);
  Check(row != nullptr, "only messages of a server go out");
  const std::string_view payload = message.substr(row->tag.size());
  // A client tests a payload for the tags that come later, too.
  Check(std::none_of(row + 1, kServerMessages.data() + kServerMessages.size(),
                     [&](const auto& later) { return payload.starts_with(later.tag); }),
        "no message goes out that a client takes for two");
  if (row->layout == Layout::Records || row->layout == Layout::Repeated) {
    const char separator = row->layout == Layout::Records ? kRecordSeparator : kFieldSeparator;
    for (std::string_view record : Split(payload, separator)) {
      CheckFields(row->fields, record);
    }
  } else {
    CheckFields(row->fields, payload);
  }
}

/// Checks what is sent and remembers who heard something.
class CheckingTransport : public practice::Transport {
 public:
  void Send(ConnectionId connection, std::string_view messages) override {
    Check(open.contains(connection), "nothing is sent where nobody is");
    Check(messages.size() > 1 && messages.ends_with(kMessageTerminator), "messages are whole");
    messages.remove_suffix(1);
    for (std::string_view message : Split(messages, kMessageTerminator)) {
      CheckMessage(message);
      if (message.starts_with(TagOf(ServerMessage::LoginAccepted))) {
        logged_in.insert(connection);
      }
    }
    heard.insert(connection);
  }

  void Close(ConnectionId connection) override {
    Check(open.erase(connection) == 1, "a connection is closed once");
    logged_in.erase(connection);
    heard.insert(connection);
  }

  std::set<ConnectionId> open;
  std::set<ConnectionId> logged_in;
  std::set<ConnectionId> heard;
};

class Evening {
 public:
  explicit Evening(int players) : server_(transport_, {.seed = 7, .players = players}) {}

  void Act(Event event) {
    switch (event.letter) {
      case 'C':
        return Connect();
      case 'L':
        return LogIn(event);
      case 'R':
        return Receive(Any(event), std::string(event.text));
      case 'T':
        return Pass(std::chrono::milliseconds(100 * event.TakeNumber()));
      case 'Y':
        return Pass(std::chrono::seconds(event.TakeNumber()));
      case 'V':
        return Vanish(Any(event));
      default: {
        const ConnectionId connection = Any(event);
        return Receive(connection, std::string(event.text) + kMessageTerminator);
      }
    }
  }

 private:
  void Connect() {
    transport_.open.insert(++last_);
    server_.Connected(last_);
  }

  void LogIn(Event event) {
    Connect();
    Receive(last_, outbound::Login("1.6", event.text, "secret"));
  }

  /// One of those that are open; 0 when none is.
  ConnectionId Any(Event& event) const {
    const std::size_t number = event.TakeNumber();
    if (transport_.open.empty()) {
      return 0;
    }
    const auto steps = number % transport_.open.size();
    return *std::next(transport_.open.begin(), static_cast<std::ptrdiff_t>(steps));
  }

  void Receive(ConnectionId connection, const std::string& bytes) {
    if (!transport_.open.contains(connection) || bytes.empty()) {
      return;
    }
    const bool is_one_message =
        !cut_.contains(connection) && bytes.find(kMessageTerminator) + 1 == bytes.size();
    const bool is_answered = is_one_message && transport_.logged_in.contains(connection) &&
                             !bytes.starts_with(TagOf(ClientMessage::KeepAlive));
    transport_.heard.clear();
    server_.Received(connection, bytes);
    Check(!is_answered || transport_.heard.contains(connection), "every request is answered");
    if (bytes.back() == kMessageTerminator) {
      cut_.erase(connection);
    } else {
      cut_.insert(connection);
    }
  }

  void Vanish(ConnectionId connection) {
    if (transport_.open.erase(connection) == 1) {
      transport_.logged_in.erase(connection);
      server_.Vanished(connection);
    }
  }

  void Pass(std::chrono::milliseconds time) {
    now_ = std::min(now_ + time, kLongestEvening);
    server_.Tick(now_);
  }

  CheckingTransport transport_;
  practice::Server server_;
  ConnectionId last_ = 0;
  std::chrono::milliseconds now_{0};
  std::set<ConnectionId> cut_;  ///< their last message is not whole yet
};

}  // namespace
}  // namespace korvanta::fuzz

/// The input's first letter is the number of simulated players.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvanta::fuzz;
  return Play(data, size, [](char letter) { return Evening(letter & 3); });
}
