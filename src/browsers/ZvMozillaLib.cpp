#include "browsers/ZvMozillaLib.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/modLogging.h"

namespace rwz {

namespace {

const char kObject[] = "ZvMozillaLib";
const char kEol[] = "\r\n";

std::string CutAtNul(std::string_view text) {
    return std::string(text.substr(0, text.find('\0')));
}

// The same in place, for text read to keep.
std::string CutAtNul(std::string&& text) {
    const size_t nul = text.find('\0');
    if (nul != std::string::npos) text.resize(nul);
    return std::move(text);
}

// "/" is the registry's root; blanks cannot stand in an element name.
std::string ElementName(const std::string& name) {
    if (name == "/") return "Root";
    if (name.empty()) return "_";
    std::string tag = name;
    for (char& c : tag) {
        if (c == ' ') c = '_';
    }
    return tag;
}

std::string Hex(uint64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(value));
    return text;
}

// Decimal with the hexadecimal form after it: "8080 (0x1F90)".
std::string NumberText(uint64_t value) {
    return std::to_string(value) + " (0x" + Hex(value) + ")";
}

// Little-endian unsigned value of up to eight bytes.
uint64_t LittleEndian(std::string_view bytes, size_t from, size_t count) {
    uint64_t value = 0;
    for (size_t i = count; i-- > 0;) {
        value = (value << 8) | static_cast<unsigned char>(bytes[from + i]);
    }
    return value;
}

// A byte value that holds a C string: printable bytes and one final NUL.
bool LooksLikeText(std::string_view bytes) {
    if (bytes.empty() || bytes.back() != '\0') return false;
    for (size_t i = 0; i + 1 < bytes.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(bytes[i]);
        if (c < 0x20 && c != '\t') return false;
    }
    return true;
}

// A "Time" value: seconds since 1/1/1970 in hexadecimal text, as
// "MM/DD/YYYY HH:MM:SS"; nothing when the text is not such a count.
std::optional<std::string> TimeText(std::string_view value) {
    std::string digits = CutAtNul(value);
    while (!digits.empty() && digits.back() == ' ') digits.pop_back();
    while (!digits.empty() && digits.front() == ' ') digits.erase(0, 1);
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        digits.erase(0, 2);
    }
    if (digits.empty() || digits.size() > 16) return std::nullopt;
    uint64_t seconds = 0;
    for (char c : digits) {
        int digit;
        if (c >= '0' && c <= '9') {
            digit = c - '0';
        } else if (c >= 'a' && c <= 'f') {
            digit = c - 'a' + 10;
        } else if (c >= 'A' && c <= 'F') {
            digit = c - 'A' + 10;
        } else {
            return std::nullopt;
        }
        seconds = (seconds << 4) | static_cast<uint64_t>(digit);
    }
    // Beyond the year 9999 a date has no four-digit form.
    if (seconds > 253402300799ull) return std::nullopt;

    // Days since 1970 to a civil date (proleptic Gregorian calendar).
    const int64_t days = static_cast<int64_t>(seconds / 86400);
    const uint64_t inDay = seconds % 86400;
    const int64_t z = days + 719468;
    const int64_t era = z / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    const int64_t day = doy - (153 * mp + 2) / 5 + 1;
    const int64_t month = mp < 10 ? mp + 3 : mp - 9;
    const int64_t year = yoe + era * 400 + (month <= 2 ? 1 : 0);

    char text[32];
    std::snprintf(text, sizeof text, "%02d/%02d/%04d %02d:%02d:%02d", static_cast<int>(month),
                  static_cast<int>(day), static_cast<int>(year), static_cast<int>(inDay / 3600),
                  static_cast<int>(inDay / 60 % 60), static_cast<int>(inDay % 60));
    return std::string(text);
}

