#include "platform/RwzError.h"

#include <new>
#include <utility>

namespace rwz {

RwzError::RwzError(int32_t number, std::string source, std::string description)
    : mInfo{number, std::move(source), std::move(description)} {}

ErrorInfo ErrorOf(const std::exception& error) {
    if (auto* own = dynamic_cast<const RwzError*>(&error)) return own->Info();
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return ErrorInfo{kErrOutOfMemory, "Rwz", RuntimeErrorText(kErrOutOfMemory)};
    return ErrorInfo{kErrInternal, "Rwz", error.what()};
}

std::string RuntimeErrorText(int32_t number) {
    switch (number) {
        case kErrInvalidProcedureCall:
            return "Invalid procedure call or argument";
        case kErrOutOfMemory:
            return "Out of memory";
        case kErrSubscriptOutOfRange:
            return "Subscript out of range";
        case kErrTypeMismatch:
            return "Type mismatch";
        case kErrInternal:
            return "Internal error";
        case kErrBadFileName:
            return "Bad file name or number";
        case kErrFileNotFound:
            return "File not found";
        case kErrBadFileMode:
            return "Bad file mode";
        case kErrDiskFull:
            return "Disk full";
        case kErrPathFileAccess:
            return "Path/File access error";
        case kErrPermissionDenied:
            return "Permission denied";
        case kErrPathNotFound:
            return "Path not found";
        default:
            return "Application-defined or object-defined error";
    }
}

void RaiseRuntimeError(int32_t number, const std::string& source) {
    throw RwzError(number, source, RuntimeErrorText(number));
}

}  // namespace rwz
