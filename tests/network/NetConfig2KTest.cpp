// The Windows 2000/XP/2003 network back end where the simulated machines'
// end-to-end runs cannot look: the profile key table, the flags the WINS
// switch sets, the apply order, and joining a domain or a workgroup.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "network/NetworkBench.h"
#include "network/clsNetConfig2K.h"

namespace rwz::test {
namespace {

using Strings = std::vector<std::string>;

std::string TempProfile(const std::string& astrName) {
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    const std::string path = std::string(temp) + astrName;
    DeleteFileA(path.c_str());
    return path;
}

// Each key of a profile section in file order, as "key=value".
Strings SectionLines(const std::string& astrFile, const char* astrSection) {
    std::vector<char> buffer(8192);
    const DWORD length = GetPrivateProfileSectionA(
        astrSection, buffer.data(), static_cast<DWORD>(buffer.size()), astrFile.c_str());
    Strings lines;
    for (const char* line = buffer.data(); line < buffer.data() + length && *line;
         line += strlen(line) + 1)
        lines.push_back(line);
    return lines;
}

class NetConfig2KTest : public ::testing::Test {
  protected:
    std::unique_ptr<clsNetConfig2K> Capture(const char* astrMachine = "xp-laptop") {
        LoadMachine(astrMachine);
        auto config = std::make_unique<clsNetConfig2K>();
        config->LoadConfiguration();
        mServices.ClearCalls();
        return config;
    }

