// clsEasyRegistry against the registry: paths, errors raised or recorded, and
// every store type read and written, each write checked with the raw API.
#include "platform/clsEasyRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "platform/modUtilities.h"
#include "support/RawRegistry.h"

namespace rwz {
namespace {

using test::Bytes;
using test::RawCreateKey;
using test::RawDeleteTree;
using test::RawKeyExists;
using test::RawQuery;
using test::RawSetString;
using test::RawSetValue;

ErrorInfo RaisedBy(const std::function<void()>& action) {
    try {
        action();
    } catch (const RwzError& error) {
        return error.Info();
    }
    return ErrorInfo{};
}

// One scratch key per test: \HKEY_CURRENT_USER\Software\RoamwiseTest\<test name>.
class EasyRegistryTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mSub = std::string("Software\\RoamwiseTest\\") +
               ::testing::UnitTest::GetInstance()->current_test_info()->name();
        RawDeleteTree(HKEY_CURRENT_USER, mSub);
        RawCreateKey(HKEY_CURRENT_USER, mSub);
        mPath = "\\HKEY_CURRENT_USER\\" + mSub;
    }
    void TearDown() override { RawDeleteTree(HKEY_CURRENT_USER, mSub); }

    std::string mSub;   // below HKEY_CURRENT_USER
    std::string mPath;  // the same as the class's path
};

TEST_F(EasyRegistryTest, PathsAreTrimmedUpperCasedAndMadeAbsolute) {
    const struct {
        const char* Path;
        const char* Expected;
    } cases[] = {
        {"\\hkey_current_user\\software\\", "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {"  HKEY_CURRENT_USER\\Software  ", "\\HKEY_CURRENT_USER\\SOFTWARE"},
        {"\\HKEY_LOCAL_MACHINE\\", "\\HKEY_LOCAL_MACHINE"},
        {"\\HKEY_CLASSES_ROOT", "\\HKEY_CLASSES_ROOT"},
        {"\\HKEY_USERS", "\\HKEY_USERS"},
        {"\\HKEY_CURRENT_CONFIG", "\\HKEY_CURRENT_CONFIG"},
        {"\\HKEY_DYN_DATA", "\\HKEY_DYN_DATA"},
    };
    for (const auto& c : cases) {
        clsEasyRegistry registry;
        registry.SetCurrentKey(c.Path);
        EXPECT_EQ(registry.LastError(), 0) << c.Path;
        EXPECT_EQ(registry.CurrentKey(), c.Expected) << c.Path;
    }
}

TEST_F(EasyRegistryTest, MisuseIsRaisedEvenWithErrorsSuppressed) {
    const std::string noRoot = "clsEasyRegistry";
    const std::string let = "clsEasyRegistry [Let ValueOf]";
    const std::string mismatch = "Type passed doesn't match Value passed.";
    const std::string unknown = "Type passed doesn't exist. Use STRING, DWORD or BINARY.";
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* What;
        bool KeyOpen;
        std::function<void(clsEasyRegistry&)> Action;
        int32_t Number;
        std::string Source;
        std::string Description;
    } cases[] = {
        {"parent with none open", false, [](auto& r) { r.SetCurrentKey(".."); }, kObjectError + 1,
         noRoot, "No current Key."},
        {"abbreviated root", false, [](auto& r) { r.SetCurrentKey("\\HKLM\\SOFTWARE"); },
         kObjectError + 2, noRoot, "Invalid Key root."},
        {"empty path, none open", false, [](auto& r) { r.SetCurrentKey(""); }, kObjectError + 2,
         noRoot, "Invalid Key root."},
        {"string as number", true, [](auto& r) { r.SetValueOf("V", kRegString, 1.0); },
         kObjectError + 3, let, mismatch},
        {"dword too big", true, [](auto& r) { r.SetValueOf("V", kRegDword, 4294967296.0); },
         kObjectError + 3, let, mismatch},
        {"dword negative", true, [](auto& r) { r.SetValueOf("V", kRegDword, -1.0); },
         kObjectError + 3, let, mismatch},
        {"dword fraction", true, [](auto& r) { r.SetValueOf("V", kRegDword, 1.5); },
         kObjectError + 3, let, mismatch},
        {"dword NaN", true, [&](auto& r) { r.SetValueOf("V", kRegDword, nan); }, kObjectError + 3,
         let, mismatch},
        {"binary as text", true, [](auto& r) { r.SetValueOf("V", kRegBinary, std::string("1")); },
         kObjectError + 3, let, mismatch},
        {"type code 4", true, [](auto& r) { r.SetValueOf("V", 4, std::string("x")); },
         kObjectError + 4, let, unknown},
    };
    for (const auto& c : cases) {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        if (c.KeyOpen) registry.SetCurrentKey(mPath);
        const ErrorInfo raised = RaisedBy([&] { c.Action(registry); });
        EXPECT_EQ(raised.Number, c.Number) << c.What;
        EXPECT_EQ(raised.Source, c.Source) << c.What;
        EXPECT_EQ(raised.Description, c.Description) << c.What;
    }
    EXPECT_EQ(RawQuery(HKEY_CURRENT_USER, mSub, "V").Result, ERROR_FILE_NOT_FOUND);
}

