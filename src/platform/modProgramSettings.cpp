#include "platform/modProgramSettings.h"

#include "platform/Procedure.h"

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
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        registry.SetCurrentKey(kSoftwareKey);
        if (registry.LastError() != 0) return;
        registry.MakeKey(astrProduct + "\\" + astrSection);
        if (registry.LastError() != 0) return;
        registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
        if (registry.LastError() != 0) return;
        registry.SetValueOf(astrKey, kRegString, astrValue);
    });
}

std::string GetProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault) {
    Procedure proc("modUtilities", "GetProgramSetting");
    return proc.Run(
        [&] {
            clsEasyRegistry registry;
            registry.SetSuppressErrors(true);
            registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
            if (registry.LastError() != 0) return astrDefault;
            RegistryValue value = registry.ValueOf(astrKey);
            if (registry.LastError() != 0) return astrDefault;
            return value.Text;
        },
        astrDefault);
}

std::vector<RegistryValueRow> GetAllProgramSettings(const std::string& astrProduct,
                                                    const std::string& astrSection) {
    Procedure proc("modUtilities", "GetAllProgramSettings");
    return proc.Run([&] {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
        if (registry.LastError() != 0) return std::vector<RegistryValueRow>();
        return registry.DirValue();
    });
}

void DeleteProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                          const std::string& astrKey) {
    Procedure proc("modUtilities", "DeleteProgramSetting");
    proc.Run([&] {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        if (!astrKey.empty()) {
            registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
            if (registry.LastError() == 0) registry.DeleteValue(astrKey);
        } else {
            registry.SetCurrentKey(ProductPath(astrProduct));
            if (registry.LastError() == 0) registry.DeleteKey(astrSection);
        }
    });
}

}  // namespace rwz
