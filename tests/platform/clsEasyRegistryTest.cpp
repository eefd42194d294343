// clsEasyRegistry against Wine's registry; every write is checked with the raw API.
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

// Each root name reaches its own predefined key: the class lists what the raw API lists.
TEST_F(EasyRegistryTest, EachRootListsTheSubKeysOfItsPredefinedKey) {
    const struct {
        const char* Name;
        HKEY Handle;
    } roots[] = {
        {"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},   {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
        {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE}, {"HKEY_USERS", HKEY_USERS},
        {"HKEY_DYN_DATA", HKEY_DYN_DATA},           {"HKEY_CURRENT_CONFIG", HKEY_CURRENT_CONFIG},
    };
    for (const auto& root : roots) {
        std::vector<std::string> expected;
        char name[1024];
        DWORD length = sizeof name;
        for (DWORD i = 0; RegEnumKeyExA(root.Handle, i, name, &length, nullptr, nullptr, nullptr,
                                        nullptr) == ERROR_SUCCESS;
             ++i, length = sizeof name) {
            expected.emplace_back(name, length);
        }
        clsEasyRegistry registry;
        registry.SetCurrentKey(std::string("\\") + root.Name);
        const auto listed = registry.DirKey();
        ASSERT_EQ(listed.has_value(), !expected.empty()) << root.Name;
        if (listed) {
            EXPECT_EQ(*listed, expected) << root.Name;
        }
    }
}

TEST_F(EasyRegistryTest, RelativePathsDescendAndDotDotClimbs) {
    clsEasyRegistry registry;
    registry.SetCurrentKey("\\HKEY_CURRENT_USER");
    registry.SetCurrentKey("Software\\RoamwiseTest\\");
    EXPECT_EQ(registry.CurrentKey(), "\\HKEY_CURRENT_USER\\SOFTWARE\\ROAMWISETEST");
    registry.SetCurrentKey(::testing::UnitTest::GetInstance()->current_test_info()->name());
    EXPECT_EQ(registry.CurrentKey(), ToUpper(mPath));

    // The relative descent really opened the scratch key.
    registry.SetValueOf("Here", kRegString, std::string("yes"));
    EXPECT_EQ(RawQuery(HKEY_CURRENT_USER, mSub, "Here").Data, Bytes(std::string("yes", 4)));

    registry.SetCurrentKey("..");
    EXPECT_EQ(registry.CurrentKey(), "\\HKEY_CURRENT_USER\\SOFTWARE\\ROAMWISETEST");
    registry.SetCurrentKey("..");
    registry.SetCurrentKey("..");
    EXPECT_EQ(registry.CurrentKey(), "\\HKEY_CURRENT_USER");
    registry.SetCurrentKey("..");
    EXPECT_EQ(registry.CurrentKey(), "");

    registry.SetCurrentKey(mPath);
    registry.SetCurrentKey("\\");
    EXPECT_EQ(registry.CurrentKey(), "");
    EXPECT_EQ(registry.LastError(), 0);
}

TEST_F(EasyRegistryTest, BackslashWithNoKeyOpenMakesNoStoreCall) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.DirValue();  // no key open: the store refuses the empty handle
    ASSERT_EQ(registry.LastError(), ERROR_INVALID_HANDLE);
    registry.SetCurrentKey("\\");
    EXPECT_EQ(registry.CurrentKey(), "");
    EXPECT_EQ(registry.LastError(), ERROR_INVALID_HANDLE);
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

TEST_F(EasyRegistryTest, DestructionNeitherThrowsNorHidesTheRaisedError) {
    EXPECT_NO_THROW({
        clsEasyRegistry registry;
        try {
            registry.SetCurrentKey(mPath + "\\Missing");
        } catch (const RwzError&) {
        }
    });
    try {
        clsEasyRegistry registry;
        registry.SetCurrentKey(mPath);
        registry.ValueOf("Missing");
        FAIL() << "not raised";
    } catch (const RwzError& error) {
        // The key's close during unwinding must not replace the error being handled.
        EXPECT_EQ(error.Number(), kRegistryApiError);
        EXPECT_EQ(error.Description(), "Key/Value does not exist.");
    }
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

TEST_F(EasyRegistryTest, DirValueGivesNameTextAndTypeCode) {
    const std::string longName(300, 'N');
    RawSetString(HKEY_CURRENT_USER, mSub, "Text", "hello");
    RawSetString(HKEY_CURRENT_USER, mSub, "Expand", "%X%", REG_EXPAND_SZ);
    RawSetValue(HKEY_CURRENT_USER, mSub, "Bin", REG_BINARY, {1, 0xB2});
    RawSetValue(HKEY_CURRENT_USER, mSub, "Num", REG_DWORD, {10, 0, 0, 0});
    RawSetValue(HKEY_CURRENT_USER, mSub, longName, REG_BINARY, std::vector<uint8_t>(600, 0xAB));

    clsEasyRegistry registry;
    registry.SetCurrentKey(mPath);
    auto rows = registry.DirValue();
    EXPECT_EQ(registry.LastError(), 0);
    std::sort(rows.begin(), rows.end(), [](auto& a, auto& b) { return a.Name < b.Name; });
    std::string bigText;
    for (int i = 0; i < 600; ++i) bigText += i ? " AB" : "AB";
    const std::vector<std::vector<std::string>> expected = {
        {"Bin", "1 B2", "1"},     {"Expand", "%X%", "0"}, {longName, bigText, "1"},
        {"Num", "0000000A", "2"}, {"Text", "hello", "0"},
    };
    ASSERT_EQ(rows.size(), expected.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ((std::vector<std::string>{rows[i].Name, rows[i].Data, rows[i].Type}),
                  expected[i]);
    }

    registry.SetCurrentKey(mPath);
    registry.MakeKey("Empty");
    registry.SetCurrentKey("Empty");
    EXPECT_TRUE(registry.DirValue().empty());
    EXPECT_EQ(registry.LastError(), 0);
}

TEST_F(EasyRegistryTest, MakeKeyCreatesNestedKeysAndKeepsExistingOnes) {
    RawSetString(HKEY_CURRENT_USER, mSub + "\\Existing", "Kept", "1");
    clsEasyRegistry registry;
    registry.SetCurrentKey(mPath);
    registry.MakeKey("New\\Deeper");
    EXPECT_EQ(registry.LastError(), 0);
    EXPECT_TRUE(RawKeyExists(HKEY_CURRENT_USER, mSub + "\\New\\Deeper"));
    registry.MakeKey("Existing");
    EXPECT_EQ(registry.LastError(), 0);
    EXPECT_EQ(RawQuery(HKEY_CURRENT_USER, mSub + "\\Existing", "Kept").Result, ERROR_SUCCESS);
    // The current key stays where it was.
    EXPECT_EQ(registry.CurrentKey(), ToUpper(mPath));
    auto keys = registry.DirKey();
    ASSERT_TRUE(keys.has_value());
    std::sort(keys->begin(), keys->end());
    EXPECT_EQ(*keys, (std::vector<std::string>{"Existing", "New"}));
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

TEST_F(EasyRegistryTest, IsWindowsNTFollowsThePlatformId) {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExA(&version));
    clsEasyRegistry registry;
    EXPECT_EQ(registry.IsWindowsNT(), version.dwPlatformId == VER_PLATFORM_WIN32_NT);
}

}  // namespace
}  // namespace rwz