// The text an entry's value is rendered as.
std::string ValueText(const ZvRegEntry& entry) {
    if (entry.Name() == "Time") {
        if (auto date = TimeText(entry.Value())) return *date;
    }
    if (entry.IsText()) return std::string(entry.Value());

    const std::string_view bytes = entry.Value();
    if (entry.Type() == kRegTypeIntArray) {
        std::string text;
        for (size_t at = 0; at < bytes.size(); at += 4) {
            if (!text.empty()) text += ", ";
            text += NumberText(LittleEndian(bytes, at, std::min<size_t>(4, bytes.size() - at)));
        }
        return text;
    }
    // Byte values and types this reader does not know.
    if (bytes.empty()) return "";
    if (LooksLikeText(bytes)) return std::string(bytes.substr(0, bytes.size() - 1));
    if (bytes.size() <= 8) return NumberText(LittleEndian(bytes, 0, bytes.size()));
    std::string text = "0x";
    for (char c : bytes) {
        char pair[4];
        std::snprintf(pair, sizeof pair, "%02X", static_cast<unsigned char>(c));
        text += pair;
    }
    return text;
}

std::string RenderingError(const ErrorInfo& aError) {
    return "Error: (" + std::to_string(aError.Number) + ") " + aError.Description;
}

}  // namespace

// --- Reading ---------------------------------------------------------------

bool ZvMozillaLib::ReadRegistry(std::string astrData) {
    Procedure proc(kObject, "ReadRegistry");
    return proc.RunThen(
        [&] {
            Clear();
            if (astrData.size() > kMaxFileSize) {
                proc.Log("too large for a profile registry");
                return false;
            }
            mstrData = std::move(astrData);
            const bool read = ReadTree();
            std::unordered_set<uint32_t>().swap(mobjVisited);
            if (!read) {
                mobjKeys.clear();
                mlngNodes = 0;
                return false;
            }
            if (mlngDamage != 0) {
                WriteLog(std::string(kObject) + " - ReadRegistry: " + std::to_string(mlngDamage) +
                             " damaged part(s) left out",
                         kLogWarning);
            }
            return true;
        },
        [&] {
            Clear();
            return false;
        });
}

void ZvMozillaLib::Clear() {
    std::string().swap(mstrData);
    mlngPosition = 0;
    mlngMagic = 0;
    mintMajor = mintMinor = 0;
    mlngAvailable = mlngRoot = 0;
    mobjKeys.clear();
    mobjVisited.clear();
    mlngNodes = mlngTextBytes = mlngDamage = 0;
    mblnStopped = false;
}

bool ZvMozillaLib::ReadTree() {
    if (mstrData.size() < kHeaderSize) {
        WriteLog(std::string(kObject) + " - ReadTree: too short for a registry", kLogWarning);
        return false;
    }
    Seek(0);
    mlngMagic = ReadLong();
    mintMajor = ReadShort();
    mintMinor = ReadShort();
    mlngAvailable = ReadLong();
    mlngRoot = ReadLong();
    if (mlngMagic != kMagic) {
        WriteLog(
            std::string(kObject) + " - ReadTree: not a registry (magic 0x" + Hex(mlngMagic) + ")",
            kLogWarning);
        return false;
    }
    Descriptor root;
    if (mlngRoot == 0 || !ReadDescriptor(mlngRoot, root)) {
        WriteLog(std::string(kObject) + " - ReadTree: no root node", kLogWarning);
        return false;
    }

    ZvRegKey top;
    ReadChain(mlngRoot, top, 0);
    if (!top.Entries().empty()) Damage("entry outside any key", mlngRoot);
    mobjKeys = top.ReleaseKeys();
    return !mobjKeys.empty();
}

