// Control ids of the restart dialog (resource "RESTART"). OK and Cancel are the
// system's IDOK and IDCANCEL.
#pragma once

#define IDC_RESTART_FRAME0 3100
// optOption(0) to optOption(3): consecutive ids, one radio group.
#define IDC_RESTART_OPTION0 3110
#define IDC_RESTART_OPTION1 3111
#define IDC_RESTART_OPTION2 3112
#define IDC_RESTART_OPTION3 3113
#define IDC_RESTART_CHECK0 3120
#define IDC_RESTART_HELP 3130
