// Shows the hourglass for the lifetime of the object and restores the previous
// pointer afterwards, also when an error leaves the procedure early.
#pragma once

#include <windows.h>

namespace rwz {

class WaitCursor {
  public:
    WaitCursor() : mPrevious(SetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(32514)))) {}
    ~WaitCursor() { SetCursor(mPrevious); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

  private:
    HCURSOR mPrevious;
};

}  // namespace rwz
