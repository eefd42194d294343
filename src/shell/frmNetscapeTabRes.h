// Control ids of the Netscape page (resource "NETSCAPE_TAB"). Each kind of
// control is an array of consecutive ids, indexed as the localization keys.
#pragma once

// txtField(0) to txtField(22).
#define IDC_NETSCAPE_TEXT0 2300   // home page
#define IDC_NETSCAPE_TEXT1 2301   // HTTP host
#define IDC_NETSCAPE_TEXT2 2302   // HTTP port
#define IDC_NETSCAPE_TEXT3 2303   // SSL host
#define IDC_NETSCAPE_TEXT4 2304   // SSL port
#define IDC_NETSCAPE_TEXT5 2305   // FTP host
#define IDC_NETSCAPE_TEXT6 2306   // FTP port
#define IDC_NETSCAPE_TEXT7 2307   // Gopher host
#define IDC_NETSCAPE_TEXT8 2308   // Gopher port
#define IDC_NETSCAPE_TEXT9 2309   // WAIS host
#define IDC_NETSCAPE_TEXT10 2310  // WAIS port
#define IDC_NETSCAPE_TEXT11 2311  // SOCKS host
#define IDC_NETSCAPE_TEXT12 2312  // SOCKS port
#define IDC_NETSCAPE_TEXT13 2313  // exceptions
#define IDC_NETSCAPE_TEXT14 2314  // automatic configuration URL
// The mail account, never shown on the page (the mail dialog edits it): kept
// here so that a profile that differs in it marks the area changed.
#define IDC_NETSCAPE_TEXT15 2315  // full name
#define IDC_NETSCAPE_TEXT16 2316  // address
#define IDC_NETSCAPE_TEXT17 2317  // reply-to address
#define IDC_NETSCAPE_TEXT18 2318  // organization
#define IDC_NETSCAPE_TEXT19 2319  // POP3 server
#define IDC_NETSCAPE_TEXT20 2320  // POP3 login
#define IDC_NETSCAPE_TEXT21 2321  // SMTP server
#define IDC_NETSCAPE_TEXT22 2322  // SMTP login
// chkOption(0).
#define IDC_NETSCAPE_CHECK0 2330  // leave mail on the server (not shown)
// optOption(0) to optOption(2): the connection.
#define IDC_NETSCAPE_OPTION0 2335  // direct
#define IDC_NETSCAPE_OPTION1 2336  // manual proxies
#define IDC_NETSCAPE_OPTION2 2337  // automatic configuration
// cboField(0) and cboField(1).
#define IDC_NETSCAPE_COMBO0 2340  // user profile
#define IDC_NETSCAPE_COMBO1 2341  // SOCKS version
// cmdButton(0).
#define IDC_NETSCAPE_BUTTON0 2345  // the mail account dialog
// lblLabel(0) to lblLabel(10).
#define IDC_NETSCAPE_LABEL0 2350   // profile
#define IDC_NETSCAPE_LABEL1 2351   // home page
#define IDC_NETSCAPE_LABEL2 2352   // HTTP
#define IDC_NETSCAPE_LABEL3 2353   // SSL
#define IDC_NETSCAPE_LABEL4 2354   // FTP
#define IDC_NETSCAPE_LABEL5 2355   // Gopher
#define IDC_NETSCAPE_LABEL6 2356   // WAIS
#define IDC_NETSCAPE_LABEL7 2357   // SOCKS
#define IDC_NETSCAPE_LABEL8 2358   // exceptions
#define IDC_NETSCAPE_LABEL9 2359   // SOCKS version
#define IDC_NETSCAPE_LABEL10 2360  // no mail settings for this version
// fraFrame(0).
#define IDC_NETSCAPE_FRAME0 2370
// The installed version, as the browser names it.
#define IDC_NETSCAPE_VERSION 2380

#define NETSCAPE_TAB_TEXTS 23
#define NETSCAPE_TAB_LABELS 11
#define NETSCAPE_TAB_OPTIONS 3
#define NETSCAPE_TAB_BUTTONS 1
#define NETSCAPE_TAB_FRAMES 1
