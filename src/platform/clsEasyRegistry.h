// Registry access by path: one current key, addressed by a single path string
// such as "\HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft", and a few operations on it.
// Store failures are raised, or only recorded in LastError() when
// SuppressErrors() is set; misuse of the class is always raised.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/RwzError.h"
#include "platform/Win32Handles.h"

namespace rwz {

// The class's own value type codes (not the store's REG_* numbers).
enum RegistryType : int {
    kRegString = 0,       // written as REG_SZ; read for every type but binary and dword
    kRegBinary = 1,       // REG_BINARY
    kRegDword = 2,        // REG_DWORD
    kRegMultiString = 3,  // REG_MULTI_SZ from raw bytes; write only
};

// A value as read: its type code and the three forms of its data.
struct RegistryValue {
    int Type = kRegString;
    std::string Text;            // item 0: the value as text
    std::vector<uint8_t> Bytes;  // item 1: the raw bytes
    double Number = 0;           // item 2: a dword's value
};

// What may be written: a string (code 0), bytes (codes 1 and 3) or a number (code 2).
using RegistryData = std::variant<std::string, std::vector<uint8_t>, double>;

// One row of DirValue: name, data as text, type code as text ("0", "1", "2").
struct RegistryValueRow {
    std::string Name;
    std::string Data;
    std::string Type;
};

// Error numbers raised by the class.
constexpr int32_t kRegistryApiError = kObjectError + 256;  // store failures
constexpr int32_t kRegistryNoCurrentKey = 1;               // + kObjectError
constexpr int32_t kRegistryInvalidRoot = 2;
constexpr int32_t kRegistryTypeMismatch = 3;
constexpr int32_t kRegistryUnknownType = 4;

class clsEasyRegistry {
  public:
    clsEasyRegistry() = default;
    ~clsEasyRegistry();
    clsEasyRegistry(const clsEasyRegistry&) = delete;
    clsEasyRegistry& operator=(const clsEasyRegistry&) = delete;

    // The open key's absolute path, upper-cased; "" when none is open.
    const std::string& CurrentKey() const { return mstrPath; }
    // Opens the key named by an absolute or relative path, or "\", "..", ".".
    void SetCurrentKey(const std::string& astrPath);

    // Result code of the most recent store call (0 = success).
    long LastError() const { return mlngLastError; }

    bool SuppressErrors() const { return mblnSuppressErrors; }
    void SetSuppressErrors(bool ablnSuppress) { mblnSuppressErrors = ablnSuppress; }

    // Reads a value of the current key ("" names the default value).
    RegistryValue ValueOf(const std::string& astrName);
    // Writes a value; the data's kind must match the type code.
    void SetValueOf(const std::string& astrName, int aintType, const RegistryData& avarValue);

    // Sub-key names; the six roots with no key open; nullopt for a key without sub-keys.
    std::optional<std::vector<std::string>> DirKey();
    // The values of the current key.
    std::vector<RegistryValueRow> DirValue();

    void MakeKey(const std::string& astrName);
    void DeleteKey(const std::string& astrName);
    void DeleteValue(const std::string& astrName);

    // True on the NT family of systems.
    bool IsWindowsNT() const;

  private:
    // Opens a path ("\", "..", ".", absolute or relative) with the given rights.
    void OpenKey(const std::string& astrPath, REGSAM alngAccess);
    // Reopens the current key with other rights; false when that failed.
    bool Reopen(REGSAM alngAccess);
    // Records a store call's result and raises it unless errors are suppressed.
    void CheckResult(long alngResult);

    std::string mstrPath;
    RegKey mhKey;
    bool mblnSuppressErrors = false;
    long mlngLastError = 0;
};

}  // namespace rwz
