// What the three browser back ends share: the reading and writing of the
// browser's section of a profile file, through one table of the keys of every
// section. A back end adds how its live browser is read and written.
#pragma once

#include <string>

#include "browsers/IBrowser.h"

namespace rwz {

// The profile file section each back end owns.
enum class BrowserSection { InternetExplorer, Navigator, Opera };

// "Internet Explorer", "Netscape Navigator" or "Opera": the section's name,
// which is also its key in [Enabled Sections].
const char* BrowserSectionName(BrowserSection aSection);

class clsBrowserBase : public IBrowser {
  public:
    // A value that keeps the setting the record already holds.
    static constexpr const char* kIgnoreValue = "{IGNORE}";

    // Reading fills every key's setting (a missing key empties it, "{IGNORE}"
    // keeps it); writing writes every key in the section's order. File errors
    // are passed on to the caller.
    void LoadConfigurationFile(const std::string& astrFile) override;
    void SaveConfigurationFile(const std::string& astrFile) override;

  protected:
    // `astrLogTag` is the object name of the back end's log lines ("clsOpera").
    clsBrowserBase(BrowserSection aSection, const char* astrLogTag);

    const char* LogTag() const { return mLogTag; }
    // A failure the user must see: the exclamation box titled "Roamwise".
    static void ShowBrowserMessage(const std::string& astrText);

    // Internet Explorer keeps its proxies in one "ProxyServer" text, in its
    // section as in the registry; its back end splits and composes it with the
    // same code in both places.
    virtual void SplitProxyServer(const std::string& /*astrProxyServer*/) {}
    virtual std::string ComposeProxyServer() const { return std::string(); }

  private:
    BrowserSection mSection;
    const char* mLogTag;
};

}  // namespace rwz
