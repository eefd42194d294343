// The program's entry: everything starts in the main window's load handler.
#include <windows.h>

#include "shell/frmMain.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
    rwz::frmMain form(instance);
    return form.Run(showCommand);
}
