// Move-only owners of Win32 handles: one owner per handle, closed exactly once.
#pragma once

#include <windows.h>

#include <utility>

namespace rwz {

// Owns a handle and closes it with Close(handle) unless it is one of the
// handles that mean "none".
template <class H, class Traits>
class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(H handle) : mHandle(handle) {}
    ~UniqueHandle() { Reset(); }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    UniqueHandle(UniqueHandle&& other) noexcept : mHandle(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) Reset(other.Release());
        return *this;
    }

    H Get() const { return mHandle; }
    explicit operator bool() const { return Traits::IsValid(mHandle); }
    // Gives up ownership without closing.
    H Release() { return std::exchange(mHandle, Traits::None()); }
    // Closes the owned handle and takes `handle` instead.
    void Reset(H handle = Traits::None()) {
        H old = std::exchange(mHandle, handle);
        if (Traits::IsValid(old)) Traits::Close(old);
    }
    // Closes the owned handle and returns the close call's result.
    auto Close() {
        H old = Release();
        return Traits::Close(old);
    }

  private:
    H mHandle = Traits::None();
};

struct RegKeyTraits {
    static HKEY None() { return nullptr; }
    static bool IsValid(HKEY key) { return key != nullptr; }
    static LONG Close(HKEY key) { return key ? RegCloseKey(key) : ERROR_SUCCESS; }
};
struct KernelHandleTraits {
    static HANDLE None() { return nullptr; }
    static bool IsValid(HANDLE h) { return h != nullptr && h != INVALID_HANDLE_VALUE; }
    static BOOL Close(HANDLE h) { return IsValid(h) ? CloseHandle(h) : TRUE; }
};
struct FindHandleTraits {
    static HANDLE None() { return INVALID_HANDLE_VALUE; }
    static bool IsValid(HANDLE h) { return h != nullptr && h != INVALID_HANDLE_VALUE; }
    static BOOL Close(HANDLE h) { return IsValid(h) ? FindClose(h) : TRUE; }
};
struct ModuleTraits {
    static HMODULE None() { return nullptr; }
    static bool IsValid(HMODULE m) { return m != nullptr; }
    static BOOL Close(HMODULE m) { return m ? FreeLibrary(m) : TRUE; }
};
struct PrinterTraits {
    static HANDLE None() { return nullptr; }
    static bool IsValid(HANDLE h) { return h != nullptr; }
    static BOOL Close(HANDLE h);  // ClosePrinter; defined where winspool is used
};

struct MenuTraits {
    static HMENU None() { return nullptr; }
    static bool IsValid(HMENU m) { return m != nullptr; }
    static BOOL Close(HMENU m) { return m ? DestroyMenu(m) : TRUE; }
};

using RegKey = UniqueHandle<HKEY, RegKeyTraits>;
using KernelHandle = UniqueHandle<HANDLE, KernelHandleTraits>;
using FindHandle = UniqueHandle<HANDLE, FindHandleTraits>;
using Module = UniqueHandle<HMODULE, ModuleTraits>;
using PrinterHandle = UniqueHandle<HANDLE, PrinterTraits>;
using MenuHandle = UniqueHandle<HMENU, MenuTraits>;

}  // namespace rwz
