#include "tests/architecture/include_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanta::architecture {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

TEST(IncludeRules, TheProjectKeepsThem) {
  const Tree project = ReadTree(KORVANTA_SOURCE_FOLDER);
  ASSERT_THAT(project, Contains(Key("src/protocol/dispatcher.cpp")));
  EXPECT_THAT(BrokenRules(project), IsEmpty());
}

TEST(IncludeRules, WhatIsAllowed) {
  EXPECT_THAT(
      BrokenRules({
          {"src/platform/timer.h", "#include <chrono>\n"},
          {"src/protocol/wire.h", "#include <string_view>\n"},
          {"src/protocol/wire.cpp",
           "#include \"protocol/wire.h\"\n#include \"platform/timer.h\"\n"},
          {"src/lobby/chat.h", "#include \"protocol/wire.h\"\n// #include <QString>\n"},
          {"src/client/client.h", "#include \"lobby/chat.h\"\n#include \"platform/timer.h\"\n"},
          {"src/ui/desktop/clock.h", "#include <QTimer>\n#include <sys/time.h>\n"},
          {"src/ui/window.cpp",
           "#include \"client/client.h\"\n#include \"ui/desktop/clock.h\"\n#include <QWidget>\n"
           "#include \"window.moc\"\n"},
          {"practice/rules.h", "#include \"protocol/wire.h\"\n"},
          {"practice/network.h", "#include <QTcpServer>\n#include \"practice/rules.h\"\n"},
          {"practice/main.cpp", "#include \"network.h\"\n"},
      }),
      IsEmpty());
}

TEST(IncludeRules, EachBrokenRuleIsTold) {
  struct Case {
    Tree tree;
    std::string told;
  };
  const Case cases[] = {
      {{{"src/protocol/a.cpp", "#include \"lobby/b.h\"\n"}, {"src/lobby/b.h", ""}},
       "src/protocol/a.cpp includes lobby/b.h, which is not on a floor below"},
      {{{"src/lobby/a.h", "  #  include \"../client/b.h\"\n"}, {"src/client/b.h", ""}},
       "src/lobby/a.h includes ../client/b.h, which is not on a floor below"},
      {{{"src/board/a.h", "#include \"startup/b.h\"\n"}, {"src/startup/b.h", ""}},
       "src/board/a.h includes startup/b.h, which is not on a floor below"},
      {{{"src/client/a.h", "#include \"ui/b.h\"\n"}, {"src/ui/b.h", ""}},
       "src/client/a.h includes ui/b.h, which is not plain code"},
      {{{"src/ui/a.h", "#include \"practice/b.h\"\n"}, {"practice/b.h", ""}},
       "src/ui/a.h includes practice/b.h, which is no part of the house"},
      {{{"src/cellar/a.h", ""}}, "src/cellar/a.h lies on no floor"},
      {{{"practice/a.cpp", "#include \"platform/b.h\"\n"}, {"src/platform/b.h", ""}},
       "practice/a.cpp includes platform/b.h, not from protocol/"},
      {{{"practice/a.cpp", "#include \"network.h\"\n"}, {"practice/network.h", ""}},
       "practice/a.cpp includes network.h, which is not plain code"},
      {{{"practice/rules.h", "#include <QTcpSocket>\n"}},
       "practice/rules.h includes QTcpSocket, which is no header of the standard library"},
      {{{"src/client/a.h", "#include <QString>\n"}},
       "src/client/a.h includes QString, which is no header of the standard library"},
      {{{"src/lobby/a.h", "#include <QtCore/qstring.h>\n"}},
       "src/lobby/a.h includes QtCore/qstring.h, which is no header of the standard library"},
      {{{"src/platform/a.h", "#include <sys/socket.h>\n"}},
       "src/platform/a.h includes sys/socket.h, which is no header of the standard library"},
      {{{"src/startup/a.cpp", "#include <unistd.h>\n"}},
       "src/startup/a.cpp includes unistd.h, which is no header of the standard library"},
      {{{"src/startup/a.cpp", "#include \"QString\"\n"}},
       "src/startup/a.cpp includes QString, which is not in the tree"},
      {{{"src/lobby/a.h", "#include \"lobby/a.h\"\n"}}, "a circle: src/lobby/a.h > src/lobby/a.h"},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(BrokenRules(c.tree), ElementsAre(c.told));
  }
}

TEST(IncludeRules, ACircleIsFoundHoweverLongAndToldOnce) {
  EXPECT_THAT(BrokenRules({
                  {"src/lobby/a.h", "#include \"lobby/b.h\"\n"},
                  {"src/lobby/b.h", "#include \"c.h\"\n#include \"protocol/e.h\"\n"},
                  {"src/lobby/c.h", "#include \"lobby/d.h\"\n"},
                  {"src/lobby/d.h", "#include \"lobby/b.h\"\n"},
                  {"src/protocol/e.h", ""},
              }),
              ElementsAre("a circle: src/lobby/b.h > src/lobby/c.h > src/lobby/d.h > "
                          "src/lobby/b.h"));
}

}  // namespace
}  // namespace korvanta::architecture
