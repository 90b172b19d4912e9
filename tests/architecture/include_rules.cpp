#include "tests/architecture/include_rules.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

namespace korvanta::architecture {
namespace {

constexpr std::array<std::pair<std::string_view, int>, 7> kFloors = {{
    {"platform", 1},
    {"protocol", 2},
    {"lobby", 3},
    {"startup", 4},
    {"board", 4},
    {"client", 5},
    {"ui", 6},
}};

struct Include {
  std::string name;
  bool of_system;  ///< <name>, not "name"
};

std::vector<Include> IncludesOf(const std::string& text) {
  static const std::regex directive(R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]*)[>"])");
  std::vector<Include> includes;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    if (std::regex_search(line, match, directive)) {
      includes.push_back({match[2], match[1] == "<"});
    }
  }
  return includes;
}

std::string FolderOf(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return std::string(path.substr(0, slash == std::string_view::npos ? 0 : slash + 1));
}

bool IsPractice(std::string_view path) { return path.starts_with("practice/"); }

/// "lobby" of "src/lobby/chat.h"; empty for what lies elsewhere.
std::string_view HouseFolder(std::string_view path) {
  constexpr std::string_view kHouse = "src/";
  if (!path.starts_with(kHouse)) {
    return {};
  }
  path.remove_prefix(kHouse.size());
  return path.substr(0, std::min(path.find('/'), path.size()));
}

std::optional<int> FloorOf(std::string_view folder) {
  for (const auto& [name, floor] : kFloors) {
    if (name == folder) {
      return floor;
    }
  }
  return std::nullopt;
}

/// Plain code is everything but the windows and the server's own program and sockets.
bool IsPlain(std::string_view path) {
  return HouseFolder(path) != "ui" && !path.starts_with("practice/main") &&
         !path.starts_with("practice/network");
}

bool IsStandardHeader(std::string_view name) {
  return !name.empty() && name.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == name.npos;
}

/// The file that a quoted include means, looked for as the compiler does; empty when there is none.
std::string Resolve(const Tree& tree, const std::string& path, const std::string& name) {
  for (const std::string& folder : {FolderOf(path), std::string("src/"), std::string()}) {
    std::string found = std::filesystem::path(folder + name).lexically_normal().string();
    if (tree.contains(found)) {
      return found;
    }
  }
  return {};
}

/// Why `path` may not include `target`, both in the tree; empty when it may.
std::string Objection(const std::string& path, const std::string& target) {
  if (IsPlain(path) && !IsPlain(target)) {
    return "which is not plain code";
  }
  if (IsPractice(path)) {
    return IsPractice(target) || HouseFolder(target) == "protocol" ? "" : "not from protocol/";
  }
  if (IsPractice(target)) {
    return "which is no part of the house";
  }
  const std::string_view from = HouseFolder(path);
  const std::string_view to = HouseFolder(target);
  return from == to || FloorOf(from) > FloorOf(to) ? "" : "which is not on a floor below";
}

/// Walks the includes depth first and tells each way back to a file that is still being walked.
class CircleSearch {
 public:
  CircleSearch(const std::map<std::string, std::vector<std::string>>& targets,
               std::vector<std::string>& broken)
      : targets_(targets), broken_(broken) {}

  void Visit(const std::string& path) {
    const auto open = std::find(way_.begin(), way_.end(), path);
    if (open != way_.end()) {
      std::string circle = "a circle: ";
      std::for_each(open, way_.end(), [&](const auto& step) { circle += step + " > "; });
      broken_.push_back(circle + path);
      return;
    }
    if (!seen_.insert(path).second) {
      return;
    }
    way_.push_back(path);
    for (const std::string& target : targets_.at(path)) {
      Visit(target);
    }
    way_.pop_back();
  }

 private:
  const std::map<std::string, std::vector<std::string>>& targets_;
  std::vector<std::string>& broken_;
  std::set<std::string> seen_;
  std::vector<std::string> way_;
};

}  // namespace

Tree ReadTree(const std::string& root) {
  Tree tree;
  for (const std::string folder : {"src", "practice"}) {
    const std::filesystem::path top = std::filesystem::path(root) / folder;
    if (folder == "practice" && !std::filesystem::exists(top)) {
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
      if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp") {
        std::ifstream file(entry.path(), std::ios::binary);
        tree[entry.path().lexically_relative(root).generic_string()] =
            std::string(std::istreambuf_iterator<char>(file), {});
      }
    }
  }
  return tree;
}

std::vector<std::string> BrokenRules(const Tree& tree) {
  std::vector<std::string> broken;
  std::map<std::string, std::vector<std::string>> targets;
  for (const auto& [path, text] : tree) {
    targets[path];
    if (!IsPractice(path) && !FloorOf(HouseFolder(path))) {
      broken.push_back(path + " lies on no floor");
    }
    for (const Include& include : IncludesOf(text)) {
      const std::string told = path + " includes " + include.name + ", ";
      if (include.of_system) {
        if (IsPlain(path) && !IsStandardHeader(include.name)) {
          broken.push_back(told + "which is no header of the standard library");
        }
        continue;
      }
      const std::string target = Resolve(tree, path, include.name);
      if (target.empty()) {
        // What the toolkit's own compiler makes is made while building.
        if (IsPlain(path) || !include.name.ends_with(".moc")) {
          broken.push_back(told + "which is not in the tree");
        }
        continue;
      }
      if (const std::string objection = Objection(path, target); !objection.empty()) {
        broken.push_back(told + objection);
      }
      targets[path].push_back(target);
    }
  }
  CircleSearch circles(targets, broken);
  for (const auto& [path, text] : tree) {
    circles.Visit(path);
  }
  return broken;
}

}  // namespace korvanta::architecture
