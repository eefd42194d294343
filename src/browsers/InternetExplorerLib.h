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

namespace rwz {

class InternetExplorerLib : public clsBrowserBase {
  public:
    // `astrOSTag` says where the dial-up entries are: the user's RemoteAccess
    // key on "9x", the dial-up service's list elsewhere.
    explicit InternetExplorerLib(const std::string& astrOSTag);
    InternetExplorerLib();

    // The live operations below hide the property setters of the same names.
    using clsBrowserBase::SetAutoConfigURL;
    using clsBrowserBase::SetAutoDetectSettings;
    using clsBrowserBase::SetConnectViaLAN;
    using clsBrowserBase::SetDefaultHomePage;
    using clsBrowserBase::SetDisablePWDCache;
    using clsBrowserBase::SetProxyEnabled;
    using clsBrowserBase::SetProxyExceptions;

    void GetDisablePWDCache() override;
    void SetDisablePWDCache() override;
    void GetDUNList() override;
    void GetAutoDetectSettings() override;
    void GetAutoConfigURL() override;
    void GetConnectViaLAN() override;
    void SetConnectViaLAN() override;
    void SetDefaultHomePage() override;
    void SetDUN() override;
    void SetProxyAddresses() override;
    void SetProxyEnabled() override;
    void SetProxyExceptions() override;
    void LoadConfiguration() override;
    void ApplyConfiguration() override;
    // The section's keys; an automatic configuration URL is in use exactly
    // when the profile names one, as in the registry.
    void LoadConfigurationFile(const std::string& astrFile) override;
    void GetProxyAddresses() override;
    void GetProxyEnabled() override;
    void GetProxyExceptions() override;
    void GetDefaultHomePage() override;
    void SetAutoDetectSettings() override;
    void SetAutoConfigURL() override;

  protected:
    void SplitProxyServer(const std::string& astrProxyServer) override;
    std::string ComposeProxyServer() const override;

  private:
    ProxyServerList ProxyList() const;
    void TakeProxyList(const ProxyServerList& aList);

    std::string mstrOSTag;
};

}  // namespace rwz
