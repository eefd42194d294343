#include "report/clsSettings.h"

#include <commdlg.h>

#include <cstdio>
#include <vector>

#include "localization/modLocalization.h"
#include "platform/AppVersion.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "platform/Win32Handles.h"
#include "platform/modLogging.h"
#include "platform/modSafeFile.h"
#include "platform/modUtilities.h"
#include "profile/clsRwzConfig.h"
#include "report/modReportLayout.h"
#include "report/modReportPrinter.h"

namespace rwz {

namespace {

const char kObject[] = "clsSettings";
const char kTitle[] = "Roamwise";

const char kNetworkTitle[] = "*             Network Settings             *";
const char kInternetExplorerTitle[] = "*             Internet Explorer            *";
const char kNetscapeTitle[] = "*                  Netscape                *";
const char kOperaTitle[] = "*                    Opera                 *";
const char kNetscapeMailTitle[] = "*             Netscape E-Mail              *";

const char kDirectConnection[] = "Direct connection to the Internet";
const char kManualProxy[] = "Manual proxy configuration";
const char kAutomaticProxy[] = "Automatic proxy configuration";
const char kViaLAN[] = "Connect to the Internet using a local area network";
const char kViaModem[] = "Connect to the Internet using a MODEM";

// Collects report lines, each ended by CR LF.
class Lines {
  public:
    void Add(const std::string& astrLine) { mstrText += astrLine + kReportLineEnd; }
    void Add(const std::string& astrLabel, const std::string& astrValue) {
        Add(ReportLine(astrLabel, astrValue));
    }
    // A text literal would otherwise be taken for a flag.
    void Add(const std::string& astrLabel, const char* aszValue) {
        Add(astrLabel, std::string(aszValue));
    }
    void Add(const std::string& astrLabel, bool ablnValue) { Add(astrLabel, YesNo(ablnValue)); }
    void Banner(const char* aszTitle) { mstrText += ReportBanner(aszTitle); }
    const std::string& Text() const { return mstrText; }

  private:
    std::string mstrText;
};

// A value with line breaks in it goes on over further lines in the value column.
std::string MultiLineValue(const std::string& astrValue) {
    std::vector<std::string> lines = ReportLines(astrValue);
    std::string value;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) value += kReportLineEnd + std::string(kReportLabelWidth, ' ');
        value += lines[i];
    }
    return value;
}

std::string VersionText(const IBrowser& aBrowser) {
    if (!aBrowser.VersionString().empty()) return aBrowser.VersionString();
    if (aBrowser.Version() <= 0) return std::string();
    char text[32];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(aBrowser.Version()));
    return text;
}

bool AnyOperaProxy(const IBrowser& aBrowser) {
    return aBrowser.Record().HTTPProxyEnabled || aBrowser.Record().SecureProxyEnabled ||
           aBrowser.Record().FTPProxyEnabled || aBrowser.Record().GopherProxyEnabled ||
           aBrowser.Record().WAISProxyEnabled;
}

// How the browser finds its proxy. Netscape keeps one choice; Opera's
// automatic configuration wins over its per-protocol switches.
std::string ProxyConnectionType(const IBrowser& aBrowser, ReportBrowser aKind) {
    if (aKind == ReportBrowser::Netscape) {
        if (aBrowser.Record().ProxyEnabled) return kManualProxy;
        if (aBrowser.Record().ConnectViaLAN) return kDirectConnection;
        return kAutomaticProxy;
    }
    if (aBrowser.Record().UseAutoConfigURL) return kAutomaticProxy;
    if (AnyOperaProxy(aBrowser)) return kManualProxy;
    return kDirectConnection;
}

// Opera keeps a switch beside each setting: a value that is switched off is
// still shown, marked.
std::string Switched(const std::string& astrValue, bool ablnOn) {
    if (astrValue.empty() || ablnOn) return astrValue;
    return astrValue + clsSettings::kDisabledMark;
}

