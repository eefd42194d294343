// Whole-file reads and writes that never leave a file half-written: the new
// contents go to a temporary file in the same folder, which then takes the old
// file's name in one step. Whatever fails on the way, the old file is left
// exactly as it was (and the temporary file is removed).
#pragma once

#include <functional>
#include <string>

namespace rwz {

// The whole file. Raises the runtime error that fits when it cannot be read
// or is larger than `alngMaxBytes`.
std::string ReadWholeFile(const std::string& astrFile, size_t alngMaxBytes = 256u << 20);

// Replaces the file's contents (or creates it). A read-only file or a folder
// is refused with "Path/File access error" (75).
void WriteFileSafely(const std::string& astrFile, const std::string& astrText);

// Edits a copy of the file (or a new empty file when there is none) through
// `aobjEdit`, which gets the copy's path, and then puts the copy in the file's
// place. Meant for files written key by key through the private-profile
// functions. Refuses a read-only file as WriteFileSafely does.
void EditFileSafely(const std::string& astrFile,
                    const std::function<void(const std::string& astrCopy)>& aobjEdit);

// The last step: the new file takes the old one's name. With MoveFileExA (NT 4
// and later) in one rename; without it (Windows 95, 98, ME) the old file is
// renamed aside first and only deleted once the new one is in place, and
// renamed back if that fails, so one complete copy always exists.
void ReplaceFileByRename(const std::string& astrNewFile, const std::string& astrFile,
                         bool ablnUseMoveFileEx);

// A message about a file that the user must see (exclamation icon, the
// product's name as title).
void ShowFileMessage(const std::string& astrText);

}  // namespace rwz
