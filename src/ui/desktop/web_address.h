/// What counts as a web address; used for opening pages and for the deployment values.
#pragma once

#include <QString>

namespace korvanta {

/// An http or https address with a host, in correct form.
bool IsWebAddress(const QString& address);

}  // namespace korvanta
