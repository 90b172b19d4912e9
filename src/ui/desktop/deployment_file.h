/// Reads the deployment values from the file beside the program; `main.cpp` is its one user.
#pragma once

#include <QString>
#include <string>

#include "client/deployment_values.h"

namespace korvanta {

struct DeploymentReading {
  DeploymentValues values;
  std::string error;  ///< for the user, naming file, key and value; empty when all is well
};

/// Group [Deployment] of a small text file in UTF-8:
///   ServerAddress    IPv4 address in dotted form
///   HomepageAddress  http or https address with a host
///   RightsLine, MakerName, Years   the three lines of the notice of rights
/// What is absent, the whole file included, keeps the value as built.
DeploymentReading ReadDeploymentFile(const QString& file);

}  // namespace korvanta
