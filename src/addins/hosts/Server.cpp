// The in-process COM server around the add-in: its class factory, the four
// exports regsvr32 and COM call, and the registry entries that let Roamwise
// create the add-in by its class name, "Roamwise.HostsFile".
#include <windows.h>
#include <olectl.h>

#include <new>
#include <string>

#include "HostsAddIn.h"

namespace rwzhosts {
namespace {

// {EAD15A95-0EF4-488F-BF98-4A5C06B8E68B}
const CLSID kClassId = {
    0xead15a95, 0x0ef4, 0x488f, {0xbf, 0x98, 0x4a, 0x5c, 0x06, 0xb8, 0xe6, 0x8b}};
const char kClassIdText[] = "{EAD15A95-0EF4-488F-BF98-4A5C06B8E68B}";
const char kProgId[] = "Roamwise.HostsFile";
const char kDescription[] = "Roamwise Hosts File Add-In";

class ClassFactory : public IClassFactory {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IClassFactory)) {
            *object = static_cast<IClassFactory*>(this);
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    // The factory is static: it lives as long as the module.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        HostsAddIn* addIn = new (std::nothrow) HostsAddIn;
        if (!addIn) return E_OUTOFMEMORY;
        const HRESULT result = addIn->QueryInterface(riid, object);
        addIn->Release();
        return result;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock)
            InterlockedIncrement(&gServerLocks);
        else
            InterlockedDecrement(&gServerLocks);
        return S_OK;
    }
};

ClassFactory gFactory;

bool SetKey(const std::string& astrKey, const char* aszName, const std::string& astrValue) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CLASSES_ROOT, astrKey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        return false;
    const LONG status =
        RegSetValueExA(key, aszName, 0, REG_SZ, reinterpret_cast<const BYTE*>(astrValue.c_str()),
                       static_cast<DWORD>(astrValue.size() + 1));
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

// RegDeleteKeyA removes only keys without sub-keys on NT: children first.
void DeleteKey(const std::string& astrKey, const char* const* aszChildren) {
    for (; *aszChildren; ++aszChildren)
        RegDeleteKeyA(HKEY_CLASSES_ROOT, (astrKey + "\\" + *aszChildren).c_str());
    RegDeleteKeyA(HKEY_CLASSES_ROOT, astrKey.c_str());
}

}  // namespace
}  // namespace rwzhosts

using namespace rwzhosts;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        gModule = instance;
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID clsid, REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualCLSID(clsid, kClassId)) return CLASS_E_CLASSNOTAVAILABLE;
    return gFactory.QueryInterface(riid, object);
}

extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
    return gServerLocks == 0 ? S_OK : S_FALSE;
}

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
    char module[MAX_PATH] = "";
    if (!GetModuleFileNameA(gModule, module, MAX_PATH)) return SELFREG_E_CLASS;
    const std::string classKey = std::string("CLSID\\") + kClassIdText;
    const bool ok = SetKey(kProgId, nullptr, kDescription) &&
                    SetKey(std::string(kProgId) + "\\CLSID", nullptr, kClassIdText) &&
                    SetKey(classKey, nullptr, kDescription) &&
                    SetKey(classKey + "\\InprocServer32", nullptr, module) &&
                    SetKey(classKey + "\\InprocServer32", "ThreadingModel", "Apartment") &&
                    SetKey(classKey + "\\ProgID", nullptr, kProgId);
    return ok ? S_OK : SELFREG_E_CLASS;
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() {
    const char* const classChildren[] = {"InprocServer32", "ProgID", nullptr};
    const char* const progIdChildren[] = {"CLSID", nullptr};
    DeleteKey(std::string("CLSID\\") + kClassIdText, classChildren);
    DeleteKey(kProgId, progIdChildren);
    return S_OK;
}