void LogPrintSkipped(const std::string& astrWhy) {
    WriteLog(std::string(kObject) + " - PrintAllSettings: " + astrWhy + " - nothing printed",
             kLogWarning);
}

}  // namespace

std::string clsSettings::FormatHeader(const std::string& astrDateTime,
                                      const std::string& astrConfFile,
                                      const std::string& astrComments) {
    Lines lines;
    lines.Add(ReportRule());
    lines.Add(CenterText(std::string(RWZ_PRODUCT_NAME) + " v" + ProgramVersionText()));
    lines.Add(CenterText(kOwnershipNotice));
    lines.Add(CenterText("ALL RIGHTS RESERVED."));
    lines.Add(std::string());
    lines.Add(CenterText(astrDateTime));
    lines.Add(std::string());
    lines.Add(ReportRule());
    lines.Add("Configuration File", astrConfFile.empty() ? kCurrentConfiguration : astrConfFile);
    lines.Add("Comments", MultiLineValue(astrComments));
    return lines.Text();
}

std::string clsSettings::GetHeader(const clsRwzConfig& aobjConfig) {
    Procedure proc(kObject, "GetHeader");
    return proc.Run([&] {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return FormatHeader(
            ReportDateTime(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond),
            aobjConfig.ConfFile(), aobjConfig.Comments());
    });
}

std::string clsSettings::GetNetSettings(const INetConfig* aobjNet) {
    Procedure proc(kObject, "GetNetSettings");
    return proc.Run([&] {
        if (!aobjNet) return std::string();
        const NetRecord& net = aobjNet->Record();
        Lines lines;
        lines.Banner(kNetworkTitle);

        const std::vector<std::string>& adapters = net.AdapterList;
        const int adapter = net.CurrentAdapter;
        lines.Add("NIC", adapter >= 0 && adapter < static_cast<int>(adapters.size())
                             ? adapters[static_cast<size_t>(adapter)]
                             : std::string(kNoAdapters));
        lines.Add("Host", net.Host);
        lines.Add("Domain", net.DomainName);
        lines.Add("IP Address", ReportList(net.IPAddress));
        lines.Add("IP Mask", ReportList(net.IPMask));
        lines.Add("Default Gateway", ReportList(net.DefaultGateway));
        lines.Add("DNS Servers", ReportList(net.DNSServers));
        lines.Add("DNS Order", ReportList(net.SearchList));
        lines.Add("WINS Server 1", net.WINSServer1);
        lines.Add("WINS Server 2", net.WINSServer2);
        lines.Add("WINS Scope ID", net.ScopeID);
        lines.Add("Logon to NT Domain", net.NTLogonEnabled);
        lines.Add("NT Domain", net.NTDomain);
        lines.Add("DNS Enabled", net.DNSEnabled);
        lines.Add("WINS Enabled", net.WINSEnabled);
        lines.Add("DHCP Enabled", net.DHCPEnabled);
        lines.Add("Computer Name", net.ComputerName);
        lines.Add("Computer Description", MultiLineValue(net.ComputerDescription));
        lines.Add("Workgroup", net.Workgroup);
        lines.Add("Default Printer",
                  net.printerList.empty() ? std::string(kNoPrinters) : net.DefaultPrinter);
        return lines.Text();
    });
}

