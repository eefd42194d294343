// The General page of the main window: the network record of the profile
// (INetConfig), edited through assignments that flag each setting, so that
// what the page shows is what will be applied and saved.
//
// The address and mask fields edit one entry of their lists at a time, chosen
// with the index box beside the address; the page keeps the lists in their
// comma form and hands them to the record in the record's own form.
//
// Greyed while unused:
// - every adapter setting when the machine has no adapter;
// - the addresses, masks, index box and gateways while DHCP is on;
// - the WINS servers while WINS is off; on "9x" and "NT" the WINS box too
//   while DHCP is on (the DHCP server gives WINS there);
// - the workgroup or the domain field, whichever is not chosen, and the
//   domain account unless a domain is chosen on "2K", "XP" or "2003";
// - the printer box while the default printer is not set or none exists, and
//   the printer options while no printer exists.
// The quick logon and password cache switches are shown on "9x" only.
#pragma once

#include <string>
#include <vector>

#include "network/INetConfig.h"
#include "platform/modAPI.h"
#include "platform/modText.h"
#include "shell/clsTabPage.h"

namespace rwz {

// The validation of a field when it is left: the message number for its text,
// or 0 when the text is valid (an empty list is valid).
int16_t AddressFieldMessage(int aintControlId, const std::string& astrText);

class frmGeneralTab : public clsTabPage {
  public:
    frmGeneralTab(const char* aszTemplate, std::string astrCaption);

    void Refill(clsRwzConfig& aobjConfig, bool ablnAssign) override;
    // Shows `aobjNet`'s settings, which the page edits from now on (also
    // without a profile object, for tests). Returns the ids of the fields
    // whose shown value changed.
    std::vector<int> RefillFrom(INetConfig* aobjNet, bool ablnAssign);
    // The system that decides the DHCP, WINS and adapter-type rules; the
    // running system by default.
    void SetOSFamily(OSFamily aFamily) { mOS = aFamily; }

    // The entry of the address and mask lists that the fields edit.
    int IPAddressIndex() const { return mintIPIndex; }
    void IPAddressIndexSelected(int aintIndex);

  protected:
    void OnCreate() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void UpdateEnabling() override;

  private:
    void BindText(int aintControlId, NetText aField);
    void BindCheck(int aintControlId, NetFlag aField);
    // The address and mask lists in the page's comma form.
    std::string AddressList() const;
    std::string MaskList() const;
    // Replaces the edited entry of a list and assigns the list.
    void AssignEntry(bool ablnMask, const std::string& astrEntry);
    // Assigns a list given in comma form, in the record's form.
    void AssignList(bool ablnMask, const std::string& astrCommaList);
    void FillIndexBox();
    void NICSelected(int aintIndex);
    // Before a profile's values are shown: when it chose another adapter than
    // the one shown, shows that adapter as the machine has it.
    void ShowProfileAdapter();
    void DHCPToggled(bool ablnOn);
    void WINSToggled(bool ablnOn);
    void DefaultPrinterSelected(const std::string& astrPrinter);
    void ShowAdapterType();
    void ShowPrinterPort();
    // The printer options (port and capture) in one text, to tell a change.
    std::string PrinterOptionsShown() const;
    void ValidateField(int aintControlId);
    bool IsChecked(int aintControlId) const;
    void Enable(int aintControlId, bool ablnEnabled) const;
    // On 9x and NT 4 the DHCP server gives the WINS servers.
    bool DHCPGivesWINS() const;

    INetConfig* mobjNet = nullptr;
    OSFamily mOS;
    int mintIPIndex = 0;
    // The lists as last shown (comma form): a refill that changes any entry,
    // not only the one in the fields, assigns the list.
    std::string mstrShownAddresses;
    std::string mstrShownMasks;
    std::string mstrShownPrinterOptions;
    bool mblnRefilling = false;
};

}  // namespace rwz
