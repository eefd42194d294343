// Control ids of the options dialog (resource "OPTIONS"). OK and Cancel are the
// system's IDOK and IDCANCEL.
#pragma once

#define IDC_OPTIONS_FRAME0 3500
#define IDC_OPTIONS_FRAME1 3501
#define IDC_OPTIONS_LABEL0 3510
// optOption(0) to optOption(3): the restart action codes "0" to "3", one radio group.
#define IDC_OPTIONS_OPTION0 3520
#define IDC_OPTIONS_OPTION1 3521
#define IDC_OPTIONS_OPTION2 3522
#define IDC_OPTIONS_OPTION3 3523
// chkOption(0) to chkOption(6), in the order of frmOptions::Check.
#define IDC_OPTIONS_CHECK0 3530
#define IDC_OPTIONS_CHECK1 3531
#define IDC_OPTIONS_CHECK2 3532
#define IDC_OPTIONS_CHECK3 3533
#define IDC_OPTIONS_CHECK4 3534
#define IDC_OPTIONS_CHECK5 3535
#define IDC_OPTIONS_CHECK6 3536
#define IDC_OPTIONS_MAXRECENT 3540