TEST_F(EasyRegistryTest, StoreFailuresAreRaisedUnlessSuppressed) {
    clsEasyRegistry loud;
    ErrorInfo raised = RaisedBy([&] { loud.SetCurrentKey(mPath + "\\Missing"); });
    EXPECT_EQ(raised.Number, kRegistryApiError);
    EXPECT_EQ(raised.Source, "clsEasyRegistry[API Call]");
    EXPECT_EQ(raised.Description, "Key/Value does not exist.");
    EXPECT_EQ(loud.LastError(), ERROR_FILE_NOT_FOUND);

    loud.SetCurrentKey(mPath);
    raised = RaisedBy([&] { loud.ValueOf("Missing"); });
    EXPECT_EQ(raised.Number, kRegistryApiError);
    EXPECT_EQ(loud.LastError(), ERROR_FILE_NOT_FOUND);

    clsEasyRegistry quiet;
    quiet.SetSuppressErrors(true);
    quiet.SetCurrentKey(mPath);
    const RegistryValue missing = quiet.ValueOf("Missing");
    EXPECT_EQ(quiet.LastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(missing.Type, kRegString);
    EXPECT_EQ(missing.Text, "");

    // A code outside the table (the empty handle with no key open).
    clsEasyRegistry closed;
    raised = RaisedBy([&] { closed.ValueOf("x"); });
    EXPECT_EQ(raised.Description, "Undefined key error code!");
}

TEST_F(EasyRegistryTest, ReadsEveryStoreTypeInItsTextForm) {
    const struct {
        const char* Name;
        DWORD Type;
        std::vector<uint8_t> Data;
        int Code;
        std::string Text;
        double Number;
    } cases[] = {
        {"Text", REG_SZ, Bytes(std::string("abc", 4)), kRegString, "abc", 0},
        {"Empty", REG_SZ, {0}, kRegString, "", 0},
        {"Expand", REG_EXPAND_SZ, Bytes(std::string("%SystemRoot%\\x", 15)), kRegString,
         "%SystemRoot%\\x", 0},
        {"Multi", REG_MULTI_SZ, Bytes(std::string("a\0b\0", 5)), kRegString,
         std::string("a\0b\0", 4), 0},
        {"Binary", REG_BINARY, {0x0A, 0x1F, 0x00}, kRegBinary, "A 1F 0", 0},
        {"NoBytes", REG_BINARY, {}, kRegBinary, "", 0},
        {"Dword", REG_DWORD, {0xCD, 0xAB, 0x01, 0x00}, kRegDword, "0001ABCD", 109517},
        {"High", REG_DWORD, {0, 0, 0, 0x80}, kRegDword, "80000000", 2147483648.0},
        {"Max", REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF}, kRegDword, "FFFFFFFF", 4294967295.0},
        {"", REG_SZ, Bytes(std::string("default", 8)), kRegString, "default", 0},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(RawSetValue(HKEY_CURRENT_USER, mSub, c.Name, c.Type, c.Data), ERROR_SUCCESS);
    }
    clsEasyRegistry registry;
    registry.SetCurrentKey(mPath);
    for (const auto& c : cases) {
        const RegistryValue value = registry.ValueOf(c.Name);
        EXPECT_EQ(registry.LastError(), 0) << c.Name;
        EXPECT_EQ(value.Type, c.Code) << c.Name;
        EXPECT_EQ(value.Text, c.Text) << c.Name;
        EXPECT_EQ(value.Number, c.Number) << c.Name;
        EXPECT_EQ(value.Bytes, c.Data) << c.Name;
    }
}

