// Control ids of the domain credentials dialog.
#pragma once

#define IDC_CRED_LABEL0 3201  // user name
#define IDC_CRED_LABEL1 3202  // password
#define IDC_CRED_TEXT0 3203   // txtField(0): user name
#define IDC_CRED_TEXT1 3204   // txtField(1): password
#define IDC_CRED_CHECK0 3205  // chkOption(0): ask at each apply
