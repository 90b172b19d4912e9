/// Reads the deployment values from the file beside the program. Used by `main.cpp`.
#pragma once

#include <QString>
#include <string>

#include "client/deployment_values.h"

namespace korvanta {

struct DeploymentResult {
  DeploymentValues values;
  std::string error;  ///< for the user, naming file, key and value; empty on success
};

/// Group [Deployment] of a small text file in UTF-8:
///   ServerAddress    IPv4 address in dotted form
///   HomepageAddress  http or https address with a host
///   RightsLine, MakerName, Years   the three lines of the notice of rights
/// If a key or the whole file is absent, the built-in values remain.
DeploymentResult ReadDeploymentFile(const QString& file);

}  // namespace korvanta
