#include "lobby/news.h"

#include "base/change_notice.h"
#include "protocol/message_catalogue.h"

namespace korvanta {

News::News(Connection& connection) : connection_(connection), window_([this] { Load(); }) {}

void News::Load() {
  rbNews_.clear();
  connection_.SendIfLoggedIn(outbound::RequestNews());
}

void News::ShowNews(std::string_view payload) {
  window_.Create();
  if (rbNews_ == payload) {
    return;
  }
  rbNews_ = payload;
  Notify(on_changed);
}

}  // namespace korvanta