std::string clsSettings::GetBrowserSettings(const IBrowser* aobjBrowser, ReportBrowser aBrowser) {
    Procedure proc(kObject, "GetBrowserSettings");
    return proc.Run([&] {
        if (!aobjBrowser) return std::string();
        const IBrowser& browser = *aobjBrowser;
        const bool ie = aBrowser == ReportBrowser::InternetExplorer;
        const bool netscape = aBrowser == ReportBrowser::Netscape;
        const bool opera = aBrowser == ReportBrowser::Opera;
        // Opera shows each proxy with its switch; the others by their address.
        auto proxy = [&](const std::string& host, const std::string& port, bool on) {
            return Switched(ReportProxy(host, port), !opera || on);
        };

        Lines lines;
        lines.Banner(ie ? kInternetExplorerTitle : netscape ? kNetscapeTitle : kOperaTitle);
        lines.Add("Version", VersionText(browser));
        if (opera) lines.Add("Browser Identification", browser.Record().CurrentUserAgent);
        if (netscape) lines.Add("Profile", browser.Record().CurrentProfile);

        // Internet Explorer's proxy choice is told by the lines below; its
        // connection type is the dial-up choice further down.
        if (!ie) lines.Add("Connection Type", ProxyConnectionType(browser, aBrowser));
        if (netscape) lines.Add("Configuration Location", browser.Record().AutoConfigURL);
        if (ie) lines.Add("Use Proxy Server", browser.Record().ProxyEnabled);
        lines.Add("HTTP Proxy Server",
                  proxy(browser.Record().HTTPAddress, browser.Record().HTTPPort,
                        browser.Record().HTTPProxyEnabled));
        lines.Add("Secure Proxy Server",
                  proxy(browser.Record().SecureAddress, browser.Record().SecurePort,
                        browser.Record().SecureProxyEnabled));
        lines.Add("FTP Proxy Server", proxy(browser.Record().FTPAddress, browser.Record().FTPPort,
                                            browser.Record().FTPProxyEnabled));
        lines.Add("Gopher Proxy Server",
                  proxy(browser.Record().GopherAddress, browser.Record().GopherPort,
                        browser.Record().GopherProxyEnabled));
        if (!opera)
            lines.Add("Socks Proxy Server",
                      ReportProxy(browser.Record().SocksAddress, browser.Record().SocksPort));
        if (netscape) lines.Add("Socks Version", browser.Record().SocksVersion);
        if (!ie)
            lines.Add("WAIS Proxy Server",
                      proxy(browser.Record().WAISAddress, browser.Record().WAISPort,
                            browser.Record().WAISProxyEnabled));
        lines.Add("Proxy Exceptions", Switched(ReportList(browser.Record().ProxyExceptions),
                                               !opera || browser.Record().ProxyExceptionsEnabled));
        if (!netscape)
            lines.Add("Automatic Configuration URL",
                      Switched(browser.Record().AutoConfigURL,
                               !opera || browser.Record().UseAutoConfigURL));
        if (ie) {
            lines.Add("Auto. Detect Settings", browser.Record().AutoDetectSettings);
            lines.Add("Use Same Proxy", browser.Record().UseSameProxy);
            lines.Add("Bypass Proxy for Intranet", browser.Record().IgnoreLocalAddresses);
            lines.Add("Connection Type", browser.Record().ConnectViaLAN ? kViaLAN : kViaModem);
            lines.Add("Dial-Up Account", browser.Record().CurrentDUN);
        }
        lines.Add("Default Home Page", browser.Record().DefaultHomePage);

        if (netscape) {
            lines.Banner(kNetscapeMailTitle);
            lines.Add("Full Name", browser.Record().EMailFullName);
            lines.Add("E-Mail Address", browser.Record().EMailAddr);
            lines.Add("Replay-To Address", browser.Record().EMailReplyToAddr);
            lines.Add("POP3 Server", browser.Record().EMailPOP3Server);
            lines.Add("POP3 Login Name", browser.Record().EMailPOP3Login);
            lines.Add("SMTP Server", browser.Record().EMailSMTPServer);
            lines.Add("SMTP Login Name", browser.Record().EMailSMTPLogin);
            lines.Add("Organization", browser.Record().EMailOrganization);
            lines.Add("Leave Mail on Server", browser.Record().EMailLeaveMailOnServer);
        }
        return lines.Text();
    });
}

ReportAreas clsSettings::EnabledAreas(const clsRwzConfig& aobjConfig) {
    ReportAreas areas;
    if (aobjConfig.ApplyGeneral()) areas.Net = aobjConfig.GetNetConfig();
    if (aobjConfig.ApplyIE()) areas.InternetExplorer = aobjConfig.GetIEConfig();
    if (aobjConfig.ApplyNN()) areas.Netscape = aobjConfig.GetNNConfig();
    if (aobjConfig.ApplyOpera()) areas.Opera = aobjConfig.GetOperaConfig();
    return areas;
}

