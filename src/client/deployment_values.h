/// What a deployment of the client sets; the defaults are for the practice server.
#pragma once

#include <array>
#include <string>

namespace korvanta {

struct DeploymentValues {
  std::string server_address = "127.0.0.1";  ///< IPv4, in dotted form
  std::string homepage_address = "http://korvanta.example/Korvanta/";
  /// The notice of rights on the splash: a rights line, the maker's name, a line with the years.
  std::array<std::string, 3> rights_notice = {"All rights reserved", "The makers of Korvanta",
                                              "2026"};
};

}  // namespace korvanta
