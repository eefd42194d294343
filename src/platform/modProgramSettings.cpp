#include "platform/modProgramSettings.h"

#include "platform/Procedure.h"
#include "platform/modRegistry.h"

namespace rwz {

namespace {

const char kSoftwareKey[] = "\\HKEY_LOCAL_MACHINE\\Software";

std::string ProductPath(const std::string& astrProduct) {
    return std::string(kSoftwareKey) + "\\" + astrProduct;
}

std::string SectionPath(const std::string& astrProduct, const std::string& astrSection) {
    return ProductPath(astrProduct) + "\\" + astrSection;
}

}  // namespace

void SaveProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue) {
    Procedure proc("modUtilities", "SaveProgramSetting");
    proc.Run([&] {
        reg::Write(SectionPath(astrProduct, astrSection), astrKey, kRegString, astrValue);
    });
}

std::string GetProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault) {
    Procedure proc("modUtilities", "GetProgramSetting");
    return proc.Run(
        [&] {
            const std::optional<RegistryValue> value =
                reg::Read(SectionPath(astrProduct, astrSection), astrKey);
            return value ? value->Text : astrDefault;
        },
        astrDefault);
}

std::vector<RegistryValueRow> GetAllProgramSettings(const std::string& astrProduct,
                                                    const std::string& astrSection) {
    Procedure proc("modUtilities", "GetAllProgramSettings");
    return proc.Run([&] {
        return reg::Values(SectionPath(astrProduct, astrSection));
    });
}

void DeleteProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                          const std::string& astrKey) {
    Procedure proc("modUtilities", "DeleteProgramSetting");
    proc.Run([&] {
        if (!astrKey.empty())
            reg::DeleteValue(SectionPath(astrProduct, astrSection), astrKey);
        else
            reg::DeleteKey(ProductPath(astrProduct), astrSection);
    });
}

}  // namespace rwz
