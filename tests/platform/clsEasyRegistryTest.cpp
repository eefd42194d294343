// clsEasyRegistry against the registry: every store type read and written,
// each write checked with the raw API.
#include "platform/clsEasyRegistry.h"

#include <gtest/gtest.h>

#include "platform/modUtilities.h"
#include "support/RawRegistry.h"

namespace rwz {
namespace {

using test::Bytes;
using test::RawDeleteTree;
using test::RawQuery;
using test::RawSetValue;

// One scratch key per test: \HKEY_CURRENT_USER\Software\RoamwiseTest\<test name>.
class EasyRegistryTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mSub = std::string("Software\\RoamwiseTest\\") +
               ::testing::UnitTest::GetInstance()->current_test_info()->name();
        RawDeleteTree(HKEY_CURRENT_USER, mSub);
        RawSetValue(HKEY_CURRENT_USER, mSub, nullptr);
        mPath = "\\HKEY_CURRENT_USER\\" + mSub;
    }
    void TearDown() override { RawDeleteTree(HKEY_CURRENT_USER, mSub); }

    std::string mSub;   // below HKEY_CURRENT_USER
    std::string mPath;  // the same as the class's path
};

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

}  // namespace
}  // namespace rwz
