// Control ids of the Internet Explorer page (resource "IE_TAB"). Each kind of
// control is an array of consecutive ids, indexed as the localization keys.
#pragma once

// txtField(0) to txtField(12).
#define IDC_IE_TEXT0 2100   // home page
#define IDC_IE_TEXT1 2101   // HTTP host
#define IDC_IE_TEXT2 2102   // HTTP port
#define IDC_IE_TEXT3 2103   // secure host
#define IDC_IE_TEXT4 2104   // secure port
#define IDC_IE_TEXT5 2105   // FTP host
#define IDC_IE_TEXT6 2106   // FTP port
#define IDC_IE_TEXT7 2107   // Gopher host
#define IDC_IE_TEXT8 2108   // Gopher port
#define IDC_IE_TEXT9 2109   // SOCKS host
#define IDC_IE_TEXT10 2110  // SOCKS port
#define IDC_IE_TEXT11 2111  // exceptions
#define IDC_IE_TEXT12 2112  // automatic configuration script
// chkOption(0) to chkOption(5).
#define IDC_IE_CHECK0 2120  // use a proxy server
#define IDC_IE_CHECK1 2121  // the same proxy for all protocols
#define IDC_IE_CHECK2 2122  // bypass the proxy for local addresses
#define IDC_IE_CHECK3 2123  // detect settings automatically
#define IDC_IE_CHECK4 2124  // use the configuration script
#define IDC_IE_CHECK5 2125  // password caching off
// optOption(0) and optOption(1): one group.
#define IDC_IE_OPTION0 2130  // the local network
#define IDC_IE_OPTION1 2131  // a dial-up entry
// cboField(0).
#define IDC_IE_COMBO0 2140  // the dial-up entry
// lblLabel(0) to lblLabel(7).
#define IDC_IE_LABEL0 2150
#define IDC_IE_LABEL1 2151
#define IDC_IE_LABEL2 2152
#define IDC_IE_LABEL3 2153
#define IDC_IE_LABEL4 2154
#define IDC_IE_LABEL5 2155
#define IDC_IE_LABEL6 2156
#define IDC_IE_LABEL7 2157
// fraFrame(0) to fraFrame(3).
#define IDC_IE_FRAME0 2160
#define IDC_IE_FRAME1 2161
#define IDC_IE_FRAME2 2162
#define IDC_IE_FRAME3 2163

#define IE_TAB_TEXTS 13
#define IE_TAB_CHECKS 6
#define IE_TAB_OPTIONS 2
#define IE_TAB_LABELS 8
#define IE_TAB_FRAMES 4
