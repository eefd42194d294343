// The printer options dialog: the port the default printer gets and the
// parallel port captured to a network printer, with the switch that makes
// them part of the profile. OK assigns the values to the network record,
// which marks the printer settings for the next apply; Cancel leaves the
// record as it was.
#pragma once

#include "network/INetConfig.h"
#include "shell/clsDialog.h"

namespace rwz {

class frmPrinter : public clsDialog {
  public:
    explicit frmPrinter(INetConfig& aobjNet) : mobjNet(aobjNet) {}

    // Shows the dialog modally over `owner`. IDOK when the values were assigned.
    INT_PTR Show(HWND owner) { return DoModal("PRINTER_OPTIONS", owner); }

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void OnOK() override;

    // Greys what the values shown leave unused.
    void UpdateEnabling() const;
    std::string Device() const;

    INetConfig& mobjNet;
};

}  // namespace rwz
