#include "ui/desktop/disk_sync.h"

#include <io.h>
#include <qt_windows.h>

namespace korvanta {

bool SyncToDisk(const QFileDevice& file) {
  return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != FALSE;
}

}  // namespace korvanta
