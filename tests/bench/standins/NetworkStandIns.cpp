// The stand-in networking services: installing them beside a program and
// reading what they recorded.
#include "bench/standins/NetworkStandIns.h"

#include <stdexcept>

namespace bench {

namespace {

std::string Unescape(const std::string& field) {
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            out += field[i];
            continue;
        }
        const char next = field[++i];
        out += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return out;
}

// Tells Wine to load the native (stand-in) DLLs first for programs of this name.
void PreferNativeDlls(const std::string& programName) {
    const std::string key = "Software\\Wine\\AppDefaults\\" + programName + "\\DllOverrides";
    HKEY overrides = nullptr;
    LONG result = RegCreateKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                  nullptr, &overrides, nullptr);
    for (const char* dll : {"netapi32", "dhcpcsvc", "mpr"}) {
        if (result != ERROR_SUCCESS) break;
        const char order[] = "native,builtin";
        result = RegSetValueExA(overrides, dll, 0, REG_SZ, reinterpret_cast<const BYTE*>(order),
                                sizeof order);
    }
    if (overrides) RegCloseKey(overrides);
    if (result != ERROR_SUCCESS)
        throw std::runtime_error("cannot set the DLL overrides of " + programName + " (error " +
                                 std::to_string(result) + ")");
}

}  // namespace

std::string StandInsDir() {
    return BuildDir() + "\\tests\\standins";
}

std::string StandInCall::operator[](const std::string& name) const {
    for (const auto& field : fields)
        if (field.first == name) return field.second;
    return "";
}

std::string StandInCall::Describe() const {
    std::string text = function + "(";
    for (size_t i = 0; i < fields.size(); ++i)
        text += (i ? ", " : "") + fields[i].first + "=" + fields[i].second;
    return text + ")";
}

NetworkStandIns::NetworkStandIns(const std::string& program) {
    const size_t slash = program.find_last_of('\\');
    if (slash == std::string::npos) throw std::runtime_error("not a path: " + program);
    mFolder = program.substr(0, slash);
    MakeFolders(mFolder);
    for (const char* dll : {"netapi32.dll", "dhcpcsvc.dll", "mpr.dll"}) {
        const std::string built = StandInsDir() + "\\" + dll;
        if (!FileExists(built)) throw std::runtime_error("no stand-in " + built + " (not built?)");
        // run-tests.sh puts them beside the test programs, loaded by now.
        if (!FileExists(mFolder + "\\" + dll)) CopyFileReplacing(built, mFolder + "\\" + dll);
    }
    PreferNativeDlls(program.substr(slash + 1));
    WriteFile(ScriptFile(), "");
    DeleteFileA(RecordFile().c_str());
}

NetworkStandIns& NetworkStandIns::Like(const Machine& machine) {
    const std::string script = machine.Folder() + "\\network-services.ini";
    if (FileExists(script)) CopyFileReplacing(script, ScriptFile());
    return *this;
}

void NetworkStandIns::Set(const std::string& section, const std::string& key,
                          const std::string& value) {
    if (!WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(),
                                    ScriptFile().c_str()))
        throw std::runtime_error("cannot write " + ScriptFile());
}

NetworkStandIns& NetworkStandIns::Answer(const std::string& function, const std::string& results) {
    Set(function, "Result", results);
    return *this;
}

NetworkStandIns& NetworkStandIns::JoinInformation(const std::string& name, unsigned status) {
    Set("NetGetJoinInformation", "Name", name);
    Set("NetGetJoinInformation", "Status", std::to_string(status));
    return *this;
}

std::vector<StandInCall> NetworkStandIns::Calls() const {
    std::vector<StandInCall> calls;
    for (const std::string& line : SplitLines(ReadFileText(RecordFile()))) {
        if (line.empty()) continue;
        StandInCall call;
        size_t start = 0;
        bool first = true;
        for (;;) {
            const size_t tab = line.find('\t', start);
            const std::string piece = line.substr(start, tab - start);
            if (first) {
                call.function = piece;
                first = false;
            } else {
                const size_t equals = piece.find('=');
                call.fields.emplace_back(piece.substr(0, equals),
                                         equals == std::string::npos
                                             ? std::string()
                                             : Unescape(piece.substr(equals + 1)));
            }
            if (tab == std::string::npos) break;
            start = tab + 1;
        }
        calls.push_back(call);
    }
    return calls;
}

std::vector<StandInCall> NetworkStandIns::Calls(const std::string& function) const {
    std::vector<StandInCall> calls;
    for (const StandInCall& call : Calls())
        if (call.function == function) calls.push_back(call);
    return calls;
}

}  // namespace bench
