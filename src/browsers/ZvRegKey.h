// One key of a Mozilla profile registry: its entries and its child keys, both
// in the order the file chains them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "browsers/ZvRegEntry.h"

namespace rwz {

class ZvRegKey {
  public:
    ZvRegKey() = default;
    explicit ZvRegKey(std::string astrName) : mstrName(std::move(astrName)) {}

    const std::string& Name() const { return mstrName; }
    void SetName(const std::string& astrName) { mstrName = astrName; }

    const std::vector<ZvRegEntry>& Entries() const { return mobjEntries; }
    const std::vector<ZvRegKey>& Keys() const { return mobjKeys; }

    void AddEntry(ZvRegEntry aobjEntry) { mobjEntries.push_back(std::move(aobjEntry)); }
    // Hands the child keys over (the key keeps none), without copying the tree.
    std::vector<ZvRegKey> ReleaseKeys() { return std::move(mobjKeys); }
    // Returns the key as stored, for filling in its own entries and keys.
    ZvRegKey& AddKey(ZvRegKey aobjKey);

    // The first child key / entry of that name (names compared without case);
    // nullptr when there is none.
    const ZvRegKey* Key(const std::string& astrName) const;
    const ZvRegEntry* Entry(const std::string& astrName) const;

    // Neither entries nor child keys.
    bool IsEmpty() const { return mobjEntries.empty() && mobjKeys.empty(); }

  private:
    std::string mstrName;
    std::vector<ZvRegEntry> mobjEntries;
    std::vector<ZvRegKey> mobjKeys;
};

}  // namespace rwz
