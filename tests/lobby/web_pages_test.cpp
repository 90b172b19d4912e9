#include "lobby/web_pages.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_platform.h"

namespace korvanta {
namespace {

TEST(OpenWebPage, EachFailureHasItsOwnWordsForAnAskerThatIsStillThere) {
  const std::string other =
      "Korvanta: An error occurred attempting to open 'http://a/b' (ShellExecute code ";
  const std::pair<int, std::string> cases[] = {
      {31,
       "Korvanta: No Association Found for HTTP Addresses. A Web Browser Should be Installed or "
       "Reinstalled. (!)"},
      {2, "Korvanta: The 'http://a/b' File or Path was Not Found. (!)"},
      {3, "Korvanta: The 'http://a/b' File or Path was Not Found. (!)"},
      {0, other + "0). (x)"},
      {32, other + "32). (x)"}};
  for (const auto& [code, text] : cases) {
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
  }
}

}  // namespace
}  // namespace korvanta
