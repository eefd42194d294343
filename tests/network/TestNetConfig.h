// A network back end for tests of what lies above the back ends (the General
// page): every setting is a registry value below kTestNetKey, adapter
// settings below kTestNetKey\Adapters\<adapter key>, so a test sets up its
// "machine" with plain registry writes. It flags like the 2000/XP/2003 back
// end and keeps its address lists NUL-separated.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "network/clsNetConfigBase.h"

namespace rwz::test {

inline constexpr const char* kTestNetKey = "\\HKEY_CURRENT_USER\\Software\\Roamwise Tests\\Net";

class TestNetConfig : public clsNetConfigBase {
  public:
    TestNetConfig();

    // Display name and key of each adapter.
    std::vector<std::pair<std::string, std::string>> Adapters;
    std::vector<std::string> Printers;

    // Empties the test machine.
    static void Clear();
    // A machine value; with an adapter key, one of that adapter's.
    static void Put(const std::string& astrName, const std::string& astrValue,
                    const std::string& astrAdapter = "");

    // The printers the test machine lists.
    void ReadPrinters();

  protected:
    void OnAssigned(NetSetting aSetting) override;
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;
};

}  // namespace rwz::test
