// Resource ids of the update check's outcome dialog.
#pragma once

#define IDC_UPDATE_ICON 1601
#define IDC_UPDATE_TEXT 1602
#define IDC_UPDATE_OPEN 1603