void ZvMozillaLib::ReadChain(uint32_t alngOffset, ZvRegKey& aobjOwner, int aintDepth) {
    uint32_t offset = alngOffset;
    while (offset != 0 && !mblnStopped) {
        // Each node is read once: a chain or a child that comes back to a node
        // already read would loop, and shared nodes would multiply the tree.
        if (mobjVisited.count(offset) != 0) {
            Damage("link back to a node already read", offset);
            return;
        }
        if (mobjVisited.size() >= kMaxNodes) {
            Damage("more nodes than a profile registry holds", offset);
            mblnStopped = true;
            return;
        }
        mobjVisited.insert(offset);
        Descriptor desc;
        if (!ReadDescriptor(offset, desc)) return;
        const uint32_t next = desc.Left;

        if (!Fits(desc.Name, desc.NameLength)) {
            Damage("name outside the file", offset);
            offset = next;
            continue;
        }
        if (!Spend(desc.NameLength)) return;
        Seek(desc.Name);
        std::string name = CutAtNul(ReadText(desc.NameLength));

        if (desc.Type & kRegTypeEntry) {
            if (!Fits(desc.Value, desc.ValueLength)) {
                Damage("value outside the file", offset);
                offset = next;
                continue;
            }
            if (!Spend(desc.ValueLength)) return;
            Seek(desc.Value + desc.ValueLength);  // past the value, which stays where it is
            aobjOwner.AddEntry(ZvRegEntry(
                std::move(name), std::string_view(mstrData).substr(desc.Value, desc.ValueLength),
                desc.Type));
            ++mlngNodes;
        } else {
            ZvRegKey key(std::move(name));
            if (aintDepth >= kMaxDepth) {
                if (desc.Value != 0 || desc.Down != 0) Damage("keys nested too deep", offset);
            } else {
                if (desc.Value != 0) ReadChain(desc.Value, key, aintDepth + 1);
                if (desc.Down != 0) ReadChain(desc.Down, key, aintDepth + 1);
            }
            aobjOwner.AddKey(std::move(key));
            ++mlngNodes;
        }
        offset = next;
    }
}

bool ZvMozillaLib::ReadDescriptor(uint32_t alngOffset, Descriptor& aobjDesc) {
    if (!Fits(alngOffset, kDescriptorSize)) {
        Damage("link outside the file", alngOffset);
        return false;
    }
    Seek(alngOffset);
    aobjDesc.Location = ReadLong();
    aobjDesc.Name = ReadLong();
    aobjDesc.NameLength = ReadShort();
    aobjDesc.Type = ReadShort();
    aobjDesc.Left = ReadLong();
    aobjDesc.Down = ReadLong();
    aobjDesc.Value = ReadLong();
    aobjDesc.ValueLength = ReadLong();
    aobjDesc.ValueBuffer = ReadLong();
    // Every descriptor starts with its own offset: anything else is not a node.
    if (aobjDesc.Location != alngOffset) {
        Damage("link to something that is not a node", alngOffset);
        return false;
    }
    return true;
}

bool ZvMozillaLib::Fits(uint64_t alngOffset, uint64_t alngLength) const {
    return alngOffset + alngLength <= mstrData.size();
}

bool ZvMozillaLib::Spend(uint32_t alngBytes) {
    if (mlngTextBytes + alngBytes > kMaxTextBytes) {
        Damage("more text than a profile registry holds", mlngPosition);
        mblnStopped = true;
        return false;
    }
    mlngTextBytes += alngBytes;
    return true;
}

void ZvMozillaLib::Damage(const std::string& astrWhat, uint32_t alngOffset) {
    // Only the first damage is described: a hostile file must not flood the log.
    if (mlngDamage++ == 0) {
        WriteLog(std::string(kObject) + " - ReadTree: " + astrWhat + " at offset " +
                     std::to_string(alngOffset),
                 kLogWarning);
    }
}

// --- Reading primitives ----------------------------------------------------

uint32_t ZvMozillaLib::ReadLong(uint32_t alngOffset) {
    Seek(alngOffset);
    return ReadLong();
}

uint32_t ZvMozillaLib::ReadLong() {
    if (!Fits(mlngPosition, 4)) throw RwzError(kErrInputPastEnd, kObject, "Input past end of file");
    const uint32_t value = static_cast<uint32_t>(LittleEndian(mstrData, mlngPosition, 4));
    mlngPosition += 4;
    return value;
}

uint16_t ZvMozillaLib::ReadShort() {
    if (!Fits(mlngPosition, 2)) throw RwzError(kErrInputPastEnd, kObject, "Input past end of file");
    const uint16_t value = static_cast<uint16_t>(LittleEndian(mstrData, mlngPosition, 2));
    mlngPosition += 2;
    return value;
}

