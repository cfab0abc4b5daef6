#include "icu_functions.h"

#include <Utility/platform/modules.h>

#include <string>

namespace Torvo::platform {

namespace {

// Where the functions of a release are, and what stands behind their names.
struct IcuModules {
    HINSTANCE common = nullptr;
    HINSTANCE collation = nullptr;
    const char* suffix = "";
};

IcuModules SystemModules(CollationLoader load) {
    const HINSTANCE icu = load(ZUTEXT("icu.dll"));
    return {icu, icu, ""};
}

// The data first, on which the others depend.
IcuModules ReleaseModules(CollationLoader load) {
    if (load(ZUTEXT("icudt55.dll")) == nullptr) return {};
    const HINSTANCE common = load(ZUTEXT("icuuc55.dll"));
    return {common, common != nullptr ? load(ZUTEXT("icuin55.dll")) : nullptr, "_55"};
}

template <typename Function>
bool Find(HINSTANCE module, const std::string& name, Function& function) {
    function = reinterpret_cast<Function>(platform::GetProcAddress(module, name.c_str()));
    return function != nullptr;
}

bool FindIn(const IcuModules& from, IcuFunctions& icu) {
    if (from.collation == nullptr) return false;
    const std::string suffix = from.suffix;
    return Find(from.collation, "ucol_open" + suffix, icu.calls.open) &&
           Find(from.collation, "ucol_close" + suffix, icu.calls.close) &&
           Find(from.collation, "ucol_setStrength" + suffix, icu.calls.setStrength) &&
           Find(from.collation, "ucol_getSortKey" + suffix, icu.calls.getSortKey) &&
           Find(from.collation, "ucol_strcoll" + suffix, icu.calls.compare) &&
           Find(from.common, "unorm2_getNFCInstance" + suffix, icu.getComposer) &&
           Find(from.common, "unorm2_normalize" + suffix, icu.normalize) &&
           Find(from.common, "u_strToUpper" + suffix, icu.toUpper);
}

}  // namespace

bool FindIcuFunctions(CollationLoader load, IcuFunctions& icu) {
    return FindIn(SystemModules(load), icu) || FindIn(ReleaseModules(load), icu);
}

}  // namespace Torvo::platform
