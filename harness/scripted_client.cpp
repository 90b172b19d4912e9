#include "harness/scripted_client.h"

#include <algorithm>
#include <array>
#include <utility>

#include "harness/scripted_server.h"
#include "protocol/message_catalogue.h"

namespace korvanta::harness {
namespace {

using namespace std::chrono_literals;

}  // namespace

ScriptedClient::ScriptedClient(const PracticeServer& server)
    : socket_(Socket::ConnectedTo(server.address())) {}

void ScriptedClient::LogIn(const std::string& name) const {
  Send(outbound::Login("1.6", name, "secret"));
}

bool ScriptedClient::HasReceived(std::string_view bytes) {
  Receive(0ms);
  const std::size_t at = received_.find(bytes);
  if (at == std::string::npos) {
    received_.erase(0, received_.size() - std::min(received_.size(), bytes.size() - 1));
    return false;
  }
  received_.erase(0, at + bytes.size());
  return true;
}

void ScriptedClient::WaitFor(std::string_view bytes) {
  WaitUntil(
      "the practice server sends " + Readable(bytes), [&] { return HasReceived(bytes); }, kPatience,
      [this] { Receive(5ms); });
}

std::size_t ScriptedClient::Discard() {
  Receive(5ms);
  return std::exchange(received_, {}).size();
}

void ScriptedClient::WaitForEnd() const {
  WaitUntil("the practice server ends the connection", [this] { return HasEnded(); });
}

void ScriptedClient::Receive(std::chrono::milliseconds patience) {
  std::array<char, 65536> buffer;
  received_.append(buffer.data(), socket_.Receive(buffer, patience));
}

}  // namespace korvanta::harness
