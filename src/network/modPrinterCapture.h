// Capturing a printer port: a local device (LPT1 to LPT8) connected to a
// network printer, through the network provider router (mpr.dll). Its
// functions are looked up at run time, so the program loads where the router
// is missing; a missing function answers ERROR_PROC_NOT_FOUND.
#pragma once

#include <windows.h>

#include <string>

namespace rwz {

// The capture device of a profile that captures nothing.
inline constexpr char kNoCapture[] = "(None)";

// LPT1 to LPT8, in any case.
bool IsCaptureDevice(const std::string& astrDevice);
// A network printer path: \\server\printer.
bool IsPrinterPath(const std::string& astrPath);

// Drops the device's connection and its reconnection at logon
// (WNetCancelConnection2A with CONNECT_UPDATE_PROFILE).
DWORD CancelCapture(const std::string& astrDevice, bool ablnForce);
// Connects the device to the path (WNetAddConnection2A, a print resource);
// with `ablnReconnect` the system restores it at every logon. 0 on success,
// else the provider's code.
DWORD AddCapture(const std::string& astrDevice, const std::string& astrPath, bool ablnReconnect);
// The path the device is connected to (WNetGetConnectionA); "" when none.
std::string CapturePath(const std::string& astrDevice);

}  // namespace rwz
