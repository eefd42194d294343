// The system's networking services: looked up at run time, a function the
// system lacks is a failure result; with the stand-in DLLs beside a program,
// the same lookups reach the stand-ins, never Wine's own functions.
#include <gtest/gtest.h>

#include "network/NetworkBench.h"
#include "platform/modUtilities.h"

namespace rwz::test {
namespace {

using Strings = std::vector<std::string>;

// Wine's netapi32 does not export NetJoinDomain: the lookup fails and nothing
// is called. (Its NetUnjoinDomain, NetServerSetInfo and DhcpNotifyConfigChange
// would end this process, so they are only called through the stand-ins.)
TEST(NetworkServices, AFunctionTheSystemLacksIsAFailureOfThatCall) {
    LogWatch log;
    EXPECT_EQ(static_cast<DWORD>(ERROR_PROC_NOT_FOUND),
              SystemNetworkServices().NetJoinDomain("NORTHWIND", std::nullopt, std::nullopt,
                                                    kJoinDomainOptions));
    EXPECT_TRUE(log.Contains(
        "NetworkServices - NetJoinDomain: not available on this system (netapi32.dll)"));
}

TEST(NetworkServices, TheDnsNamesComeFromTheSystem) {
    LoadMachine("win2k-pro");
    std::string name;
    ASSERT_TRUE(SystemNetworkServices().GetComputerNameExA(kNameDnsHostname, name));
    EXPECT_EQ("acct-pc07", name);
    ASSERT_TRUE(SystemNetworkServices().GetComputerNameExA(kNameDnsDomain, name));
    EXPECT_EQ("northwind.lan", name);
}

struct ProbeRun {
    DWORD ExitCode;
    Strings Results;
};

ProbeRun RunProbe(const std::string& astrFolder, const std::string& astrName,
                  const std::string& astrMode) {
    bench::MakeFolders(astrFolder);
    const std::string program = astrFolder + "\\" + astrName;
    bench::CopyFileReplacing(bench::StandInsDir() + "\\NetServicesProbe.exe", program);
    const std::string results = astrFolder + "\\results.txt";
    DeleteFileA(results.c_str());
    ProbeRun run;
    run.ExitCode = bench::RunAndWait("\"" + program + "\" \"" + results + "\" " + astrMode, 30000);
    run.Results = bench::SplitLines(bench::ReadFileText(results));
    while (!run.Results.empty() && run.Results.back().empty()) run.Results.pop_back();
    return run;
}

TEST(NetworkStandIns, AProgramBesideThemReachesThemAndTheyAnswerAsScripted) {
    const bench::Machine machine = LoadMachine("win2003-server");
    bench::NetworkStandIns standIns("C:\\probe\\NetServicesProbe.exe");
    standIns.Like(machine).Answer("NetJoinDomain", "1355,2691").Answer("NetUnjoinDomain", "2693");
    const ProbeRun run = RunProbe("C:\\probe", "NetServicesProbe.exe", "all");
    ASSERT_EQ(0u, run.ExitCode);
    EXPECT_EQ((Strings{"NetJoinDomain=1355", "NetGetJoinInformation=0 NORTHWIND 3",
                       "NetUnjoinDomain=2693", "NetJoinDomain=2691", "NetServerSetInfo=0",
                       "DhcpNotifyConfigChange=0", "DhcpNotifyConfigChange=0",
                       "GetComputerNameExA=1 nwfs01"}),
              run.Results);

    const std::vector<bench::StandInCall> calls = standIns.Calls();
    Strings functions;
    for (const bench::StandInCall& call : calls) functions.push_back(call.function);
    EXPECT_EQ((Strings{"NetJoinDomain", "NetGetJoinInformation", "NetApiBufferFree",
                       "NetUnjoinDomain", "NetJoinDomain", "NetServerSetInfo",
                       "DhcpNotifyConfigChange", "DhcpNotifyConfigChange"}),
              functions);
    ASSERT_EQ(8u, calls.size());
    EXPECT_EQ(
        "NetJoinDomain(server=(null), domain=NORTHWIND, ou=(null), account=jsmith, "
        "password=s3cret, options=33, result=1355)",
        calls[0].Describe());
    EXPECT_EQ("ours", calls[2]["buffer"]);  // the join information's buffer was freed
    EXPECT_EQ("(null)", calls[4]["account"]);
    EXPECT_EQ("0", calls[4]["options"]);
    EXPECT_EQ("1005", calls[5]["level"]);
    EXPECT_EQ("Field laptop", calls[5]["comment"]);
    EXPECT_EQ("", calls[7]["server"]);
    EXPECT_EQ("{6A3C7E10-5B2D-4F0E-9C41-8E2D5B7A9F01}", calls[7]["adapter"]);
    EXPECT_EQ("1", calls[7]["index"]);
    EXPECT_EQ("192.168.101.6", calls[7]["address"]);
    EXPECT_EQ("255.255.255.0", calls[7]["mask"]);
    EXPECT_EQ("0", calls[7]["action"]);
}

TEST(NetworkStandIns, WithoutThemTheProgramFindsWinesNetapiWithoutNetJoinDomain) {
    const ProbeRun run = RunProbe("C:\\bare", "BareProbe.exe", "join");
    ASSERT_EQ(0u, run.ExitCode);
    EXPECT_EQ(Strings{"NetJoinDomain=127"}, run.Results);
}

}  // namespace
}  // namespace rwz::test
