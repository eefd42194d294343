// The hosts file add-in object. Roamwise reaches an add-in only through
// IDispatch, by member name, so this is all an add-in needs to implement:
// IUnknown, and IDispatch over a small table of members.
//
//   Show(profile)      the entries editor; `profile` is the profile's path
//   Changed, Restart   read after Show (a hosts change never needs a restart)
//   about              the about box
//   Initialize(mode)   before applying; nothing to prepare here
//   ApplySettings      writes the profile's entries into the hosts file
//   LoadSettings(path) reads the entries from a profile file
//   SaveSettings(path) writes them into a profile file
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace rwzhosts {

// Objects and locks alive in this server (DllCanUnloadNow).
extern LONG gServerLocks;
extern HINSTANCE gModule;

class HostsAddIn : public IDispatch {
  public:
    HostsAddIn();
    virtual ~HostsAddIn();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDispatch; no type information: callers bind by name.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception,
                                     UINT* argError) override;

  private:
    void Show(const std::string& astrProfile);
    void ApplySettings();
    void LoadSettings(const std::string& astrPath);
    void SaveSettings(const std::string& astrPath);
    // The entries the profile wants; until a profile names them, the
    // machine's own (read when first needed).
    const std::vector<std::string>& Entries();

    LONG mRefs = 1;
    std::vector<std::string> mvarEntries;
    bool mblnInProfile = false;  // the profile holds a hosts section
    bool mblnRead = false;       // mvarEntries holds something
    bool mblnChanged = false;
};

}  // namespace rwzhosts