    RecordingServices mServices;
};

TEST_F(NetConfig2KTest, SavesEveryKeyUnderItsNameInItsOrderAndReadsItBack) {
    auto config = Capture();
    config->Assign(&NetRecord::NTDomainUserName, "jsmith");
    const std::string file = TempProfile("golden.rwz");
    config->SaveConfigurationfile(file);
    const std::string golden = bench::SourceDir() + "\\tests\\network\\xp-laptop.rwz";
    for (const char* section : {"Network", "Printer"}) {
        Strings lines = SectionLines(file, section);
        for (std::string& line : lines)
            if (line.rfind("NTDomainUserName=", 0) == 0 && line != "NTDomainUserName=jsmith")
                line = "NTDomainUserName=(scrambled)";
        EXPECT_EQ(SectionLines(golden, section), lines) << section;
    }

    // Read back on another machine, every key but the adapter's saves the same.
    auto other = Capture("win2k-pro");
    other->LoadConfigurationFile(file);
    EXPECT_EQ("jsmith", other->Record().NTDomainUserName);
    const std::string again = TempProfile("again.rwz");
    other->SaveConfigurationfile(again);
    Strings saved = SectionLines(file, "Network"), resaved = SectionLines(again, "Network");
    ASSERT_EQ(saved.size(), resaved.size());
    EXPECT_EQ(Strings(saved.begin() + 1, saved.end()), Strings(resaved.begin() + 1, resaved.end()));
    EXPECT_EQ(SectionLines(file, "Printer"), SectionLines(again, "Printer"));
}

TEST_F(NetConfig2KTest, SwitchingWinsFlagsTheServersAProfileLoadedUnflagged) {
    auto config = Capture();
    const std::string file = TempProfile("wins.rwz");
    WritePrivateProfileStringA("Network", "NameServer1", "10.9.9.1", file.c_str());
    config->LoadConfigurationFile(file);
    EXPECT_FALSE(config->IsChanged(NetSetting::WINSServer1));
    config->Assign(&NetRecord::WINSEnabled, true);
    EXPECT_TRUE(config->Record().ResetRequired);
    for (NetSetting setting : {NetSetting::WINSEnabled, NetSetting::WINSServer1,
                               NetSetting::WINSServer2, NetSetting::ScopeID})
        EXPECT_TRUE(config->IsChanged(setting)) << static_cast<int>(setting);
}

TEST_F(NetConfig2KTest, AppliesInTheFixedOrder) {
    auto config = Capture();
    // Assigned in reverse, so that the order comes from the apply alone.
    config->Assign(&NetRecord::DefaultPrinter, "EPSON Stylus C84 Series");
    config->Assign(&NetRecord::SearchList, "a.lan");
    config->Assign(&NetRecord::DNSEnabled, true);
    config->Assign(&NetRecord::ScopeID, "");
    config->Assign(&NetRecord::WINSServer2, "10.0.0.9");
    config->Assign(&NetRecord::WINSServer1, "10.0.0.8");
    config->Assign(&NetRecord::WINSEnabled, true);
    config->Assign(&NetRecord::DNSServers, "10.0.0.2");
    config->Assign(&NetRecord::LMHostFile, "");
    config->Assign(&NetRecord::IPMask, "255.0.0.0");
    config->Assign(&NetRecord::IPAddress, "10.0.0.5");
    config->Assign(&NetRecord::DefaultGateway, "10.0.0.1");
    config->Assign(&NetRecord::DHCPEnabled, false);
    config->Assign(&NetRecord::Host, "roamer");
    config->Assign(&NetRecord::DomainName, "office.lan");
    config->Assign(&NetRecord::Workgroup, "HOME");
    config->Assign(&NetRecord::NTDomain, "NORTHWIND");
    config->Assign(&NetRecord::NTLogonEnabled, false);
    config->Assign(&NetRecord::ComputerDescription, "Spare");
    config->Assign(&NetRecord::ComputerName, "ROAMER");
    LogWatch log;
    EXPECT_TRUE(config->ApplyConfiguration().empty());
    Strings operations;
    for (const std::string& line : log.Lines()) {
        const std::string head = "clsNetConfig2K - Set";
        if (line.rfind(head, 0) == 0 &&
            line.find_first_of(" :=[", head.size()) == std::string::npos)
            operations.push_back(line.substr(17));
    }
    EXPECT_EQ((Strings{"SetComputerName",   "SetComputerDescription",
                       "SetNTLogon",        "SetNTDomain",
                       "SetWorkgroup",      "SetDomain",
                       "SetHost",           "SetDHCPEnabled",
                       "SetDefaultGateway", "SetIPAddress",
                       "SetIPMask",         "SetLMHostFile",
                       "SetDNSServers",     "SetWINSEnabled",
                       "SetWINSServer1",    "SetWINSServer2",
                       "SetWINSServer1",    "SetScopeID",
                       "SetSearchList",     "SetDNSEnabled",
                       "SetDefaultPrinter", "SetAdvPrinterSettings"}),
              operations);
}

struct JoinCase {
    const char* Name;
    bool Domain;
    DWORD Unjoin, Join;
    Strings Calls;
    Strings Box;  // the texts of the one box shown, empty for none
};

class NetConfig2KJoin : public NetConfig2KTest, public ::testing::WithParamInterface<JoinCase> {};

TEST_P(NetConfig2KJoin, LeavesThenJoinsOrReturnsTheRefusal) {
    const JoinCase& x = GetParam();
    auto config = Capture();
    mServices.Answer("NetUnjoinDomain", {x.Unjoin}).Answer("NetJoinDomain", {x.Join});
    config->Assign(&NetRecord::NTLogonEnabled, x.Domain);
    config->Assign(&NetRecord::NTDomain, "NORTHWIND");
    config->Assign(&NetRecord::NTDomainUserName, "jsmith");
    config->Assign(&NetRecord::Workgroup, "HOME");
    const Strings boxes = config->ApplyConfiguration();
    EXPECT_EQ(x.Calls, mServices.Functions());
    for (const bench::StandInCall& join : mServices.Calls("NetJoinDomain")) {
        EXPECT_EQ(x.Domain ? "NORTHWIND" : "HOME", join["domain"]);
        EXPECT_EQ(x.Domain ? "33" : "0", join["options"]);
    }
    EXPECT_EQ(x.Box.empty() ? Strings{} : Strings{BoxText(x.Box)}, boxes);
}

const char kLeaveWorkgroup[] = "Could not disconnect from the current workgroup.";
const char kLeaveDomain[] = "Could not disconnect from the current domain.";
const char kNotChanged[] = "Your connection method has not been changed.";
const char kController[] = "A domain controller cannot have its connection method modified.";
const char kDomainError[] = "There was an error attempting to join the domain.";
const char kWorkgroupError[] = "There was an error attempting to join the workgroup.";
const Strings kJoin = {"NetUnjoinDomain", "NetJoinDomain"};
const Strings kUnjoin = {"NetUnjoinDomain"};

// clang-format off
INSTANTIATE_TEST_SUITE_P(Membership, NetConfig2KJoin, ::testing::Values(
    JoinCase{"Domain", true, 0, 0, kJoin, {}},
    JoinCase{"DomainAfterAFailedUnjoin", true, 2692, 0, kJoin, {}},
    JoinCase{"DomainUnjoinRefused", true, 87, 0, kUnjoin, {kLeaveWorkgroup, kNotChanged}},
    JoinCase{"DomainOnAController", true, 2693, 0, kUnjoin, {kController}},
    JoinCase{"DomainBadPassword", true, 0, 1326, kJoin, {kDomainError, "Unknown user name or bad password."}},
    JoinCase{"Workgroup", false, 0, 0, kJoin, {}},
    JoinCase{"WorkgroupAfterAFailedUnjoinIsSilent", false, 2692, 0, kUnjoin, {}},
    JoinCase{"WorkgroupUnjoinRefused", false, 87, 0, kUnjoin, {kLeaveDomain, kNotChanged}},
    JoinCase{"WorkgroupDoesNotExist", false, 0, 2695, kJoin, {kWorkgroupError, "The specified workgroup does not exist."}}),
    [](const ::testing::TestParamInfo<JoinCase>& info) { return std::string(info.param.Name); });
// clang-format on

TEST(NetResultText, HasATextForEveryKnownCode) {
    // clang-format off
    const std::pair<DWORD, const char*> codes[] = {
        {5, "Access denied (check your User Name and Password)."},
        {87, "Your connection method has not been changed."},
        {1323, "Unable to update the password. The value provided as the current password is incorrect."},
        {1326, "Unknown user name or bad password."},
        {1327, "User account restriction."},
        {1328, "Account logon time restriction violation."},
        {1329, "User not allowed to logon to this computer."},
        {1331, "Account currently disabled."},
        {1332, "No mapping between account names and security IDs was done."},
        {1355, "The specified domain does not exist."},
        {1793, "Account expired."},
        {2691, "This computer is already joined to a domain."},
        {2695, "The specified workgroup does not exist."},
        {127, "Undefined Error (127)."}};
    // clang-format on
    for (const auto& code : codes) EXPECT_EQ(code.second, NetResultText(code.first)) << code.first;
}

}  // namespace
}  // namespace rwz::test
