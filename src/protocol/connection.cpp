#include "protocol/connection.h"

#include <chrono>
#include <utility>

#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr std::chrono::milliseconds kConnectTickPeriod{1000};

/// The attempt is given up at the tick that finds this count.
constexpr std::int16_t kLastConnectTick = 7;

std::string TitleOf(bool connected) {
  std::string title(kApplicationTitle);
  title += " - v";
  title += kVersionText;
  title += connected ? " - Connected" : " - Disconnected";
  return title;
}

}  // namespace

Connection::Connection(ClientSocket& wsClient, TimerFactory& timers, ConnectionValues& values,
                       ChatOutput& chat, ConnectionDisplay& display, std::string server_address)
    : wsClient_(wsClient),
      values_(values),
      chat_(chat),
      display_(display),
      server_address_(std::move(server_address)),
      tmrConnect_(timers.MakeTimer(kConnectTickPeriod)) {
  tmrConnect_->on_tick = [this] { ConnectTick(); };
  wsClient_.on_connected = [this] { OnConnected(); };
  wsClient_.on_closed = [this] { OnClosed(); };
}

void Connection::StartConnection() {
  values_.ConnectTicks = 0;
  tmrConnect_->SetEnabled(true);
  wsClient_.Close();
  if (values_.IsConnected) {
    modData::ShowConnectionState(display_, values_, false);  // closing it ourselves raises no event
  }
  wsClient_.Connect(server_address_, kServerPort);
  WriteStatus("Connecting as " + values_.CurrentUserName + "...");
}

void Connection::Disconnect() { SendIfLoggedIn(outbound::Disconnect()); }

bool Connection::SendIfLoggedIn(std::string_view message) {
  if (!IsLoggedIn()) {
    return false;
  }
  wsClient_.Send(message);
  return true;
}

bool Connection::SendIfSocketConnected(std::string_view message) {
  if (!IsSocketConnected()) {
    return false;
  }
  wsClient_.Send(message);
  return true;
}

void Connection::AcceptLogin(std::string_view payload) {
  values_.CurrentUserName = Field(payload, 0);
  values_.UserID = ToInt16(ReadNumber(Field(payload, 1)));
  modData::ShowConnectionState(display_, values_, true);
  WriteStatus("Connected as " + values_.CurrentUserName);
}

void Connection::ConnectTick() {
  if (values_.ConnectTicks != kLastConnectTick) {
    ++values_.ConnectTicks;
    return;
  }
  values_.ConnectTicks = 0;
  tmrConnect_->SetEnabled(false);
  WriteStatus("No connection can be made");
  WriteStatus("Disconnected");
  wsClient_.Close();
}

void Connection::OnConnected() {
  values_.ConnectTicks = 0;
  display_.SetTitle(TitleOf(true));
  tmrConnect_->SetEnabled(false);
  wsClient_.Send(
      outbound::Login(values_.ClientVersion, values_.CurrentUserName, values_.CurrentPassword));
}

void Connection::OnClosed() {
  WriteStatus("Disconnected");
  modData::ShowConnectionState(display_, values_, false);
}

void Connection::WriteStatus(std::string_view text) {
  chat_.AppendMessage(text, MessageKind::Status);
}

void modData::ShowConnectionState(ConnectionDisplay& display, ConnectionValues& values,
                                  bool connected) {
  display.SetConnectCaption(connected ? "Disconnect" : "Connect");
  values.IsConnected = connected;
  display.SetTitle(TitleOf(connected));
}

}  // namespace korvanta
