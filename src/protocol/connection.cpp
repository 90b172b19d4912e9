#include "protocol/connection.h"

#include <chrono>
#include <utility>

#include "protocol/field_reading.h"
#include "protocol/message_catalogue.h"
#include "protocol/wire_format.h"

namespace korvanta {
namespace {

constexpr std::chrono::milliseconds kConnectTickPeriod{1000};

/// The tick after which an attempt is given up is the one that finds this count.
constexpr std::int16_t kLastConnectTick = 7;

}  // namespace

Connection::Connection(ClientSocket& socket, TimerFactory& timers, ConnectionValues& values,
                       ChatOutput& chat, ConnectionDisplay& display, std::string server_address)
    : socket_(socket),
      values_(values),
      chat_(chat),
      display_(display),
      server_address_(std::move(server_address)),
      tmrConnect_(timers.MakeTimer(kConnectTickPeriod)) {
  tmrConnect_->on_tick = [this] { ConnectTick(); };
  socket_.on_connected = [this] { OnConnected(); };
  socket_.on_closed = [this] { OnClosed(); };
}

void Connection::StartConnection() {
  values_.ConnectTicks = 0;
  tmrConnect_->SetEnabled(true);
  socket_.Close();
  if (values_.IsConnected) {
    modData::ShowConnectionState(*this, false);  // a close of our own raises no event
  }
  socket_.Connect(server_address_, kServerPort);
  WriteStatus("Connecting as " + values_.CurrentUserName + "...");
}

void Connection::Disconnect() { Send(outbound::Disconnect()); }

void Connection::AcceptLogin(std::string_view payload) {
  values_.CurrentUserName = Field(payload, 0);
  values_.UserID = ToInt16(ReadNumber(Field(payload, 1)));
  modData::ShowConnectionState(*this, true);
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
  socket_.Close();
}

void Connection::OnConnected() {
  values_.ConnectTicks = 0;
  ShowTitle(true);
  tmrConnect_->SetEnabled(false);
  Send(outbound::Login(values_.ClientVersion, values_.CurrentUserName, values_.CurrentPassword));
}

void Connection::OnClosed() {
  WriteStatus("Disconnected");
  modData::ShowConnectionState(*this, false);
}

void Connection::ShowTitle(bool connected) {
  std::string title(kApplicationTitle);
  title += " - v";
  title += kVersionText;
  title += connected ? " - Connected" : " - Disconnected";
  display_.SetTitle(title);
}

void Connection::WriteStatus(std::string_view text) {
  chat_.AppendMessage(text, MessageKind::Status);
}

void modData::ShowConnectionState(Connection& connection, bool connected) {
  connection.display_.SetConnectCaption(connected ? "Disconnect" : "Connect");
  connection.values_.IsConnected = connected;
  connection.ShowTitle(connected);
}

}  // namespace korvanta
