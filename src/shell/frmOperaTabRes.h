// Control ids of the Opera page (resource "OPERA_TAB"). Each kind of control
// is an array of consecutive ids, indexed as the localization keys.
#pragma once

// txtField(0) to txtField(12).
#define IDC_OPERA_TEXT0 2200   // home page
#define IDC_OPERA_TEXT1 2201   // HTTP host
#define IDC_OPERA_TEXT2 2202   // HTTP port
#define IDC_OPERA_TEXT3 2203   // HTTPS host
#define IDC_OPERA_TEXT4 2204   // HTTPS port
#define IDC_OPERA_TEXT5 2205   // FTP host
#define IDC_OPERA_TEXT6 2206   // FTP port
#define IDC_OPERA_TEXT7 2207   // Gopher host
#define IDC_OPERA_TEXT8 2208   // Gopher port
#define IDC_OPERA_TEXT9 2209   // WAIS host
#define IDC_OPERA_TEXT10 2210  // WAIS port
#define IDC_OPERA_TEXT11 2211  // exceptions
#define IDC_OPERA_TEXT12 2212  // automatic configuration URL
// chkOption(0) to chkOption(6).
#define IDC_OPERA_CHECK0 2220  // HTTP proxy on
#define IDC_OPERA_CHECK1 2221  // HTTPS proxy on
#define IDC_OPERA_CHECK2 2222  // FTP proxy on
#define IDC_OPERA_CHECK3 2223  // Gopher proxy on
#define IDC_OPERA_CHECK4 2224  // WAIS proxy on
#define IDC_OPERA_CHECK5 2225  // exceptions in force
#define IDC_OPERA_CHECK6 2226  // automatic configuration in force
// cboField(0).
#define IDC_OPERA_COMBO0 2240  // user agent identity
// lblLabel(0) and lblLabel(1).
#define IDC_OPERA_LABEL0 2250
#define IDC_OPERA_LABEL1 2251
// fraFrame(0) and fraFrame(1).
#define IDC_OPERA_FRAME0 2260
#define IDC_OPERA_FRAME1 2261

#define OPERA_TAB_TEXTS 13
#define OPERA_TAB_CHECKS 7
#define OPERA_TAB_LABELS 2
#define OPERA_TAB_FRAMES 2
