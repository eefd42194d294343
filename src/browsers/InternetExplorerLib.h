// Internet Explorer's settings: the user's Internet Settings in the registry,
// the home page, and the dial-up entry used to reach the Internet. Kept in the
// profile section "Internet Explorer".
//
// Writing leaves a registry value alone when the profile does not change what
// it means, so a value Internet Explorer wrote in a form of its own (a list in
// another order, an entry of a protocol not handled here, a binary flag) keeps
// that form.
#pragma once

#include <string>

#include "browsers/clsBrowserBase.h"
#include "browsers/modProxyServer.h"
#include "platform/modAPI.h"

namespace rwz {

class Procedure;

class InternetExplorerLib : public clsBrowserBase {
  public:
    // `aFamily` says where the dial-up entries are: the user's RemoteAccess
    // key on Windows 9x, the dial-up service's list elsewhere.
    explicit InternetExplorerLib(OSFamily aFamily);
    InternetExplorerLib();

    void LoadConfiguration() override;
    void ApplyConfiguration() override;

  protected:
    void SplitProxyServer(const std::string& astrProxyServer) override;
    std::string ComposeProxyServer() const override;

  private:
    struct Setting;
    static const Setting kSettings[];
    void Read(const Setting& aSetting, const Procedure& aProc);
    void Write(const Setting& aSetting, const Procedure& aProc);

    // The settings that need code of their own.
    void GetProxyAddresses(const Procedure& aProc);
    void SetProxyAddresses(const Procedure& aProc);
    void GetProxyExceptions(const Procedure& aProc);
    void SetProxyExceptions(const Procedure& aProc);
    void GetDUNList(const Procedure& aProc);
    void SetDUN(const Procedure& aProc);
    void GetAutoDetectSettings(const Procedure& aProc);
    void SetAutoDetectSettings(const Procedure& aProc);
    void GetAutoConfigURL(const Procedure& aProc);
    void SetAutoConfigURL(const Procedure& aProc);

    ProxyServerList ProxyList() const;
    void TakeProxyList(const ProxyServerList& aList);

    OSFamily mFamily;
};

}  // namespace rwz
