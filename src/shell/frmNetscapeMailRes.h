// Control ids of the Netscape mail account dialog (resource "NETSCAPE_MAIL").
// Each kind of control is an array of consecutive ids, indexed as the
// localization keys.
#pragma once

// txtField(0) to txtField(7).
#define IDC_NSMAIL_TEXT0 2400  // full name
#define IDC_NSMAIL_TEXT1 2401  // address
#define IDC_NSMAIL_TEXT2 2402  // reply-to address
#define IDC_NSMAIL_TEXT3 2403  // organization
#define IDC_NSMAIL_TEXT4 2404  // POP3 server
#define IDC_NSMAIL_TEXT5 2405  // POP3 login
#define IDC_NSMAIL_TEXT6 2406  // SMTP server
#define IDC_NSMAIL_TEXT7 2407  // SMTP login
// chkOption(0).
#define IDC_NSMAIL_CHECK0 2410  // leave mail on the server
// lblLabel(0) to lblLabel(7), in the order of the fields.
#define IDC_NSMAIL_LABEL0 2420
#define IDC_NSMAIL_LABEL1 2421
#define IDC_NSMAIL_LABEL2 2422
#define IDC_NSMAIL_LABEL3 2423
#define IDC_NSMAIL_LABEL4 2424
#define IDC_NSMAIL_LABEL5 2425
#define IDC_NSMAIL_LABEL6 2426
#define IDC_NSMAIL_LABEL7 2427
// fraFrame(0) and fraFrame(1).
#define IDC_NSMAIL_FRAME0 2430  // identity
#define IDC_NSMAIL_FRAME1 2431  // servers

#define NETSCAPE_MAIL_TEXTS 8
#define NETSCAPE_MAIL_LABELS 8
#define NETSCAPE_MAIL_FRAMES 2
