#include "shell/frmPrinter.h"

#include "localization/modLocalization.h"
#include "network/modPrinterCapture.h"
#include "platform/Procedure.h"
#include "platform/modText.h"
#include "shell/frmPrinterRes.h"

namespace rwz {

namespace {

const char kObject[] = "frmPrinter";
// The language file's tag for this dialog in every category.
const char kTag[] = "AdvLpt";
const int kParallelPorts = 8;

void AddItem(HWND combo, const std::string& astrItem) {
    SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(astrItem.c_str()));
}

}  // namespace

bool frmPrinter::OnInit() {
    Procedure proc(kObject, "Form_Load");
    proc.Run([&] {
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
        objLocalization.SetControlArrayCaption({Item(IDOK), Item(IDCANCEL)}, "Buttons", kTag);
        objLocalization.SetControlArrayCaption(
            {Item(IDC_PRN_PORTFRAME), Item(IDC_PRN_CAPTUREFRAME)}, "Frames", kTag);
        objLocalization.SetControlArrayCaption(
            {Item(IDC_PRN_LABEL_PORT), Item(IDC_PRN_LABEL_DEVICE), Item(IDC_PRN_LABEL_PATH)},
            "Labels", kTag);
        objLocalization.SetControlArrayCaption({Item(IDC_PRN_ENABLE), Item(IDC_PRN_RECONNECT)},
                                               "Checkboxes", kTag);

        AddItem(Item(IDC_PRN_DEVICE), kNoCapture);
        for (int number = 1; number <= kParallelPorts; ++number) {
            const std::string device = "LPT" + std::to_string(number);
            AddItem(Item(IDC_PRN_PORT), device + ":");
            AddItem(Item(IDC_PRN_DEVICE), device);
        }
        const NetRecord& record = mobjNet.Record();
        SetItemText(IDC_PRN_PORT, record.PrinterPort);
        SetItemText(IDC_PRN_DEVICE,
                    record.PrinterCaptureDev.empty() ? kNoCapture : record.PrinterCaptureDev);
        SetItemText(IDC_PRN_PATH, record.PrinterCapturePath);
        SetChecked(IDC_PRN_RECONNECT, record.PrinterCaptureReconnect);
        SetChecked(IDC_PRN_ENABLE, record.EnableAdvPrinterSettings);
        UpdateEnabling();
    });
    return true;
}

bool frmPrinter::OnCommand(int aintId, int aintCode, HWND control) {
    if ((aintId == IDC_PRN_ENABLE && aintCode == BN_CLICKED) ||
        (aintId == IDC_PRN_DEVICE && (aintCode == CBN_SELCHANGE || aintCode == CBN_EDITCHANGE))) {
        // A choice in the list is not yet the box's text while it is announced.
        if (aintCode == CBN_SELCHANGE) {
            const LRESULT chosen = SendMessageA(control, CB_GETCURSEL, 0, 0);
            char text[64] = {};
            if (chosen != CB_ERR &&
                SendMessageA(control, CB_GETLBTEXTLEN, chosen, 0) < LRESULT(sizeof text)) {
                SendMessageA(control, CB_GETLBTEXT, chosen, reinterpret_cast<LPARAM>(text));
                SetWindowTextA(control, text);
            }
        }
        UpdateEnabling();
        return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
}

std::string frmPrinter::Device() const {
    const std::string device = Trim(ItemText(IDC_PRN_DEVICE));
    return device.empty() ? kNoCapture : device;
}

void frmPrinter::UpdateEnabling() const {
    const bool on = IsChecked(IDC_PRN_ENABLE);
    for (int id : {IDC_PRN_PORTFRAME, IDC_PRN_LABEL_PORT, IDC_PRN_PORT, IDC_PRN_CAPTUREFRAME,
                   IDC_PRN_LABEL_DEVICE, IDC_PRN_DEVICE})
        EnableItem(id, on);
    const bool capture = on && Device() != kNoCapture;
    for (int id : {IDC_PRN_LABEL_PATH, IDC_PRN_PATH, IDC_PRN_RECONNECT}) EnableItem(id, capture);
}

void frmPrinter::OnOK() {
    Procedure proc(kObject, "cmdOK_Click");
    proc.Run([&] {
        mobjNet.Assign(&NetRecord::EnableAdvPrinterSettings, IsChecked(IDC_PRN_ENABLE));
        // Any of the four marks the printer settings for the next apply.
        mobjNet.Assign(&NetRecord::PrinterPort, Trim(ItemText(IDC_PRN_PORT)));
        mobjNet.Assign(&NetRecord::PrinterCaptureDev, Device());
        mobjNet.Assign(&NetRecord::PrinterCapturePath, Trim(ItemText(IDC_PRN_PATH)));
        mobjNet.Assign(&NetRecord::PrinterCaptureReconnect, IsChecked(IDC_PRN_RECONNECT));
        proc.LogValue(mobjNet.Record().PrinterPort + ", " + Device() + ", " +
                      mobjNet.Record().PrinterCapturePath);
    });
    End(IDOK);
}

}  // namespace rwz