std::string clsSettings::ComposeReport(const std::string& astrHeader, const ReportAreas& aAreas) {
    std::string report = astrHeader + kReportLineEnd;
    if (aAreas.Net) report += GetNetSettings(aAreas.Net) + kReportLineEnd;
    const std::pair<const IBrowser*, ReportBrowser> browsers[] = {
        {aAreas.InternetExplorer, ReportBrowser::InternetExplorer},
        {aAreas.Netscape, ReportBrowser::Netscape},
        {aAreas.Opera, ReportBrowser::Opera},
    };
    for (const auto& [browser, kind] : browsers)
        if (browser) report += GetBrowserSettings(browser, kind) + kReportLineEnd;
    return report;
}

std::string clsSettings::GetAllSettings(const clsRwzConfig& aobjConfig) {
    return ComposeReport(GetHeader(aobjConfig), EnabledAreas(aobjConfig));
}

bool clsSettings::ExportAllSettings(const clsRwzConfig& aobjConfig, const std::string& astrFile) {
    Procedure proc(kObject, "ExportAllSettings");
    return proc.Run([&] {
        const std::string file = Trim(astrFile);
        if (file.empty()) {
            ShowMessage(kMissingFileName, MB_OK | MB_ICONSTOP, kTitle);
            return false;
        }
        proc.LogValue(file);
        WaitCursor hourglass;
        const std::string report = GetAllSettings(aobjConfig);
        // Written whole or not at all: an earlier report stays until the new one is complete.
        WriteFileSafely(file, report);
        return true;
    });
}

bool clsSettings::PrintAllSettings(const clsRwzConfig& aobjConfig, HWND ahOwner) {
    Procedure proc(kObject, "PrintAllSettings");
    return proc.Run([&] { return PrintReport(GetAllSettings(aobjConfig), ahOwner); });
}

bool clsSettings::PrintReport(const std::string& astrReport, HWND ahOwner) {
    HDC dc = nullptr;
    std::string printer;
    if (ahOwner) {
        PRINTDLGA dialog{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = ahOwner;
        dialog.Flags = PD_RETURNDC | PD_NOPAGENUMS | PD_NOSELECTION | PD_HIDEPRINTTOFILE;
        const BOOL chosen = PrintDlgA(&dialog);
        const DWORD failure = chosen ? 0 : CommDlgExtendedError();
        if (dialog.hDevNames) {
            if (const auto* names = static_cast<const DEVNAMES*>(GlobalLock(dialog.hDevNames))) {
                printer = reinterpret_cast<const char*>(names) + names->wDeviceOffset;
                GlobalUnlock(dialog.hDevNames);
            }
            GlobalFree(dialog.hDevNames);
        }
        if (dialog.hDevMode) GlobalFree(dialog.hDevMode);
        if (!chosen) {
            // The dialog itself tells the user that there is no printer.
            if (failure == PDERR_NODEFAULTPRN) LogPrintSkipped(kNoPrinters);
            return false;
        }
        dc = dialog.hDC;
    } else {
        PrinterDevice device;
        if (!GetDefaultPrinterDevice(device)) {
            LogPrintSkipped(CountPrinters() == 0 ? kNoPrinters : "No default printer is set");
            return false;
        }
        printer = device.Name;
        dc = CreatePrinterDC(device);
        if (!dc) {
            LogPrintSkipped("The printer " + printer + " cannot be opened (error " +
                            std::to_string(GetLastError()) + ")");
            return false;
        }
    }
    struct DCOwner {
        HDC dc;
        ~DCOwner() { DeleteDC(dc); }
    } owner{dc};

    WaitCursor hourglass;
    const int pages = PrintReportOnDC(dc, astrReport);
    WriteLog(std::string(kObject) + " - PrintAllSettings: " + std::to_string(pages) +
                 " page(s) printed on " + printer,
             kLogInformation);
    return true;
}

}  // namespace rwz
