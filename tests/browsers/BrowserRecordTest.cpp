// The settings record behind IBrowser: what each setter stores and marks.
#include <gtest/gtest.h>

#include "TestBrowser.h"

namespace rwz::test {
namespace {

// A snapshot of every settable property, to see which ones an operation touched.
struct Snapshot {
    std::vector<std::string> Texts;
    std::vector<bool> Flags;

    explicit Snapshot(const IBrowser& browser) {
        for (const TextProperty& p : TextProperties()) Texts.push_back((browser.*p.Get)());
        for (const FlagProperty& p : FlagProperties()) Flags.push_back((browser.*p.Get)());
    }
};

// Each setter stores into its own property only: a slip in one of the many
// near-identical setters would show as a second property changing.
TEST(BrowserRecord, EachTextSetterStoresItsOwnProperty) {
    const auto& properties = TextProperties();
    for (size_t i = 0; i < properties.size(); ++i) {
        TestBrowser browser;
        IBrowser& record = browser;
        (record.*properties[i].Set)("value");
        const Snapshot after(record);
        for (size_t j = 0; j < properties.size(); ++j) {
            EXPECT_EQ(after.Texts[j], i == j ? "value" : "")
                << "setting " << properties[i].Name << " changed " << properties[j].Name;
        }
        for (size_t j = 0; j < after.Flags.size(); ++j) EXPECT_FALSE(after.Flags[j]);
    }
}

TEST(BrowserRecord, EachFlagSetterStoresItsOwnProperty) {
    const auto& properties = FlagProperties();
    for (size_t i = 0; i < properties.size(); ++i) {
        TestBrowser browser;
        IBrowser& record = browser;
        (record.*properties[i].Set)(true);
        const Snapshot after(record);
        for (size_t j = 0; j < properties.size(); ++j) {
            EXPECT_EQ(after.Flags[j], i == j)
                << "setting " << properties[i].Name << " changed " << properties[j].Name;
        }
        for (const std::string& text : after.Texts) EXPECT_EQ(text, "");
    }
}

// Assigning marks the record modified even when the value does not change:
// the tabs decide whether to assign, the record does not compare.
TEST(BrowserRecord, EverySetterMarksModifiedEvenWithTheSameValue) {
    for (const TextProperty& p : TextProperties()) {
        TestBrowser browser;
        IBrowser& record = browser;
        (record.*p.Set)((record.*p.Get)());
        EXPECT_TRUE(record.IsModified()) << p.Name;
        record.ResetFlags();
        EXPECT_FALSE(record.IsModified()) << p.Name;
    }
    for (const FlagProperty& p : FlagProperties()) {
        TestBrowser browser;
        IBrowser& record = browser;
        (record.*p.Set)((record.*p.Get)());
        EXPECT_TRUE(record.IsModified()) << p.Name;
        record.ResetFlags();
        EXPECT_FALSE(record.IsModified()) << p.Name;
    }
}

// The profile object's calling order: load the browser, read a profile over
// it, let the tab assign what differs, apply, reset.
TEST(BrowserRecord, ModifiedStateThroughTheProfileObjectsCallingOrder) {
    ScratchFile file("calling-order");
    file.Write("[Internet Explorer]\r\nDefHomePage=http://profile/\r\n");
    TestBrowser browser;
    browser.LiveHomePage = "http://machine/";
    IBrowser& record = browser;

    record.SetProxyEnabled(true);
    record.LoadConfiguration();
    EXPECT_FALSE(record.IsModified());

    // Reading a profile changes the settings but not the modified state.
    record.LoadConfigurationFile(file.Path());
    EXPECT_EQ(record.DefaultHomePage(), "http://profile/");
    EXPECT_FALSE(record.IsModified());
    record.ApplyConfiguration();
    EXPECT_EQ(browser.ApplyCount, 0);

    record.SetDefaultHomePage(record.DefaultHomePage());
    record.LoadConfigurationFile(file.Path());
    EXPECT_TRUE(record.IsModified()) << "reading a profile does not clear the mark either";
    record.ApplyConfiguration();
    EXPECT_EQ(browser.ApplyCount, 1);
    EXPECT_EQ(browser.LiveHomePage, "http://profile/");
    EXPECT_FALSE(record.IsModified());
}

}  // namespace
}  // namespace rwz::test
