/// The rules of who may include whom under src/ and practice/, checked on the text of the files.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace korvanta::architecture {

/// Texts of files by their path from the project's root, with "/" between folders.
using Tree = std::map<std::string, std::string>;

/// Every header and source file under src/ and practice/. Throws std::filesystem::filesystem_error
/// when `root` has no src/.
Tree ReadTree(const std::string& root);

/// One sentence for each broken rule, in the order of the paths; none for a tree that keeps them:
/// - a file includes from its own folder and from floors below, practice/ from protocol/ alone;
/// - plain code includes nothing but the standard library of C++ and plain code;
/// - no file includes itself, however long the way round.
std::vector<std::string> BrokenRules(const Tree& tree);

}  // namespace korvanta::architecture
