#include "platform/clsEasyRegistry.h"

#include <cmath>
#include <cstdio>
#include <exception>

#include "platform/modAPI.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kSource[] = "clsEasyRegistry";
const char kApiSource[] = "clsEasyRegistry[API Call]";
const char kLetValueOfSource[] = "clsEasyRegistry [Let ValueOf]";

struct Root {
    const char* Name;
    HKEY Handle;
};

// In the order DirKey lists them with no key open.
const Root kRoots[] = {
    {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},   {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE}, {"HKEY_USERS", HKEY_USERS},
    {"HKEY_DYN_DATA", HKEY_DYN_DATA},           {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
};

const char* ResultDescription(long alngResult) {
    switch (alngResult) {
        case 2:
            return "Key/Value does not exist.";
        case 5:
            return "Access to Registry Denied.";
        case 14:
            return "Out of memory.";
        case 87:
            return "Invalid Parameter.";
        case 1009:
            return "Corrupt Registry Database!";
        case 1010:
            return "Key name is bad.";
        case 1011:
            return "Cannot Open Key.";
        case 1012:
            return "Cannot Read Key.";
        case 1013:
            return "Cannot Write Key.";
        default:
            return "Undefined key error code!";
    }
}

// Misuse of the class: raised whatever SuppressErrors says.
[[noreturn]] void RaiseInternal(int aintError) {
    switch (aintError) {
        case kRegistryNoCurrentKey:
            throw RwzError(kObjectError + 1, kSource, "No current Key.");
        case kRegistryInvalidRoot:
            throw RwzError(kObjectError + 2, kSource, "Invalid Key root.");
        case kRegistryTypeMismatch:
            throw RwzError(kObjectError + 3, kLetValueOfSource,
                           "Type passed doesn't match Value passed.");
        case kRegistryUnknownType:
            throw RwzError(kObjectError + 4, kLetValueOfSource,
                           "Type passed doesn't exist. Use STRING, DWORD or BINARY.");
        default:
            throw RwzError(kObjectError + 255, kSource,
                           "Undefined error number : " + std::to_string(aintError));
    }
}

std::string Hex(unsigned value, int width) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", width, value);
    return text;
}

// The three forms of a value as the store holds it.
RegistryValue ValueFromData(DWORD alngType, std::vector<uint8_t> data) {
    RegistryValue value;
    if (alngType == REG_BINARY) {
        value.Type = kRegBinary;
        for (uint8_t byte : data) value.Text += Hex(byte, 1) + " ";
        value.Text = Trim(value.Text);
    } else if (alngType == REG_DWORD) {
        value.Type = kRegDword;
        data.resize(4, 0);
        const uint32_t number = static_cast<uint32_t>(data[0]) | (uint32_t{data[1]} << 8) |
                                (uint32_t{data[2]} << 16) | (uint32_t{data[3]} << 24);
        value.Text = Hex(number >> 16, 4) + Hex(number & 0xFFFF, 4);
        value.Number = number;
    } else {
        value.Type = kRegString;
        value.Text.assign(data.begin(), data.end());
        if (!value.Text.empty() && value.Text.back() == '\0') value.Text.pop_back();
    }
    value.Bytes = std::move(data);
    return value;
}

}  // namespace

clsEasyRegistry::~clsEasyRegistry() {
    if (mstrPath.empty()) return;
    // While an error unwinds, that error is the one to report: close quietly.
    if (std::uncaught_exceptions() > 0 || !mhKey) {
        mhKey.Close();
        return;
    }
    try {
        CheckResult(mhKey.Close());
    } catch (...) {
        // A destructor must not throw; a failure to close loses nothing.
    }
}

void clsEasyRegistry::SetCurrentKey(const std::string& astrPath) {
    OpenKey(astrPath, KEY_QUERY_VALUE);
}

void clsEasyRegistry::CheckResult(long alngResult) {
    mlngLastError = alngResult;
    if (alngResult == ERROR_SUCCESS || mblnSuppressErrors) return;
    throw RwzError(kRegistryApiError, kApiSource, ResultDescription(alngResult));
}

