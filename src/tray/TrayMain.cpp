// The tray program's entry.
#include <windows.h>

#include "tray/clsSysTray.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    rwz::tray::clsSysTray tray(instance);
    return tray.Run();
}
