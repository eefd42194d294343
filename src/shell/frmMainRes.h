// Resource ids of the main window and the About box.
#pragma once

#define IDC_MAIN_TABS 1001
#define IDC_ABOUT_VERSION 1101

// File menu (the recent files are inserted before "Exit").
#define IDM_FILE_OPEN 40001
#define IDM_FILE_SAVE 40002
#define IDM_FILE_SAVEAS 40003
#define IDM_FILE_APPLY 40004
#define IDM_FILE_EXPORT 40005
#define IDM_FILE_PRINT 40006
#define IDM_FILE_PRINTSETUP 40007
#define IDM_FILE_SHORTCUT 40008
#define IDM_FILE_EXIT 40009
#define IDM_FILE_MRU_FIRST 40100  // up to 20 items
// Tools menu.
#define IDM_TOOLS_OPTIONS 40201
#define IDM_TOOLS_ADDINS 40202
#define IDM_TOOLS_LANGUAGE 40203
#define IDM_ADDIN_FIRST 40500  // one entry per started add-in, up to 100
// Help menu.
#define IDM_HELP_CONTENTS 40301
#define IDM_HELP_UPDATE 40302
#define IDM_HELP_ABOUT 40303
// Toolbar buttons that switch an area of the profile on or off.
#define IDM_AREA_GENERAL 40401
#define IDM_AREA_IE 40402
#define IDM_AREA_NETSCAPE 40403
#define IDM_AREA_OPERA 40404
