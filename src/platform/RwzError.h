// The program's error model: every failure has a number, a source and a
// description. It is raised once (throw RwzError) and handled in the exit block
// of a procedure (Procedure.h), which logs it; a caller that needs the error
// gets it from the catch, never from a global.
//
//   if (!file) throw RwzError(kErrFileNotFound, "modProfileIO", "File not found");
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace rwz {

// Base of the numbers of errors the program's own objects define.
constexpr int32_t kObjectError = static_cast<int32_t>(0x80040000u);

// Runtime error numbers used where the program reports a failure of the
// system (file, memory) rather than one of its own objects.
enum RuntimeError : int32_t {
    kErrInvalidProcedureCall = 5,
    kErrOutOfMemory = 7,
    kErrSubscriptOutOfRange = 9,
    kErrTypeMismatch = 13,
    kErrInternal = 51,
    kErrBadFileName = 52,
    kErrFileNotFound = 53,
    kErrBadFileMode = 54,
    kErrDiskFull = 61,
    kErrPathFileAccess = 75,
    kErrPermissionDenied = 70,
    kErrPathNotFound = 76,
};

struct ErrorInfo {
    int32_t Number = 0;
    std::string Source;
    std::string Description;
};

// Thrown to raise an error to the caller.
class RwzError : public std::exception {
  public:
    RwzError(int32_t number, std::string source, std::string description);
    explicit RwzError(ErrorInfo info) : mInfo(std::move(info)) {}

    const ErrorInfo& Info() const { return mInfo; }
    int32_t Number() const { return mInfo.Number; }
    const std::string& Source() const { return mInfo.Source; }
    const std::string& Description() const { return mInfo.Description; }
    const char* what() const noexcept override { return mInfo.Description.c_str(); }

  private:
    ErrorInfo mInfo;
};

// Any exception as the program's error: an RwzError as it is, anything else as
// the runtime error that best describes it.
ErrorInfo ErrorOf(const std::exception& error);

// Description of a runtime error number ("Permission denied" for 70).
std::string RuntimeErrorText(int32_t number);

// Raises the runtime error `number` with its standard description.
[[noreturn]] void RaiseRuntimeError(int32_t number, const std::string& source);

}  // namespace rwz
