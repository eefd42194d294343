// Resource ids of the hosts file add-in's dialogs.
#pragma once

#define IDD_HOSTS_EDIT 100
#define IDD_HOSTS_ABOUT 101

#define IDC_HOSTS_PROFILE 1000
#define IDC_HOSTS_ENTRIES 1001
#define IDC_HOSTS_ABOUT 1002
#define IDC_HOSTS_FILE 1003
