// The settings report: the settings of a profile (the one loaded from a file,
// or the machine's current configuration) as plain text of fixed-width lines,
// exported to a text file or printed.
//
//   clsSettings report;
//   report.ExportAllSettings(config, "C:\\Temp\\office.txt");
//   report.PrintAllSettings(config);           // on the default printer
//
// Layout: the header, then the network block and one block per browser
// (Internet Explorer, Netscape, Opera) for each area the profile has enabled,
// each followed by an empty line. Lines end in CR LF.
#pragma once

#include <windows.h>

#include <string>

#include "browsers/IBrowser.h"
#include "network/INetConfig.h"

namespace rwz {

class clsRwzConfig;

// Which browser a block describes: it decides the banner and the lines that
// apply.
enum class ReportBrowser { InternetExplorer, Netscape, Opera };

// The areas that go into a report; nullptr leaves an area out.
struct ReportAreas {
    const INetConfig* Net = nullptr;
    const IBrowser* InternetExplorer = nullptr;
    const IBrowser* Netscape = nullptr;
    const IBrowser* Opera = nullptr;
};

class clsSettings {
  public:
    // The product's ownership notice under the version line.
    static constexpr const char* kOwnershipNotice = "Copyright (C) The Roamwise Developers";
    // Shown, with the stop icon, for an export without a file name.
    static constexpr const char* kMissingFileName = "Missing export filename.";
    static constexpr const char* kCurrentConfiguration = "[Current Configuration]";
    static constexpr const char* kNoAdapters = "No Adapters Installed";
    static constexpr const char* kNoPrinters = "No Printers Installed";
    // Appended to an Opera setting whose switch is off.
    static constexpr const char* kDisabledMark = " (disabled)";

    // The header block: version, notice, the time of the report, the profile's
    // file (or "[Current Configuration]") and its comments.
    std::string GetHeader(const clsRwzConfig& aobjConfig);
    // The network block of a network record.
    std::string GetNetSettings(const INetConfig* aobjNet);
    // One browser's block.
    std::string GetBrowserSettings(const IBrowser* aobjBrowser, ReportBrowser aBrowser);
    // The whole report of the profile.
    std::string GetAllSettings(const clsRwzConfig& aobjConfig);

    // Prints the report. With an owner window the user picks the printer in
    // the Print dialog (the default one is offered); without, the report goes
    // straight to the default printer. True when a document was printed;
    // false when cancelled, on a machine without printers, or on an error
    // (written to the log).
    bool PrintAllSettings(const clsRwzConfig& aobjConfig, HWND ahOwner = nullptr);
    // PrintAllSettings for a finished report; errors are raised.
    bool PrintReport(const std::string& astrReport, HWND ahOwner = nullptr);
    // Writes the report to the file, replacing what it held. A blank name
    // shows "Missing export filename." and writes nothing. True when written.
    bool ExportAllSettings(const clsRwzConfig& aobjConfig, const std::string& astrFile);

    // The header for given texts (the time already formatted).
    static std::string FormatHeader(const std::string& astrDateTime,
                                    const std::string& astrConfFile,
                                    const std::string& astrComments);
    // The header followed by the block of each area present, each block
    // followed by an empty line.
    std::string ComposeReport(const std::string& astrHeader, const ReportAreas& aAreas);
    // The areas the profile has enabled, among those it has a back end for.
    static ReportAreas EnabledAreas(const clsRwzConfig& aobjConfig);
};

}  // namespace rwz
