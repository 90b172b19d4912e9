/// Flushing of files to the disk. Used by the settings store.
#pragma once

#include <QFileDevice>

namespace korvanta {

/// Whether everything written to the open file is on the disk, as far as the file system can tell.
/// On failure `qt_error_string` gives the reason.
bool SyncToDisk(const QFileDevice& file);

}  // namespace korvanta
