/// Makes sure that what was written lasts; the settings store is the one user.
#pragma once

#include <QFileDevice>

namespace korvanta {

/// Whether what was written to the open file is on the disk, as far as the file system can tell. On
/// failure `qt_error_string` says why.
bool SyncToDisk(const QFileDevice& file);

}  // namespace korvanta
