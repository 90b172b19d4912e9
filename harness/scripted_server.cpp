#include "harness/scripted_server.h"

#include <array>

#include "protocol/message_table.h"

namespace korvanta::harness {
namespace {

using namespace std::chrono_literals;
using namespace std::string_view_literals;

}  // namespace

ScriptedServer::ScriptedServer()
    : address_(UniqueLoopbackAddress()), listener_(Socket::Listening(address_)) {}

int ScriptedServer::clients() {
  for (Socket next = listener_.Accept(0ms); next.IsOpen(); next = listener_.Accept(0ms)) {
    client_ = std::move(next);
    unread_.clear();
    ++clients_;
  }
  return clients_;
}

void ScriptedServer::WaitForClient(int known) {
  WaitUntil("a client connects to the server", [=, this] { return clients() > known; });
}

void ScriptedServer::LetIn(int known) {
  WaitForClient(known);
  ReceiveUntil("\0"sv);
  Send(BuildMessage<ServerMessage::LoginAccepted>("Marlow", "90"));
}

void ScriptedServer::Expect(std::string_view bytes) {
  const auto has_begun = [&] { return bytes.starts_with(unread_.substr(0, bytes.size())); };
  try {
    WaitUntil(
        "the client sends", [&] { return !has_begun() || unread_.size() >= bytes.size(); },
        kPatience, [this] { Receive(5ms); });
  } catch (const HarnessError&) {
    // What did come says more.
  }
  if (!has_begun() || unread_.size() < bytes.size()) {
    throw HarnessError(QString("expected from the client: %1\nreceived: %2")
                           .arg(Readable(bytes), Readable(unread_)));
  }
  unread_.erase(0, bytes.size());
}

void ScriptedServer::ReceiveUntil(std::string_view end) {
  std::size_t at = unread_.find(end);
  WaitUntil(
      "the client sends " + Readable(end),
      [&] {
        at = unread_.find(end);
        return at != std::string::npos;
      },
      kPatience, [this] { Receive(5ms); });
  unread_.erase(0, at + end.size());
}

const std::string& ScriptedServer::unread() {
  Receive(0ms);
  return unread_;
}

void ScriptedServer::Send(std::string_view bytes) const {
  if (!client_.Send(bytes)) {
    throw HarnessError("the client has gone");
  }
}

void ScriptedServer::WaitUntilLeft() const {
  WaitUntil("the client leaves", [this] { return client_.HasEnded(); });
}

void ScriptedServer::Receive(std::chrono::milliseconds patience) {
  std::array<char, 4096> buffer;
  const std::size_t count = client_.Receive(buffer, patience);
  unread_.append(buffer.data(), count);
}

QString Readable(std::string_view bytes) {
  QString text;
  for (const char byte : bytes) {
    const int code = static_cast<unsigned char>(byte);
    text += code >= 32 && code < 127 ? QString(QChar(code)) : QString("<%1>").arg(code);
  }
  return text;
}

}  // namespace korvanta::harness
