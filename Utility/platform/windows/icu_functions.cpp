#include "icu_functions.h"

#include <Utility/platform/modules.h>

#include <cstring>

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

// The name is put together in place: a string could run out of memory, which is no reason to throw here.
template <typename Function, std::size_t NameSize>
bool Find(HINSTANCE module, const char (&name)[NameSize], const char* suffix, Function& function) {
    constexpr std::size_t suffixSize = 8;
    char full[NameSize + suffixSize] = {};
    std::memcpy(full, name, NameSize - 1);
    std::strncpy(full + NameSize - 1, suffix, suffixSize);
    function = reinterpret_cast<Function>(platform::GetProcAddress(module, full));
    return function != nullptr;
}

bool FindIn(const IcuModules& from, IcuFunctions& icu) {
    if (from.collation == nullptr) return false;
    const char* const suffix = from.suffix;
    return Find(from.collation, "ucol_open", suffix, icu.calls.open) &&
           Find(from.collation, "ucol_close", suffix, icu.calls.close) &&
           Find(from.collation, "ucol_setStrength", suffix, icu.calls.setStrength) &&
           Find(from.collation, "ucol_getSortKey", suffix, icu.calls.getSortKey) &&
           Find(from.collation, "ucol_strcoll", suffix, icu.calls.compare) &&
           Find(from.common, "unorm2_getNFCInstance", suffix, icu.getComposer) &&
           Find(from.common, "unorm2_normalize", suffix, icu.normalize) &&
           Find(from.common, "u_strToUpper", suffix, icu.toUpper);
}

}  // namespace

bool FindIcuFunctions(CollationLoader load, IcuFunctions& icu) {
    return FindIn(SystemModules(load), icu) || FindIn(ReleaseModules(load), icu);
}

}  // namespace Torvo::platform
