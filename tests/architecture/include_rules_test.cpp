#include <array>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <regex>

namespace korvanta {
namespace {

/// Texts of files by their path from the project's root.
using Tree = std::map<std::string, std::string>;

Tree ReadTree(const std::filesystem::path& root) {
  Tree tree;
  for (const char* folder : {"src", "practice"}) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp") {
        std::ifstream file(entry.path(), std::ios::binary);
        tree[entry.path().lexically_relative(root).generic_string()] =
            std::string(std::istreambuf_iterator<char>(file), {});
      }
    }
  }
  return tree;
}

/// A folder with all in it, and its floor, or the rank of the practice server's room.
using Folder = std::pair<std::string_view, int>;

constexpr auto kFolders = std::to_array<Folder>(
    {{"src/base/", 10},           {"src/platform/", 20},        {"src/protocol/", 30},
     {"src/lobby/", 40},          {"src/startup/", 50},         {"src/board/", 50},
     {"src/client/", 60},         {"src/system/", 69},          {"src/ui/kit/", 70},
     {"src/ui/desktop/", 71},     {"src/ui/message_view/", 71}, {"src/ui/board/", 71},
     {"src/ui/online_list/", 71}, {"src/ui/windows/", 72},      {"src/ui/", 73},
     {"practice/base/", 1},       {"practice/wire/", 2},        {"practice/words/", 3},
     {"practice/trouble/", 3},    {"practice/players/", 4},     {"practice/tournament/", 5},
     {"practice/game/", 6},       {"practice/commands/", 7},    {"practice/lobby/", 8},
     {"practice/simulation/", 9}, {"practice/network/", 11},    {"practice/", 10}});

/// The folder in which a file lies; of no name and floor 0 when there is none.
Folder FolderOf(const std::string& path) {
  for (const Folder& folder : kFolders) {
    if (path.starts_with(folder.first)) {
      return folder;
    }
  }
  return {};
}

bool IsPractice(const std::string& path) { return path.starts_with("practice/"); }

/// A file includes from its own folder and from floors below, the practice server from base/ and
/// protocol/ alone, and its program from system/.
bool MayInclude(const std::string& path, const std::string& target) {
  if (IsPractice(path) != IsPractice(target)) {
    return IsPractice(path) &&
           (target.starts_with("src/base/") || target.starts_with("src/protocol/") ||
            (path.starts_with("practice/network/") && target.starts_with("src/system/")));
  }
  const Folder folder = FolderOf(path);
  const Folder target_folder = FolderOf(target);
  return folder.first == target_folder.first || folder.second > target_folder.second;
}

/// One sentence for each broken rule, in the order of the paths.
std::vector<std::string> BrokenRules(const Tree& tree) {
  static const std::regex directive(R"re(\n[ \t]*#[ \t]*include[ \t]*"([^"]*)")re");
  std::vector<std::string> broken;
  for (const auto& [path, body] : tree) {
    if (FolderOf(path).second == 0) {
      broken.push_back(path + " lies on no floor");
    }
    const std::string text = "\n" + body;
    for (std::sregex_iterator found(text.begin(), text.end(), directive), end; found != end;
         ++found) {
      const std::string name = (*found)[1];
      const std::string target = IsPractice(name) ? name : "src/" + name;
      if (!tree.contains(target) || !MayInclude(path, target)) {
        broken.emplace_back(path).append(" may not include ").append(name);
      }
    }
  }
  return broken;
}

TEST(IncludeRules, TheProjectKeepsThem) {
  const Tree project = ReadTree(KORVANTA_SOURCE_FOLDER);
  ASSERT_TRUE(project.contains("src/protocol/dispatcher.cpp"));
  EXPECT_THAT(BrokenRules(project), testing::IsEmpty());
}

TEST(IncludeRules, EachBrokenRuleIsReported) {
  const struct {
    const char* path;
    const char* included;
    bool allowed;
  } cases[] = {{"src/lobby/a.h", "protocol/x.h", true},
               {"src/ui/desktop/linux/a.cpp", "ui/desktop/x.h", true},
               {"practice/a.h", "protocol/x.h", true},
               {"practice/network/a.h", "system/x.h", true},
               {"src/protocol/a.cpp", "lobby/x.h", false},
               {"src/board/a.h", "startup/x.h", false},
               {"src/client/a.h", "ui/kit/x.h", false},
               {"src/ui/kit/a.h", "practice/x.h", false},
               {"src/ui/desktop/linux/a.cpp", "ui/board/x.h", false},
               {"src/cellar/a.h", "base/x.h", false},
               {"practice/a.cpp", "platform/x.h", false},
               {"practice/a.cpp", "system/x.h", false},
               {"practice/game/a.h", "practice/lobby/x.h", false},
               {"src/startup/a.cpp", "QString", false}};
  for (const auto& [path, included, allowed] : cases) {
    Tree tree;
    for (const auto& [folder, floor] : kFolders) {
      tree[std::string(folder) + "x.h"] = "";
    }
    tree[path] = "\n #include \"" + std::string(included) + '"';
    EXPECT_EQ(BrokenRules(tree).empty(), allowed) << path << ": " << included;
  }
}

}  // namespace
}  // namespace korvanta
