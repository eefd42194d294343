#include "browsers/ZvRegKey.h"

#include <cctype>

namespace rwz {

namespace {

bool SameName(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

}  // namespace

ZvRegKey& ZvRegKey::AddKey(ZvRegKey aobjKey) {
    mobjKeys.push_back(std::move(aobjKey));
    return mobjKeys.back();
}

const ZvRegKey* ZvRegKey::Key(const std::string& astrName) const {
    for (const ZvRegKey& key : mobjKeys) {
        if (SameName(key.Name(), astrName)) return &key;
    }
    return nullptr;
}

const ZvRegEntry* ZvRegKey::Entry(const std::string& astrName) const {
    for (const ZvRegEntry& entry : mobjEntries) {
        if (SameName(entry.Name(), astrName)) return &entry;
    }
    return nullptr;
}

}  // namespace rwz
