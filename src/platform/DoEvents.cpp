#include "platform/DoEvents.h"

#include <windows.h>

namespace rwz {

void DoEvents() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Leave the quit request for the message loop that owns it.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace rwz
