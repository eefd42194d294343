// Control ids of the printer options dialog (resource "PRINTER_OPTIONS"). OK and
// Cancel are the system's IDOK and IDCANCEL.
#pragma once

// Checkboxes(0), Checkboxes(1): the advanced settings switch, reconnect at logon.
#define IDC_PRN_ENABLE 3700
#define IDC_PRN_RECONNECT 3701
// Frames(0), Frames(1): the printer's port, the capture.
#define IDC_PRN_PORTFRAME 3710
#define IDC_PRN_CAPTUREFRAME 3711
// Labels(0) to Labels(2): port, device, path.
#define IDC_PRN_LABEL_PORT 3720
#define IDC_PRN_LABEL_DEVICE 3721
#define IDC_PRN_LABEL_PATH 3722
#define IDC_PRN_PORT 3730
#define IDC_PRN_DEVICE 3731
#define IDC_PRN_PATH 3732  // txtCapturePath