void clsEasyRegistry::OpenKey(const std::string& astrPath, REGSAM alngAccess) {
    std::string path = Trim(ToUpper(astrPath));

    if (path == "\\") {
        if (mstrPath.empty()) return;
        const LONG result = mhKey.Close();
        mstrPath.clear();
        CheckResult(result);
        return;
    }

    if (path == "..") {
        if (mstrPath.empty()) RaiseInternal(kRegistryNoCurrentKey);
        OpenKey(mstrPath.substr(0, mstrPath.rfind('\\') + 1), alngAccess);
        return;
    }

    if (path == ".") {
        HKEY hNew = nullptr;
        const LONG result = RegOpenKeyExA(mhKey.Get(), nullptr, 0, alngAccess, &hNew);
        // A failed reopen keeps the old handle, so the key stays usable with its old rights.
        if (result == ERROR_SUCCESS) {
            const LONG closed = mstrPath.empty() ? ERROR_SUCCESS : mhKey.Close();
            mhKey.Reset(hNew);
            CheckResult(closed);
        }
        CheckResult(result);
        return;
    }

    if (path.size() > 1 && path.back() == '\\') path.pop_back();
    if (mstrPath.empty() && (path.empty() || path[0] != '\\')) path = "\\" + path;

    if (path[0] != '\\') {
        mstrPath += "\\" + path;
        HKEY hNew = nullptr;
        const LONG result = RegOpenKeyExA(mhKey.Get(), path.c_str(), 0, alngAccess, &hNew);
        // A relative descent leaves the parent's handle open on purpose (the class has
        // always worked so); the process owns it from here on.
        mhKey.Release();
        mhKey.Reset(hNew);
        CheckResult(result);
        return;
    }

    if (!mstrPath.empty()) {
        const LONG result = mhKey.Close();
        mstrPath.clear();
        CheckResult(result);
    }
    const size_t second = path.find('\\', 1);
    const std::string root =
        path.substr(1, second == std::string::npos ? std::string::npos : second - 1);
    HKEY hRoot = nullptr;
    for (const Root& candidate : kRoots) {
        if (root == candidate.Name) hRoot = candidate.Handle;
    }
    if (!hRoot) RaiseInternal(kRegistryInvalidRoot);
    const std::string subPath = second == std::string::npos ? "" : path.substr(second + 1);

    mstrPath = path;
    HKEY hNew = nullptr;
    const LONG result = RegOpenKeyExA(hRoot, subPath.c_str(), 0, alngAccess, &hNew);
    mhKey.Reset(hNew);
    CheckResult(result);
}

bool clsEasyRegistry::Reopen(REGSAM alngAccess) {
    OpenKey(".", alngAccess);
    return mlngLastError == ERROR_SUCCESS;
}

RegistryValue clsEasyRegistry::ValueOf(const std::string& astrName) {
    if (!mstrPath.empty() && !Reopen(KEY_QUERY_VALUE)) return RegistryValue{};

    DWORD type = REG_NONE;
    DWORD size = 0;
    LONG result = RegQueryValueExA(mhKey.Get(), astrName.c_str(), nullptr, &type, nullptr, &size);
    CheckResult(result);
    if (result != ERROR_SUCCESS) return RegistryValue{};

    std::vector<uint8_t> data(size, ' ');
    result = RegQueryValueExA(mhKey.Get(), astrName.c_str(), nullptr, &type,
                              size ? data.data() : nullptr, &size);
    CheckResult(result);
    if (result != ERROR_SUCCESS) return RegistryValue{};
    data.resize(size);
    return ValueFromData(type, std::move(data));
}

void clsEasyRegistry::SetValueOf(const std::string& astrName, int aintType,
                                 const RegistryData& avarValue) {
    DWORD storeType = REG_NONE;
    std::vector<uint8_t> data;
    switch (aintType) {
        case kRegString: {
            const auto* text = std::get_if<std::string>(&avarValue);
            if (!text) RaiseInternal(kRegistryTypeMismatch);
            storeType = REG_SZ;
            data.assign(text->begin(), text->end());
            break;
        }
        case kRegBinary:
        case kRegMultiString: {
            const auto* bytes = std::get_if<std::vector<uint8_t>>(&avarValue);
            if (!bytes) RaiseInternal(kRegistryTypeMismatch);
            storeType = aintType == kRegBinary ? REG_BINARY : REG_MULTI_SZ;
            data = *bytes;
            break;
        }
        case kRegDword: {
            const auto* number = std::get_if<double>(&avarValue);
            if (!number || std::trunc(*number) != *number || *number < 0 ||
                *number > 4294967295.0) {
                RaiseInternal(kRegistryTypeMismatch);
            }
            const uint32_t value = static_cast<uint32_t>(*number);
            storeType = REG_DWORD;
            data = {static_cast<uint8_t>(value), static_cast<uint8_t>(value >> 8),
                    static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 24)};
            break;
        }
        default:
            RaiseInternal(kRegistryUnknownType);
    }
    const DWORD length = static_cast<DWORD>(data.size());
    // A NUL after the counted data: the store looks one byte past a string's length
    // and counts the terminator itself when the caller left it out.
    data.push_back(0);

    if (!Reopen(KEY_SET_VALUE)) return;
    CheckResult(RegSetValueExA(mhKey.Get(), astrName.c_str(), 0, storeType, data.data(), length));
}

