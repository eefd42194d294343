// The file side of the profile registry reader.
#include "browsers/ZvMozillaLib.h"

#include "platform/Procedure.h"
#include "platform/modSafeFile.h"

namespace rwz {

namespace {

const char kObject[] = "ZvMozillaLib";

}  // namespace

bool ZvMozillaLib::Open(const std::string& astrFile) {
    Procedure proc(kObject, "Open");
    return proc.Run(
        [&] {
            Clear();
            const bool read = ReadRegistry(ReadWholeFile(astrFile, kMaxFileSize));
            mstrFile = astrFile;
            return read;
        },
        false);
}

}  // namespace rwz
