// Leaving and joining a domain or a workgroup on 2000/XP/2003 when the
// networking services refuse, where the end-to-end runs do not go: which calls
// follow a refusal and which box the user is shown. One case a row.
#include <gtest/gtest.h>

#include "network/NetworkBench.h"
#include "network/clsNetConfig2K.h"

namespace rwz::test {
namespace {

using Strings = std::vector<std::string>;

TEST(NetConfig2KJoin, LeavesThenJoinsOrReturnsTheRefusal) {
    const char* const leaveWorkgroup = "Could not disconnect from the current workgroup.";
    const char* const leaveDomain = "Could not disconnect from the current domain.";
    const char* const notChanged = "Your connection method has not been changed.";
    const Strings join = {"NetUnjoinDomain", "NetJoinDomain"}, unjoin = {"NetUnjoinDomain"};
    const struct {
        bool domain;
        DWORD unjoin, join;
        Strings calls;
        Strings box;  // the texts of the one box shown, none when empty
    } cases[] = {
        {true, 0, 0, join, {}},
        {true, 2692, 0, join, {}},  // not joined to a domain: join all the same
        {true, 87, 0, unjoin, {leaveWorkgroup, notChanged}},
        {true,
         2693,
         0,
         unjoin,
         {"A domain controller cannot have its connection method modified."}},
        {true,
         0,
         1326,
         join,
         {"There was an error attempting to join the domain.",
          "Unknown user name or bad password."}},
        {false, 0, 0, join, {}},
        {false, 2692, 0, unjoin, {}},
        {false, 87, 0, unjoin, {leaveDomain, notChanged}},
        {false,
         0,
         2695,
         join,
         {"There was an error attempting to join the workgroup.",
          "The specified workgroup does not exist."}},
    };
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    for (const auto& c : cases) {
        const std::string what = std::to_string(&c - cases);
        LoadMachine("xp-laptop");
        clsNetConfig2K config;
        config.LoadConfiguration();
        bench::NetworkStandIns services(program);
        services.Answer("NetUnjoinDomain", std::to_string(c.unjoin))
            .Answer("NetJoinDomain", std::to_string(c.join));
        config.Assign(&NetRecord::NTLogonEnabled, c.domain);
        config.Assign(&NetRecord::NTDomain, "NORTHWIND");
        config.Assign(&NetRecord::NTDomainUserName, "jsmith");
        config.Assign(&NetRecord::Workgroup, "HOME");
        const Strings boxes = config.ApplyConfiguration();
        Strings calls;
        for (const bench::StandInCall& call : services.Calls()) calls.push_back(call.function);
        EXPECT_EQ(c.calls, calls) << what;
        for (const bench::StandInCall& call : services.Calls("NetJoinDomain")) {
            EXPECT_EQ(c.domain ? "NORTHWIND" : "HOME", call["domain"]) << what;
            EXPECT_EQ(c.domain ? "33" : "0", call["options"]) << what;
        }
        EXPECT_EQ(c.box.empty() ? Strings{} : Strings{BoxText(c.box)}, boxes) << what;
    }
}

}  // namespace
}  // namespace rwz::test
