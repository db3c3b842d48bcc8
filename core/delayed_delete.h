// Deleting at the next restart what cannot be deleted now, and taking that back: a file that is installed again before
// the restart must not vanish at it.
#pragma once

#include <string>
#include <vector>

namespace velquin {

// Has Windows delete a file or an empty folder at the next restart; logs what became of it. False for an empty path and
// when Windows refuses.
bool scheduleDeleteOnReboot(const std::wstring& path);

// Deletes a file now or, failing that, at the next restart. A missing file counts as deleted.
bool deleteFileOrScheduleOnReboot(const std::wstring& path);

// Takes back the scheduled deletion of any of `paths`, one log line each. Other entries of the list are left alone.
void cancelDeleteOnReboot(const std::vector<std::wstring>& paths);

}  // namespace velquin