std::optional<std::vector<std::string>> clsEasyRegistry::DirKey() {
    if (mstrPath.empty()) {
        std::vector<std::string> roots;
        for (const Root& root : kRoots) roots.emplace_back(root.Name);
        return roots;
    }
    if (!Reopen(KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS)) return std::nullopt;

    DWORD count = 0;
    const LONG result = RegQueryInfoKeyA(mhKey.Get(), nullptr, nullptr, nullptr, &count, nullptr,
                                         nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    CheckResult(result);
    if (result != ERROR_SUCCESS || count == 0) return std::nullopt;

    std::vector<std::string> names;
    for (DWORD index = 0; index < count; ++index) {
        char name[1024];
        char keyClass[1024];
        DWORD nameLength = sizeof name;
        DWORD classLength = sizeof keyClass;
        FILETIME written;
        const LONG status = RegEnumKeyExA(mhKey.Get(), index, name, &nameLength, nullptr, keyClass,
                                          &classLength, &written);
        CheckResult(status);
        if (status != ERROR_SUCCESS) break;
        names.emplace_back(name, nameLength);
    }
    return names;
}

std::vector<RegistryValueRow> clsEasyRegistry::DirValue() {
    std::vector<RegistryValueRow> rows;
    if (!Reopen(KEY_QUERY_VALUE)) return rows;

    DWORD count = 0;
    DWORD maxName = 0;
    DWORD maxData = 0;
    const LONG result = RegQueryInfoKeyA(mhKey.Get(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                         nullptr, &count, &maxName, &maxData, nullptr, nullptr);
    CheckResult(result);
    if (result != ERROR_SUCCESS) return rows;

    std::vector<char> name(maxName + 1 > 256 ? maxName + 1 : 256);
    std::vector<uint8_t> data(maxData > 256 ? maxData : 256);
    for (DWORD index = 0; index < count; ++index) {
        DWORD nameLength = 0;
        DWORD dataLength = 0;
        DWORD type = REG_NONE;
        LONG status = ERROR_MORE_DATA;
        // The sizes the store reports are upper bounds only for its own character set.
        for (int attempt = 0; attempt < 8 && status == ERROR_MORE_DATA; ++attempt) {
            if (attempt > 0) {
                name.resize(name.size() * 2);
                data.resize(data.size() * 2);
            }
            nameLength = static_cast<DWORD>(name.size());
            dataLength = static_cast<DWORD>(data.size());
            status = RegEnumValueA(mhKey.Get(), index, name.data(), &nameLength, nullptr, &type,
                                   data.data(), &dataLength);
        }
        CheckResult(status);
        if (status != ERROR_SUCCESS) break;
        const RegistryValue value =
            ValueFromData(type, std::vector<uint8_t>(data.begin(), data.begin() + dataLength));
        rows.push_back(RegistryValueRow{std::string(name.data(), nameLength), value.Text,
                                        std::to_string(value.Type)});
    }
    return rows;
}

void clsEasyRegistry::MakeKey(const std::string& astrName) {
    if (!Reopen(KEY_CREATE_SUB_KEY)) return;
    HKEY hNew = nullptr;
    DWORD disposition = 0;
    const LONG result = RegCreateKeyExA(mhKey.Get(), astrName.c_str(), 0, nullptr, 0,
                                        KEY_ALL_ACCESS, nullptr, &hNew, &disposition);
    RegKey created(hNew);  // the new key is not made current
    CheckResult(result);
}

void clsEasyRegistry::DeleteKey(const std::string& astrName) {
    if (!Reopen(KEY_SET_VALUE)) return;
    CheckResult(RegDeleteKeyA(mhKey.Get(), astrName.c_str()));
}

void clsEasyRegistry::DeleteValue(const std::string& astrName) {
    if (!Reopen(KEY_SET_VALUE)) return;
    CheckResult(RegDeleteValueA(mhKey.Get(), astrName.c_str()));
}

bool clsEasyRegistry::IsWindowsNT() const {
    OSVERSIONINFOEXA version;
    return QueryOSVersion(version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

}  // namespace rwz
