// What the browser pages of the main window share: they edit one browser back
// end through its record, bind every field to one property with
// FieldBindings, and grey the fields that the values shown leave unused.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "browsers/IBrowser.h"
#include "shell/clsTabPage.h"

namespace rwz {

class clsBrowserTab : public clsTabPage {
  public:
    using clsTabPage::clsTabPage;

    // Shows the settings of the page's back end in the profile.
    void Refill(clsRwzConfig& aobjConfig, bool ablnAssign) override;
    // Shows `aobjBrowser`'s settings, which the page edits from now on; with
    // `ablnAssign`, every field whose shown value changes assigns its property.
    // Returns the ids of those fields. A missing back end shows nothing.
    std::vector<int> RefillFrom(IBrowser* aobjBrowser, bool ablnAssign);

    IBrowser* Browser() const { return mobjBrowser; }

  protected:
    // The page's back end in the profile (nullptr when not installed).
    virtual IBrowser* BackEnd(clsRwzConfig& aobjConfig) const = 0;
    // The object name of the page's log lines.
    virtual const char* LogTag() const = 0;

    using TextField = std::string BrowserRecord::*;
    using FlagField = bool BrowserRecord::*;
    using ListGetter = std::function<std::vector<std::string>(IBrowser&)>;

    void BindText(int aintControlId, TextField aField);
    void BindCheck(int aintControlId, FlagField aField);
    void BindOptionPair(int aintTrueId, int aintFalseId, FlagField aField);
    void BindList(int aintControlId, ListGetter items, TextField aField);

    bool IsChecked(int aintControlId) const;
    void Enable(int aintControlId, bool ablnEnabled) const;
    // Localized captions of a control array of consecutive ids, with the
    // page's log tag as the key tag.
    void SetArrayCaption(int aintFirstId, int aintCount, const char* aszCategory) const;

  private:
    IBrowser* mobjBrowser = nullptr;
};

}  // namespace rwz
