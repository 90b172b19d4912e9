#include "ui/desktop/disk_sync.h"

#include <cerrno>
#include <unistd.h>

namespace korvanta {

bool SyncToDisk(const QFileDevice& file) { return fsync(file.handle()) == 0 || errno == EINVAL; }

}  // namespace korvanta
