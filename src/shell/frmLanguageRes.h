// Control ids of the language dialog (resource "LANGUAGE_CHOICE"). OK and Cancel are
// the system's IDOK and IDCANCEL.
#pragma once

#define IDC_LANGUAGE_LIST 3600
// Labels(0) to Labels(3): "Author:", the author, "Web site:", the author's address.
#define IDC_LANGUAGE_LABEL0 3610
#define IDC_LANGUAGE_LABEL1 3611
#define IDC_LANGUAGE_LABEL2 3612
#define IDC_LANGUAGE_LABEL3 3613
