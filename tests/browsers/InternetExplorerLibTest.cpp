// Internet Explorer's settings against Wine's registry: each setting written under
// its own name in Internet Explorer's own value form.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

#include "browsers/InternetExplorerLib.h"
#include "support/RawRegistry.h"

namespace rwz::test {
namespace {

using R = BrowserRecord;
const HKEY CU = HKEY_CURRENT_USER;
const HKEY LM = HKEY_LOCAL_MACHINE;
const char kSettings[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
const char kConnections[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections";
const char kMain[] = "Software\\Microsoft\\Internet Explorer\\Main";
const char kAutoDial[] = "SOFTWARE\\Microsoft\\RAS AutoDial\\Default";
const char kRemoteAccess[] = "RemoteAccess";

std::vector<uint8_t> Dword(uint32_t value) {
    return {uint8_t(value), uint8_t(value >> 8), uint8_t(value >> 16), uint8_t(value >> 24)};
}
std::vector<uint8_t> Sz(const std::string& text) {
    std::vector<uint8_t> bytes(text.begin(), text.end());
    bytes.push_back(0);
    return bytes;
}
void DeleteValue(HKEY root, const char* key, const char* name) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key, 0, KEY_SET_VALUE, &handle) != ERROR_SUCCESS) return;
    RegDeleteValueA(handle, name);
    RegCloseKey(handle);
}

class InternetExplorerLibTest : public ::testing::Test {
  protected:
    void SetUp() override { Clear(); }
    void TearDown() override { Clear(); }
    static void Clear() {
        for (const char* name : {"ProxyServer", "ProxyEnable", "ProxyOverride", "AutoConfigURL",
                                 "EnableAutoDial", "EnableAutodial", "DisablePasswordCaching"})
            DeleteValue(CU, kSettings, name);
        RawDeleteTree(CU, kConnections);
        DeleteValue(CU, kMain, "Start Page");
        RawDeleteTree(LM, kAutoDial);
        RawDeleteTree(CU, kRemoteAccess);
    }
};

// A setting assigned and the value applying it leaves.
struct WriteCase {
    OSFamily Family;
    std::string R::*Text;
    bool R::*Flag;
    const char* Value;  // the text, or "1"/"0"
    HKEY Root;
    const char* Key;
    const char* Name;
    DWORD Type;
    std::vector<uint8_t> Data;
};

TEST_F(InternetExplorerLibTest, WritesEachSettingUnderItsNameInItsForm) {
    const OSFamily XP = OSFamily::XP;
    const WriteCase cases[] = {
        {XP, &R::HTTPAddress, nullptr, "web", CU, kSettings, "ProxyServer", REG_SZ, Sz("http=web")},
        {XP, nullptr, &R::ProxyEnabled, "1", CU, kSettings, "ProxyEnable", REG_DWORD, Dword(1)},
        {XP, &R::ProxyExceptions, nullptr, "a;b", CU, kSettings, "ProxyOverride", REG_SZ,
         Sz("a;b")},
        {XP, nullptr, &R::IgnoreLocalAddresses, "1", CU, kSettings, "ProxyOverride", REG_SZ,
         Sz(";<local>")},
        {XP, &R::DefaultHomePage, nullptr, "http://home/", CU, kMain, "Start Page", REG_SZ,
         Sz("http://home/")},
        {XP, nullptr, &R::ConnectViaLAN, "0", CU, kSettings, "EnableAutodial", REG_DWORD, Dword(1)},
        {XP, &R::CurrentDUN, nullptr, "Hotel", LM, kAutoDial, "DefaultInternet", REG_SZ,
         Sz("Hotel")},
        {OSFamily::Win9x, &R::CurrentDUN, nullptr, "Hotel", CU, kRemoteAccess, "InternetProfile",
         REG_SZ, Sz("Hotel")},
        {XP, &R::AutoConfigURL, nullptr, "http://wpad/x.pac", CU, kSettings, "AutoConfigURL",
         REG_SZ, Sz("http://wpad/x.pac")},
        {XP, nullptr, &R::DisablePWDCache, "1", CU, kSettings, "DisablePasswordCaching", REG_DWORD,
         Dword(1)},
    };
    for (const WriteCase& c : cases) {
        SCOPED_TRACE(std::string(c.Name) + " " + c.Value);
        Clear();
        InternetExplorerLib ie(c.Family);
        ie.LoadConfiguration();
        ie.Assign(&R::ConnectViaLAN, true);
        ie.Assign(&R::UseSameProxy, false);
        ie.Assign(&R::UseAutoConfigURL, c.Text == &R::AutoConfigURL);
        if (c.Text) ie.Assign(c.Text, c.Value);
        if (c.Flag) ie.Assign(c.Flag, std::string(c.Value) == "1");
        ie.ApplyConfiguration();
        const RawValue value = RawQuery(c.Root, c.Key, c.Name);
        EXPECT_EQ(ERROR_SUCCESS, value.Result);
        EXPECT_EQ(c.Type, value.Type);
        EXPECT_EQ(c.Data, value.Data);
        EXPECT_FALSE(ie.IsModified());
    }
}

}  // namespace
}  // namespace rwz::test
