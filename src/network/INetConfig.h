// The network side of a configuration profile, as the rest of the program sees
// it: the network record (network/NetRecord.h) and what can be done with it.
// One implementation per family of systems; callers hold an INetConfig and
// never the concrete class.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "network/NetRecord.h"

namespace rwz {

class INetConfig {
  public:
    virtual ~INetConfig() = default;

    virtual const NetRecord& Record() const = 0;
    // Stores a value and marks its setting for the next apply (the account,
    // EnableDefaultPrinter and EnableAdvPrinterSettings carry no flag). A
    // setting the back end does not support keeps its value.
    virtual void Assign(NetText aField, const std::string& astrValue) = 0;
    virtual void Assign(NetFlag aField, bool ablnValue) = 0;
    // Chooses the adapter and re-reads its settings; ...NoRefresh only chooses.
    virtual void SetCurrentAdapter(int16_t aintIndex) = 0;
    virtual void SetCurrentAdapterNoRefresh(int16_t aintIndex) = 0;

    // Captures the machine's current settings; no setting is flagged afterwards.
    virtual void LoadConfiguration() = 0;
    // Writes every flagged setting to the machine, then clears the flags.
    // Returns what the user must be told, one text per message box.
    virtual std::vector<std::string> ApplyConfiguration() = 0;
    // Overlays the record from the [Network] and [Printer] sections of a profile.
    virtual void LoadConfigurationFile(const std::string& astrFile) = 0;
    // Writes the record to those sections.
    virtual void SaveConfigurationfile(const std::string& astrFile) = 0;
    // Clears every changed flag and ResetRequired.
    virtual void ResetFlags() = 0;
    // Enumerates the adapters and opens on the one applied last.
    virtual void GetAdapterList() = 0;
    // Reads the port of the record's default printer (the capture of a
    // parallel port is read with the configuration).
    virtual void GetAdvPrinterSettings() = 0;

    // An address or mask list given with "," in the record's own form.
    virtual std::string AddressListFromCommas(const std::string& astrList) const = 0;
    // What kind of adapter the current one is ("Wireless", "LAN", ...); "" when
    // that cannot be told.
    virtual std::string CurrentAdapterType() const = 0;
};

}  // namespace rwz
