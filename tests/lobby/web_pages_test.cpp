#include "lobby/web_pages.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

TEST(OpenWebPage, EachFailureHasItsOwnWordsForAnAskerThatIsStillThere) {
  const std::string no_browser =
      "Korvanta: No Association Found for HTTP Addresses. A Web Browser Should be Installed or "
      "Reinstalled.";
  const std::string not_found = "Korvanta: The 'http://a/b' File or Path was Not Found.";
  const std::string other =
      "Korvanta: An error occurred attempting to open 'http://a/b' (ShellExecute code ";
  const std::tuple<int, std::string, MessageIcon> cases[] = {
      {31, no_browser, MessageIcon::Exclamation},
      {2, not_found, MessageIcon::Exclamation},
      {3, not_found, MessageIcon::Exclamation},
      {0, other + "0).", MessageIcon::Critical},
      {32, other + "32).", MessageIcon::Critical}};
  for (const auto& [code, text, icon] : cases) {
    fakes::FakeWeb web;
    fakes::FakeMessageBox box;
    auto asker = std::make_shared<int>();
    modData::OpenWebPage(web, box, "http://a/b", asker);
    EXPECT_THAT(web.opened, testing::ElementsAre("http://a/b"));
    web.Answer(code);
    modData::OpenWebPage(web, box, "http://a/b", asker);
    web.Answer(33);
    modData::OpenWebPage(web, box, "http://a/b", asker);
    asker.reset();
    web.Answer(code);
    EXPECT_THAT(box.shown, testing::ElementsAre(text));
    EXPECT_EQ(box.icons.front(), icon);
  }
}

}  // namespace
}  // namespace korvanta
