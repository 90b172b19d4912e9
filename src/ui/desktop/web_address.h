/// What counts as a web address. Used for opening pages and for the deployment values.
#pragma once

#include <QString>

namespace korvanta {

/// Whether it is a well-formed http or https address with a host.
bool IsWebAddress(const QString& address);

}  // namespace korvanta
