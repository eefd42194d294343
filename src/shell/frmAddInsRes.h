// Resource ids of the add-in manager.
#pragma once

#define IDC_ADDINS_LIST 1501
#define IDC_ADDINS_FILE 1502
#define IDC_ADDINS_VERSION 1503
#define IDC_ADDINS_ACTIVE 1504
#define IDC_ADDINS_ABOUT 1505
