/// Who is logged in: one set of values for the program.
#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

struct ConnectionValues {
  std::string CurrentUserName;  ///< from the login dialog, then as the server confirmed it
  std::string CurrentPassword;
  std::int16_t UserID = 0;
  std::string ClientVersion;  ///< "major.minor", set once at start-up
  bool IsConnected = false;   ///< logged in; written only by ShowConnectionState
  std::int16_t ConnectTicks = 0;
};

}  // namespace korvanta