TEST_F(EasyRegistryTest, WritesTheStoreTypeAndExactBytes) {
    const struct {
        const char* Name;
        int Code;
        RegistryData Value;
        DWORD StoreType;
        std::vector<uint8_t> Stored;  // as the raw API reads it back
        std::string Text;             // as ValueOf reads it back
    } cases[] = {
        // The store counts the string's terminator itself.
        {"Text", kRegString, std::string("abc"), REG_SZ, Bytes(std::string("abc", 4)), "abc"},
        {"Empty", kRegString, std::string(), REG_SZ, {}, ""},
        {"Binary",
         kRegBinary,
         std::vector<uint8_t>{0, 1, 0x2A, 0xFF},
         REG_BINARY,
         {0, 1, 0x2A, 0xFF},
         "0 1 2A FF"},
        {"Max", kRegDword, 4294967295.0, REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF}, "FFFFFFFF"},
        {"Order", kRegDword, 305419896.0, REG_DWORD, {0x78, 0x56, 0x34, 0x12}, "12345678"},
        {"Multi", kRegMultiString, CommaListToMultiString("a,b"), REG_MULTI_SZ,
         Bytes(std::string("a\0b\0", 4)), std::string("a\0b", 3)},
        {"NoList",
         kRegMultiString,
         CommaListToMultiString(""),
         REG_MULTI_SZ,
         {0, 0},
         std::string(1, '\0')},
    };
    clsEasyRegistry registry;
    registry.SetCurrentKey(mPath);  // opened for reading only
    for (const auto& c : cases) {
        registry.SetValueOf(c.Name, c.Code, c.Value);
        EXPECT_EQ(registry.LastError(), 0) << c.Name;
        const test::RawValue raw = RawQuery(HKEY_CURRENT_USER, mSub, c.Name);
        EXPECT_EQ(raw.Result, ERROR_SUCCESS) << c.Name;
        EXPECT_EQ(raw.Type, c.StoreType) << c.Name;
        EXPECT_EQ(raw.Data, c.Stored) << c.Name;
        EXPECT_EQ(registry.ValueOf(c.Name).Text, c.Text) << c.Name;
    }
    // Overwriting changes the type too.
    registry.SetValueOf("Text", kRegDword, 7.0);
    EXPECT_EQ(RawQuery(HKEY_CURRENT_USER, mSub, "Text").Type, static_cast<DWORD>(REG_DWORD));
}

TEST_F(EasyRegistryTest, DirKeyListsRootsSubKeysOrNothing) {
    clsEasyRegistry registry;
    const auto roots = registry.DirKey();
    ASSERT_TRUE(roots.has_value());
    EXPECT_EQ(*roots, (std::vector<std::string>{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",
                                                "HKEY_LOCAL_MACHINE", "HKEY_USERS", "HKEY_DYN_DATA",
                                                "HKEY_CURRENT_CONFIG"}));

    registry.SetCurrentKey(mPath);
    EXPECT_FALSE(registry.DirKey().has_value());
    EXPECT_EQ(registry.LastError(), 0);

    const std::string longName(200, 'L');
    for (const std::string& name : {std::string("Beta"), std::string("alpha"), longName}) {
        ASSERT_TRUE(RawCreateKey(HKEY_CURRENT_USER, mSub + "\\" + name)) << name;
    }
    RawCreateKey(HKEY_CURRENT_USER, mSub + "\\Beta\\Below");
    auto keys = registry.DirKey();
    ASSERT_TRUE(keys.has_value());
    std::sort(keys->begin(), keys->end());
    EXPECT_EQ(*keys, (std::vector<std::string>{"Beta", longName, "alpha"}));
}

TEST_F(EasyRegistryTest, DeleteKeyAndDeleteValue) {
    RawCreateKey(HKEY_CURRENT_USER, mSub + "\\Gone");
    RawCreateKey(HKEY_CURRENT_USER, mSub + "\\Parent\\Child");
    RawSetString(HKEY_CURRENT_USER, mSub, "V", "x");
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(mPath);

    registry.DeleteKey("Gone");
    EXPECT_EQ(registry.LastError(), 0);
    EXPECT_FALSE(RawKeyExists(HKEY_CURRENT_USER, mSub + "\\Gone"));
    registry.DeleteKey("Gone");
    EXPECT_EQ(registry.LastError(), ERROR_FILE_NOT_FOUND);
    // As on NT, a key with sub-keys is refused, not deleted with them.
    registry.DeleteKey("Parent");
    EXPECT_EQ(registry.LastError(), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, mSub + "\\Parent\\Child"));

    registry.DeleteValue("V");
    EXPECT_EQ(registry.LastError(), 0);
    EXPECT_EQ(RawQuery(HKEY_CURRENT_USER, mSub, "V").Result, ERROR_FILE_NOT_FOUND);
    registry.DeleteValue("V");
    EXPECT_EQ(registry.LastError(), ERROR_FILE_NOT_FOUND);
}

}  // namespace
}  // namespace rwz
