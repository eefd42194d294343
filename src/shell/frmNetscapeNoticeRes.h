// Control ids of the Netscape notice (shared by its resource script and code).
#pragma once

#define IDC_NSNOTICE_ICON 1101
#define IDC_NSNOTICE_LABEL0 1102
#define IDC_NSNOTICE_CHECK0 1103