std::string ZvMozillaLib::ReadText(uint32_t alngLength) {
    if (!Fits(mlngPosition, alngLength)) {
        throw RwzError(kErrInputPastEnd, kObject, "Input past end of file");
    }
    std::string text = mstrData.substr(mlngPosition, alngLength);
    mlngPosition += alngLength;
    return text;
}

// --- Lookups ---------------------------------------------------------------

const ZvRegKey* ZvMozillaLib::FindKey(const std::string& astrPath) const {
    const ZvRegKey* key = nullptr;
    for (const ZvRegKey& top : mobjKeys) {
        if (top.Name() == "/") {
            key = &top;
            break;
        }
    }
    size_t at = 0;
    while (key != nullptr && at < astrPath.size()) {
        if (astrPath[at] == '/') {
            ++at;
            continue;
        }
        const size_t end = astrPath.find('/', at);
        const std::string name = astrPath.substr(at, end == std::string::npos ? end : end - at);
        key = key->Key(name);
        at = end == std::string::npos ? astrPath.size() : end;
    }
    return key;
}

std::vector<ZvMozillaProfile> ZvMozillaLib::ProfileList() const {
    std::vector<ZvMozillaProfile> profiles;
    const ZvRegKey* list = FindKey("/Common/Profiles");
    if (list == nullptr) return profiles;
    for (const ZvRegKey& key : list->Keys()) {
        ZvMozillaProfile profile;
        profile.Name = key.Name();
        if (const ZvRegEntry* directory = key.Entry("directory")) {
            profile.Directory = directory->IsText() ? std::string(directory->Value())
                                                    : CutAtNul(directory->Value());
            profile.HasDirectory = true;
        }
        profiles.push_back(std::move(profile));
    }
    return profiles;
}

std::string ZvMozillaLib::CurrentProfileName() const {
    const ZvRegKey* list = FindKey("/Common/Profiles");
    const ZvRegEntry* current = list ? list->Entry("CurrentProfile") : nullptr;
    return current ? CutAtNul(current->Value()) : std::string();
}

// --- Rendering -------------------------------------------------------------

std::string ZvMozillaLib::ToXML() const {
    Procedure proc(kObject, "ToXML");
    WriteLog(
        std::string(kObject) + " - ToXML - mobjKeys.Count = " + std::to_string(mobjKeys.size()),
        kLogDebug);
    return proc.RunThen(
        [&] {
            std::string xml = std::string("<?xml version=\"1.0\"?>") + kEol;
            for (const ZvRegKey& key : mobjKeys) {
                const std::string tag = ElementName(key.Name());
                xml += "<" + tag + ">" + kEol;
                AppendKeyContent(xml, key, 1);
                xml += "</" + tag + ">" + kEol;
            }
            return xml;
        },
        RenderingError);
}

std::string ZvMozillaLib::RecurseToXML(const ZvRegKey& aobjKey, int aintIndent) const {
    Procedure proc(kObject, "RecurseToXML");
    return proc.RunThen(
        [&] {
            std::string xml;
            AppendKeyContent(xml, aobjKey, aintIndent);
            return xml;
        },
        RenderingError);
}

void ZvMozillaLib::AppendKeyContent(std::string& astrOut, const ZvRegKey& aobjKey,
                                    int aintIndent) const {
    const std::string tabs(aintIndent > 0 ? static_cast<size_t>(aintIndent) : 0, '\t');
    for (const ZvRegEntry& entry : aobjKey.Entries()) {
        const std::string tag = ElementName(entry.Name());
        astrOut += tabs + "<" + tag + ">" + ValueText(entry) + "</" + tag + ">" + kEol;
    }
    for (const ZvRegKey& key : aobjKey.Keys()) {
        const std::string tag = ElementName(key.Name());
        if (key.IsEmpty()) {
            astrOut += tabs + "<" + tag + "/>" + kEol;
            continue;
        }
        astrOut += tabs + "<" + tag + ">" + kEol;
        AppendKeyContent(astrOut, key, aintIndent + 1);
        astrOut += tabs + "</" + tag + ">" + kEol;
    }
}

}  // namespace rwz
