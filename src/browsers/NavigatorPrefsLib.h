// Reads and edits a Netscape or Mozilla user preferences file ("prefs.js").
//
// The file is held as its list of text lines, exactly as read but without line
// ends. Reads and edits work on the list only; ClosePrefsFile writes the list
// back, each line followed by CR LF, when the file was opened for writing.
// Lines that are not edited, comments and unknown preferences included, keep
// their text and their places.
//
// A preference line looks like
//     user_pref("network.proxy.http", "proxy.example.com");
//     user_pref("network.proxy.http_port", 8080);
//     user_pref("mail.leave_on_server", true);
// Names are found without regard to (ASCII) case; the writers keep the case
// they are given. Text values are escaped as the browser escapes them, so no
// value can end its line early or add a preference of its own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

class NavigatorPrefsLib {
  public:
    NavigatorPrefsLib() = default;
    // Closes the file (writing it when asked to) if it is still open. Never throws.
    ~NavigatorPrefsLib();
    NavigatorPrefsLib(const NavigatorPrefsLib&) = delete;
    NavigatorPrefsLib& operator=(const NavigatorPrefsLib&) = delete;

    // Reads the file into a new list (a list still open is dropped unwritten). An empty path shows
    // "Could not locate Netscape preference file." and leaves the object closed. A file that cannot
    // be read leaves it closed too (so that nothing is later written over it); the error is logged
    // and pending. True when the file was read.
    bool OpenPrefsFile(const std::string& astrFile, bool ablnWriteOnClose);
    // Writes the lines back when the write-on-close flag is set, then empties the
    // list and forgets the path, whether or not the write succeeded. False when a
    // write was due and failed (the file on disk is then left as it was).
    bool ClosePrefsFile();

    // Replaces the list by the lines of a file's text / the text the list
    // makes, each line followed by CR LF.
    void LoadPrefsText(const std::string& astrText);
    std::string PrefsText() const;

    // The value without its surrounding quotes and escapes; "" when the name
    // is absent. The value ends at the line's first ")" outside a quoted text.
    std::string GetSetting(const std::string& astrName) const;
    // A text preference: replaces the line in place, except that a line that was
    // the last one moves up before the line above it; a new name is appended
    // (to an empty list too).
    void SaveSettingStr(const std::string& astrName, const std::string& astrValue);
    // Integer and Boolean preferences replace the line in place; a new name is
    // appended.
    void SaveSettingInt(const std::string& astrName, int16_t aintValue);
    void SaveSettingBoolean(const std::string& astrName, bool ablnValue);
    void DeleteSetting(const std::string& astrName);

    bool WritePrefsOnClose() const { return mblnWritePrefsOnClose; }
    void SetWritePrefsOnClose(bool ablnValue) { mblnWritePrefsOnClose = ablnValue; }

    // The open file's path; "" when closed.
    const std::string& PrefsFile() const { return mstrPrefsFile; }
    bool IsOpen() const { return !mstrPrefsFile.empty(); }
    const std::vector<std::string>& Lines() const { return mcolLines; }

  private:
    // The number (from 1) of the first line that holds the name; 0 when none does.
    size_t FindSetting(const std::string& astrName) const;
    // Puts a built preference line in place of the name's line, or appends it.
    void StoreLine(const std::string& astrName, std::string astrLine, bool ablnTextPreference);

    std::string mstrPrefsFile;
    bool mblnWritePrefsOnClose = false;
    std::vector<std::string> mcolLines;
};

// Splits a file's text into lines at CR LF or LF. A line end at the very end
// does not start another line; a lone CR stays part of its line.
std::vector<std::string> SplitPrefsLines(const std::string& astrText);

// A text value as the browser's own writer puts it between double quotes:
// backslash, double quote and the line breaks escaped.
std::string EscapePrefsText(const std::string& astrValue);
// The reverse, for a value read from the file.
std::string UnescapePrefsText(const std::string& astrValue);

}  // namespace rwz
