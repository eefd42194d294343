// The floor of any process start on the bench: a program that loads the same
// system DLLs as Rwz.exe and does nothing else. scripts/bench.sh times it beside
// Rwz.exe so that what Roamwise itself costs can be told apart from what Wine
// costs for every program.
#include <winsock.h>
#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>
#include <shellapi.h>
#include <winspool.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // Never true: the calls only make the linker import each DLL Rwz.exe imports.
    if (GetTickCount() == 1) {
        RegCloseKey(nullptr);
        InitCommonControls();
        CommDlgExtendedError();
        GetStockObject(0);
        DragFinish(nullptr);
        GetDesktopWindow();
        GetFileVersionInfoSizeA("", nullptr);
        ClosePrinter(nullptr);
        WSAGetLastError();
    }
    return 0;
}
