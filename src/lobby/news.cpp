#include "lobby/news.h"

#include "protocol/message_catalogue.h"

namespace korvanta {

News::News(Connection& connection) : connection_(connection), window_([this] { Load(); }) {}

void News::Load() {
  rbNews_.clear();
  if (connection_.IsConnected()) {
    connection_.Send(outbound::RequestNews());
  }
}

void News::ShowNews(std::string_view payload) {
  window_.Create();
  if (rbNews_ == payload) {
    return;
  }
  rbNews_ = payload;
  if (on_changed) {
    on_changed();
  }
}

}  // namespace korvanta
