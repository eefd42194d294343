// The one interface through which the profile object, the tabs and the report
// handle a web browser: its settings record, assignments that mark the record
// modified, and the operations that move the record between the live browser
// and a profile file. Internet Explorer, Netscape/Mozilla and Opera implement it.
#pragma once

#include <string>
#include <vector>

#include "browsers/BrowserRecord.h"

namespace rwz {

class IBrowser {
  public:
    virtual ~IBrowser() = default;

    const BrowserRecord& Record() const { return mRecord; }
    // Stores a setting and marks the record modified, even when the value is
    // the one already held.
    void Assign(std::string BrowserRecord::*aField, const std::string& astrValue) {
        mRecord.*aField = astrValue;
        mblnIsModified = true;
        Assigned(aField);
    }
    void Assign(bool BrowserRecord::*aField, bool ablnValue) {
        mRecord.*aField = ablnValue;
        mblnIsModified = true;
    }

    bool IsInstalled() const { return mblnIsInstalled; }
    float Version() const { return msngVersion; }
    const std::string& VersionString() const { return mstrVersionString; }
    // A setting was assigned since the last load from the browser or reset.
    bool IsModified() const { return mblnIsModified; }
    void ResetFlags() { mblnIsModified = false; }

    // The user agent identities the browser offers (Opera).
    virtual std::vector<std::string> GetUserAgents() const { return {}; }
    // Fills the record from the live browser.
    virtual void LoadConfiguration() = 0;
    // Makes the record effective in the live browser; nothing unless modified.
    virtual void ApplyConfiguration() = 0;
    // Fills the record from the browser's section of a profile file; the
    // modified state is left as it was.
    virtual void LoadConfigurationFile(const std::string& astrFile) = 0;
    // Writes every key of the browser's section to a profile file.
    virtual void SaveConfigurationFile(const std::string& astrFile) = 0;

  protected:
    // After a text assignment, for settings that hang together (Opera keeps
    // two codes behind its user agent).
    virtual void Assigned(std::string BrowserRecord::* /*aField*/) {}

    BrowserRecord mRecord;
    bool mblnIsInstalled = false;
    float msngVersion = 0;
    std::string mstrVersionString;

  private:
    bool mblnIsModified = false;
};

}  // namespace rwz
