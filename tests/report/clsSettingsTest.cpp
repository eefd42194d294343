// The report's blocks, built from network and browser records filled by
// hand: every label, the value forms, which lines each browser gets, and the
// assembly of the whole report.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

#include "platform/AppVersion.h"
#include "report/ReportStandIns.h"
#include "report/clsSettings.h"
#include "report/modReportLayout.h"

namespace rwz {
namespace {

using test::StandInBrowser;
using test::StandInNet;

const std::string kStars(44, '*');

std::string Text(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

// The office laptop's record as the Windows 2000/XP back end holds it.
void FillOffice(StandInNet& net) {
    net.mastrAdapterList = {"Realtek RTL8139 Family PCI Fast Ethernet NIC",
                            "Intel(R) PRO/Wireless 2200BG Network Connection"};
    net.mintCurrentAdapter = 1;
    net.mstrHost = "fieldlaptop";
    net.mstrDomainName = "northwind.test";
    net.mstrIPAddress = std::string(
        "192.168.101.5\0"
        "192.168.101.6",
        27);
    net.mstrIPMask = std::string(
        "255.255.255.0\0"
        "255.255.255.0",
        27);
    net.mstrDefaultGateway = "192.168.101.1";
    net.mstrDNSServers = "192.168.101.2,192.168.101.3";
    net.mstrSearchList = "northwind.test,corp.northwind.test";
    net.mstrWINSServer1 = "192.168.101.4";
    net.mblnNTLogonEnabled = true;
    net.mstrNTDomain = "NORTHWIND";
    net.mblnDNSEnabled = true;
    net.mstrComputerName = "FIELDLAPTOP";
    net.mstrComputerDescription = "Field laptop";
    net.mstrWorkgroup = "WORKGROUP";
    net.mastrPrinterList = {"Office Laser", "Plotter"};
    net.mstrDefaultPrinter = "Office Laser";
}

TEST(GetNetSettings, ListsEveryNetworkSettingUnderItsLabel) {
    StandInNet net;
    FillOffice(net);
    EXPECT_EQ(Text({
                  kStars,
                  "*             Network Settings             *",
                  kStars,
                  "NIC.........................Intel(R) PRO/Wireless 2200BG Network Connection",
                  "Host........................fieldlaptop",
                  "Domain......................northwind.test",
                  "IP Address..................192.168.101.5, 192.168.101.6",
                  "IP Mask.....................255.255.255.0, 255.255.255.0",
                  "Default Gateway.............192.168.101.1",
                  "DNS Servers.................192.168.101.2, 192.168.101.3",
                  "DNS Order...................northwind.test, corp.northwind.test",
                  "WINS Server 1...............192.168.101.4",
                  "WINS Server 2...............",
                  "WINS Scope ID...............",
                  "Logon to NT Domain..........Yes",
                  "NT Domain...................NORTHWIND",
                  "DNS Enabled.................Yes",
                  "WINS Enabled................No",
                  "DHCP Enabled................No",
                  "Computer Name...............FIELDLAPTOP",
                  "Computer Description........Field laptop",
                  "Workgroup...................WORKGROUP",
                  "Default Printer.............Office Laser",
              }),
              clsSettings().GetNetSettings(&net));
}

TEST(GetNetSettings, SaysWhenThereIsNoAdapterOrPrinter) {
    StandInNet net;
    net.mblnDHCPEnabled = true;
    net.mstrDefaultPrinter = "Left over";  // named, but not installed
    const std::vector<std::string> lines = ReportLines(clsSettings().GetNetSettings(&net));
    ASSERT_EQ(23u, lines.size());
    EXPECT_EQ("NIC.........................No Adapters Installed", lines[3]);
    EXPECT_EQ("DHCP Enabled................Yes", lines[18]);
    EXPECT_EQ("Default Printer.............No Printers Installed", lines[22]);

    // An index past the list is no adapter either.
    net.mastrAdapterList = {"Only adapter"};
    net.mintCurrentAdapter = 3;
    EXPECT_EQ("NIC.........................No Adapters Installed",
              ReportLines(clsSettings().GetNetSettings(&net))[3]);
    EXPECT_EQ("", clsSettings().GetNetSettings(nullptr));
}

// A browser with every setting filled, so that each line shows whether it
// belongs to the browser.
void FillProxies(StandInBrowser& browser) {
    browser.Assign(&BrowserRecord::HTTPAddress, "proxy.northwind.test");
    browser.Assign(&BrowserRecord::HTTPPort, "8080");
    browser.Assign(&BrowserRecord::SecureAddress, "proxy.northwind.test");
    browser.Assign(&BrowserRecord::SecurePort, "8443");
    browser.Assign(&BrowserRecord::FTPAddress, "proxy.northwind.test");
    browser.Assign(&BrowserRecord::FTPPort, "2121");
    browser.Assign(&BrowserRecord::GopherAddress, "proxy.northwind.test");
    browser.Assign(&BrowserRecord::GopherPort, "70");
    browser.Assign(&BrowserRecord::SocksAddress, "socks.northwind.test");
    browser.Assign(&BrowserRecord::SocksPort, "1080");
    browser.Assign(&BrowserRecord::WAISAddress, "wais.northwind.test");
    browser.Assign(&BrowserRecord::WAISPort, "210");
    browser.Assign(&BrowserRecord::SocksVersion, "5");
    browser.Assign(&BrowserRecord::AutoConfigURL, "http://wpad.northwind.test/proxy.pac");
    browser.Assign(&BrowserRecord::DefaultHomePage, "http://intranet.northwind.test/");
    browser.Assign(&BrowserRecord::CurrentDUN, "Northwind Dial-Up");
    browser.Assign(&BrowserRecord::CurrentProfile, "fieldeng");
    browser.Assign(&BrowserRecord::CurrentUserAgent, "Identify as MSIE 6.0");
    browser.Assign(&BrowserRecord::EMailFullName, "Field Engineer");
    browser.Assign(&BrowserRecord::EMailAddr, "field@northwind.test");
    browser.Assign(&BrowserRecord::EMailReplyToAddr, "office@northwind.test");
    browser.Assign(&BrowserRecord::EMailPOP3Server, "pop.northwind.test");
    browser.Assign(&BrowserRecord::EMailPOP3Login, "field");
    browser.Assign(&BrowserRecord::EMailSMTPServer, "smtp.northwind.test");
    browser.Assign(&BrowserRecord::EMailSMTPLogin, "field-out");
    browser.Assign(&BrowserRecord::EMailOrganization, "Northwind Surveying");
}

TEST(GetBrowserSettings, InternetExplorerShowsItsProxiesAndDialUpChoice) {
    StandInBrowser ie(BrowserSection::InternetExplorer);
    FillProxies(ie);
    ie.SetVersionText("6.0.2900.2180", 6.0f);
    ie.Assign(&BrowserRecord::ProxyEnabled, true);
    ie.Assign(&BrowserRecord::ProxyExceptions, "*.northwind.test;10.*");
    ie.Assign(&BrowserRecord::IgnoreLocalAddresses, true);
    ie.Assign(&BrowserRecord::ConnectViaLAN, true);
    EXPECT_EQ(Text({
                  kStars,
                  "*             Internet Explorer            *",
                  kStars,
                  "Version.....................6.0.2900.2180",
                  "Use Proxy Server............Yes",
                  "HTTP Proxy Server...........proxy.northwind.test:8080",
                  "Secure Proxy Server.........proxy.northwind.test:8443",
                  "FTP Proxy Server............proxy.northwind.test:2121",
                  "Gopher Proxy Server.........proxy.northwind.test:70",
                  "Socks Proxy Server..........socks.northwind.test:1080",
                  "Proxy Exceptions............*.northwind.test, 10.*",
                  "Automatic Configuration URL.http://wpad.northwind.test/proxy.pac",
                  "Auto. Detect Settings.......No",
                  "Use Same Proxy..............No",
                  "Bypass Proxy for Intranet...Yes",
                  "Connection Type.............Connect to the Internet using a local area network",
                  "Dial-Up Account.............Northwind Dial-Up",
                  "Default Home Page...........http://intranet.northwind.test/",
              }),
              clsSettings().GetBrowserSettings(&ie, ReportBrowser::InternetExplorer));

    ie.Assign(&BrowserRecord::ConnectViaLAN, false);
    EXPECT_NE(
        std::string::npos,
        clsSettings()
            .GetBrowserSettings(&ie, ReportBrowser::InternetExplorer)
            .find("\r\nConnection Type.............Connect to the Internet using a MODEM\r\n"));
}

TEST(GetBrowserSettings, NetscapeShowsItsProfileSocksWaisAndMail) {
    StandInBrowser netscape(BrowserSection::Navigator);
    FillProxies(netscape);
    netscape.SetVersionText("", 4.79f);
    netscape.Assign(&BrowserRecord::ProxyEnabled, true);
    netscape.Assign(&BrowserRecord::ProxyExceptions, "northwind.test, localhost");
    netscape.Assign(&BrowserRecord::EMailLeaveMailOnServer, true);
    EXPECT_EQ(Text({
                  kStars,
                  "*                  Netscape                *",
                  kStars,
                  "Version.....................4.79",
                  "Profile.....................fieldeng",
                  "Connection Type.............Manual proxy configuration",
                  "Configuration Location......http://wpad.northwind.test/proxy.pac",
                  "HTTP Proxy Server...........proxy.northwind.test:8080",
                  "Secure Proxy Server.........proxy.northwind.test:8443",
                  "FTP Proxy Server............proxy.northwind.test:2121",
                  "Gopher Proxy Server.........proxy.northwind.test:70",
                  "Socks Proxy Server..........socks.northwind.test:1080",
                  "Socks Version...............5",
                  "WAIS Proxy Server...........wais.northwind.test:210",
                  "Proxy Exceptions............northwind.test, localhost",
                  "Default Home Page...........http://intranet.northwind.test/",
                  kStars,
                  "*             Netscape E-Mail              *",
                  kStars,
                  "Full Name...................Field Engineer",
                  "E-Mail Address..............field@northwind.test",
                  "Replay-To Address...........office@northwind.test",
                  "POP3 Server.................pop.northwind.test",
                  "POP3 Login Name.............field",
                  "SMTP Server.................smtp.northwind.test",
                  "SMTP Login Name.............field-out",
                  "Organization................Northwind Surveying",
                  "Leave Mail on Server........Yes",
              }),
              clsSettings().GetBrowserSettings(&netscape, ReportBrowser::Netscape));
}

TEST(GetBrowserSettings, NetscapeConnectionTypeFollowsItsProxyChoice) {
    StandInBrowser netscape(BrowserSection::Navigator);
    auto type = [&] {
        return ReportLines(clsSettings().GetBrowserSettings(&netscape, ReportBrowser::Netscape))[5];
    };
    netscape.Assign(&BrowserRecord::ConnectViaLAN, true);
    EXPECT_EQ("Connection Type.............Direct connection to the Internet", type());
    netscape.Assign(&BrowserRecord::ConnectViaLAN, false);
    EXPECT_EQ("Connection Type.............Automatic proxy configuration", type());
    netscape.Assign(&BrowserRecord::ProxyEnabled, true);
    EXPECT_EQ("Connection Type.............Manual proxy configuration", type());
}

TEST(GetBrowserSettings, OperaMarksWhatItsSwitchesTurnOff) {
    StandInBrowser opera(BrowserSection::Opera);
    FillProxies(opera);
    opera.SetVersionText("7.54", 7.54f);
    opera.Assign(&BrowserRecord::HTTPProxyEnabled, true);
    opera.Assign(&BrowserRecord::SecureProxyEnabled, true);
    opera.Assign(&BrowserRecord::GopherAddress, "");
    opera.Assign(&BrowserRecord::ProxyExceptions, "localhost,*.northwind.test");
    opera.Assign(&BrowserRecord::ProxyExceptionsEnabled, true);
    EXPECT_EQ(Text({
                  kStars,
                  "*                    Opera                 *",
                  kStars,
                  "Version.....................7.54",
                  "Browser Identification......Identify as MSIE 6.0",
                  "Connection Type.............Manual proxy configuration",
                  "HTTP Proxy Server...........proxy.northwind.test:8080",
                  "Secure Proxy Server.........proxy.northwind.test:8443",
                  "FTP Proxy Server............proxy.northwind.test:2121 (disabled)",
                  "Gopher Proxy Server.........",
                  "WAIS Proxy Server...........wais.northwind.test:210 (disabled)",
                  "Proxy Exceptions............localhost, *.northwind.test",
                  "Automatic Configuration URL.http://wpad.northwind.test/proxy.pac (disabled)",
                  "Default Home Page...........http://intranet.northwind.test/",
              }),
              clsSettings().GetBrowserSettings(&opera, ReportBrowser::Opera));

    auto type = [&] {
        return ReportLines(clsSettings().GetBrowserSettings(&opera, ReportBrowser::Opera))[5];
    };
    opera.Assign(&BrowserRecord::UseAutoConfigURL, true);
    EXPECT_EQ("Connection Type.............Automatic proxy configuration", type());
    opera.Assign(&BrowserRecord::UseAutoConfigURL, false);
    opera.Assign(&BrowserRecord::HTTPProxyEnabled, false);
    opera.Assign(&BrowserRecord::SecureProxyEnabled, false);
    EXPECT_EQ("Connection Type.............Direct connection to the Internet", type());
}

TEST(GetBrowserSettings, BannersAreFortyFourColumnsWide) {
    StandInBrowser browser(BrowserSection::Navigator);
    for (ReportBrowser kind :
         {ReportBrowser::InternetExplorer, ReportBrowser::Netscape, ReportBrowser::Opera}) {
        for (const std::string& line :
             ReportLines(clsSettings().GetBrowserSettings(&browser, kind)))
            if (!line.empty() && line[0] == '*') EXPECT_EQ(44u, line.size()) << line;
    }
    StandInNet net;
    EXPECT_EQ(44u, ReportLines(clsSettings().GetNetSettings(&net))[1].size());
}

std::string Centred(const std::string& text) {
    const long blanks = std::lrint((44 - static_cast<long>(text.size())) / 2.0);
    return std::string(static_cast<size_t>(blanks), ' ') + text;
}

TEST(FormatHeader, VersionNoticeTimeAndTheProfile) {
    ASSERT_EQ(FE_TONEAREST, std::fegetround());
    EXPECT_EQ(Text({
                  std::string(44, '-'),
                  Centred(std::string("Roamwise v") + RWZ_VERSION_TEXT),
                  Centred(clsSettings::kOwnershipNotice),
                  "            ALL RIGHTS RESERVED.",
                  "",
                  "            03/07/2005  09:05:02",
                  "",
                  std::string(44, '-'),
                  "Configuration File..........C:\\Profiles\\office.rwz",
                  "Comments....................Office, third floor",
              }),
              clsSettings::FormatHeader("03/07/2005  09:05:02", "C:\\Profiles\\office.rwz",
                                        "Office, third floor"));
}

TEST(FormatHeader, TheCurrentConfigurationHasNoFile) {
    const std::vector<std::string> lines =
        ReportLines(clsSettings::FormatHeader("03/07/2005  09:05:02", "", ""));
    ASSERT_EQ(10u, lines.size());
    EXPECT_EQ("Configuration File..........[Current Configuration]", lines[8]);
    EXPECT_EQ("Comments....................", lines[9]);
}

TEST(FormatHeader, CommentLinesContinueInTheValueColumn) {
    const std::vector<std::string> lines =
        ReportLines(clsSettings::FormatHeader("x", "f", "first\r\nsecond"));
    ASSERT_EQ(11u, lines.size());
    EXPECT_EQ("Comments....................first", lines[9]);
    EXPECT_EQ(std::string(28, ' ') + "second", lines[10]);
}

TEST(ComposeReport, HeaderThenTheAreasPresentInFixedOrderEachFollowedByAnEmptyLine) {
    StandInNet net;
    StandInBrowser ie(BrowserSection::InternetExplorer);
    StandInBrowser opera(BrowserSection::Opera);
    clsSettings settings;
    const std::string header = "HEADER\r\n";

    ReportAreas areas;
    areas.Opera = &opera;
    areas.InternetExplorer = &ie;
    areas.Net = &net;
    const std::string report = settings.ComposeReport(header, areas);
    EXPECT_EQ(header + "\r\n" + settings.GetNetSettings(&net) + "\r\n" +
                  settings.GetBrowserSettings(&ie, ReportBrowser::InternetExplorer) + "\r\n" +
                  settings.GetBrowserSettings(&opera, ReportBrowser::Opera) + "\r\n",
              report);
    EXPECT_EQ(std::string::npos, report.find("Netscape"));

    EXPECT_EQ(header + "\r\n", settings.ComposeReport(header, ReportAreas{}));
}

}  // namespace
}  // namespace rwz
