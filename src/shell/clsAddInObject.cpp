#include "shell/clsAddInObject.h"

#include <windows.h>
#include <oaidl.h>

#include "platform/RwzError.h"

namespace rwz {
namespace {

const char kSource[] = "clsAddInObject";
// Late binding's own failures, numbered as scripting hosts number them.
const int32_t kErrCannotCreate = 429;
const int32_t kErrNoSuchMember = 438;
// Spelled out here so that nothing links the uuid library's data.
const IID kIIDDispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
const IID kIIDNull = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};

// The few COM functions the program needs, looked up once.
struct ComRuntime {
    HRESULT(WINAPI* CoInitialize)(LPVOID) = nullptr;
    HRESULT(WINAPI* CLSIDFromProgID)(LPCOLESTR, LPCLSID) = nullptr;
    HRESULT(WINAPI* CoCreateInstance)(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID*) = nullptr;
    BSTR(WINAPI* SysAllocStringLen)(const OLECHAR*, UINT) = nullptr;
    void(WINAPI* SysFreeString)(BSTR) = nullptr;
    UINT(WINAPI* SysStringLen)(BSTR) = nullptr;
    HRESULT(WINAPI* VariantClear)(VARIANTARG*) = nullptr;
    HRESULT(WINAPI* VariantChangeType)(VARIANTARG*, const VARIANTARG*, USHORT, VARTYPE) = nullptr;
    bool loaded = false;
};

template <class F>
bool Bind(HMODULE module, const char* name, F& function) {
    function = module ? reinterpret_cast<F>(GetProcAddress(module, name)) : nullptr;
    return function != nullptr;
}

// Raises when COM is not installed (Windows 95 without DCOM).
const ComRuntime& Com() {
    static ComRuntime com;
    if (com.loaded) return com;
    HMODULE ole = LoadLibraryA("ole32.dll");
    HMODULE automation = LoadLibraryA("oleaut32.dll");
    const bool ok = Bind(ole, "CoInitialize", com.CoInitialize) &&
                    Bind(ole, "CLSIDFromProgID", com.CLSIDFromProgID) &&
                    Bind(ole, "CoCreateInstance", com.CoCreateInstance) &&
                    Bind(automation, "SysAllocStringLen", com.SysAllocStringLen) &&
                    Bind(automation, "SysFreeString", com.SysFreeString) &&
                    Bind(automation, "SysStringLen", com.SysStringLen) &&
                    Bind(automation, "VariantClear", com.VariantClear) &&
                    Bind(automation, "VariantChangeType", com.VariantChangeType);
    if (!ok) throw RwzError(kErrCannotCreate, kSource, "COM (ole32, oleaut32) is not installed");
    // The user-interface thread is the only one; the libraries stay loaded
    // for the program's life.
    com.CoInitialize(nullptr);
    com.loaded = true;
    return com;
}

std::wstring Wide(const std::string& text) {
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), (int)text.size(), nullptr, 0);
    std::wstring out(size, L'\0');
    if (size > 0) MultiByteToWideChar(CP_ACP, 0, text.data(), (int)text.size(), &out[0], size);
    return out;
}

std::string Narrow(BSTR text) {
    if (!text) return std::string();
    const int length = (int)Com().SysStringLen(text);
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string out(size, '\0');
    if (size > 0) WideCharToMultiByte(CP_ACP, 0, text, length, &out[0], size, nullptr, nullptr);
    return out;
}

// Owns the variants of one call.
struct Variants {
    std::vector<VARIANT> items;
    explicit Variants(size_t count) : items(count) {
        // VariantInit would be one more import: an empty variant is all zeros.
        for (VARIANT& item : items) ZeroMemory(&item, sizeof item);
    }
    ~Variants() {
        for (VARIANT& item : items) Com().VariantClear(&item);
    }
};

std::string ResultText(VARIANT& result) {
    if (result.vt == VT_EMPTY || result.vt == VT_NULL) return std::string();
    if (result.vt == VT_BOOL) return result.boolVal ? "True" : "False";
    Variants text(1);
    if (FAILED(Com().VariantChangeType(&text.items[0], &result, 0, VT_BSTR))) return std::string();
    return Narrow(text.items[0].bstrVal);
}

}  // namespace

std::shared_ptr<clsAddInObject> clsAddInObject::Create(const std::string& astrClass) {
    const ComRuntime& com = Com();
    CLSID classId;
    IDispatch* dispatch = nullptr;
    const std::wstring progId = Wide(astrClass);
    if (FAILED(com.CLSIDFromProgID(progId.c_str(), &classId)) ||
        FAILED(com.CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                    kIIDDispatch, reinterpret_cast<void**>(&dispatch))) ||
        !dispatch)
        throw RwzError(kErrCannotCreate, kSource, "ActiveX component can't create object");
    return std::shared_ptr<clsAddInObject>(new clsAddInObject(dispatch));
}

clsAddInObject::~clsAddInObject() {
    if (mobjDispatch) mobjDispatch->Release();
}

std::string clsAddInObject::Call(const std::string& astrName,
                                 const std::vector<std::string>& avarArgs) {
    const ComRuntime& com = Com();
    std::wstring name = Wide(astrName);
    LPOLESTR names[] = {&name[0]};
    DISPID member = DISPID_UNKNOWN;
    if (FAILED(mobjDispatch->GetIDsOfNames(kIIDNull, names, 1, LOCALE_USER_DEFAULT, &member)))
        throw RwzError(kErrNoSuchMember, kSource, "Object doesn't support this property or method");

    // Arguments go right to left.
    Variants args(avarArgs.size());
    for (size_t i = 0; i < avarArgs.size(); ++i) {
        const std::wstring text = Wide(avarArgs[i]);
        VARIANT& arg = args.items[avarArgs.size() - 1 - i];
        arg.vt = VT_BSTR;
        arg.bstrVal = com.SysAllocStringLen(text.data(), (UINT)text.size());
    }
    DISPPARAMS params = {args.items.empty() ? nullptr : args.items.data(), nullptr,
                         (UINT)args.items.size(), 0};
    Variants result(1);
    EXCEPINFO exception = {};
    UINT argError = 0;
    const HRESULT status = mobjDispatch->Invoke(member, kIIDNull, LOCALE_USER_DEFAULT,
                                                DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params,
                                                &result.items[0], &exception, &argError);
    if (status == DISP_E_EXCEPTION) {
        if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
        std::string source = Narrow(exception.bstrSource);
        std::string description = Narrow(exception.bstrDescription);
        com.SysFreeString(exception.bstrSource);
        com.SysFreeString(exception.bstrDescription);
        com.SysFreeString(exception.bstrHelpFile);
        const int32_t number = exception.scode ? exception.scode : kObjectError + exception.wCode;
        throw RwzError(number, source.empty() ? kSource : source,
                       description.empty() ? "Automation error" : description);
    }
    if (status == DISP_E_MEMBERNOTFOUND || status == DISP_E_UNKNOWNNAME)
        throw RwzError(kErrNoSuchMember, kSource, "Object doesn't support this property or method");
    if (FAILED(status)) throw RwzError(static_cast<int32_t>(status), kSource, "Automation error");
    return ResultText(result.items[0]);
}

}  // namespace rwz
