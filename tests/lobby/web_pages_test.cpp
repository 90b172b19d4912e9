#include "lobby/web_pages.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

using testing::ElementsAre;

TEST(OpenWebPage, TellsOfEachFailureInItsOwnWords) {
  const std::string not_found = "Korvanta: The 'http://a/b' File or Path was Not Found.";
  const auto other = [](const std::string& code) {
    return "Korvanta: An error occurred attempting to open 'http://a/b' (ShellExecute code " +
           code + ").";
  };
  const std::tuple<int, std::string, MessageIcon> cases[] = {
      {31,
       "Korvanta: No Association Found for HTTP Addresses. A Web Browser Should be Installed or "
       "Reinstalled.",
       MessageIcon::Exclamation},
      {2, not_found, MessageIcon::Exclamation},
      {3, not_found, MessageIcon::Exclamation},
      {0, other("0"), MessageIcon::Critical},
      {5, other("5"), MessageIcon::Critical},
      {32, other("32"), MessageIcon::Critical},
  };
  for (const auto& [code, text, icon] : cases) {
    fakes::FakeWeb web;
    fakes::FakeMessageBox box;
    const auto asker = std::make_shared<int>();
    modData::OpenWebPage(web, box, "http://a/b", asker);
    EXPECT_THAT(web.opened, ElementsAre("http://a/b"));
    web.Answer(code);
    EXPECT_THAT(box.shown, ElementsAre(text));
    EXPECT_THAT(box.icons, ElementsAre(icon));
  }
}

}  // namespace
}  // namespace korvanta
