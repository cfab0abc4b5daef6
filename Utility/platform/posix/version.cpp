#include <Utility/platform/version.h>

#include <bit>
#include <compare>

namespace Torvo::platform {

namespace {

// What this system presents itself as.
constexpr uint32 MajorVersion = 10;
constexpr uint32 MinorVersion = 0;
constexpr uint16 ServicePackMajor = 0;
constexpr uint8 ProductType = VER_NT_WORKSTATION;

// A condition mask holds three bits for each member, by the member's place in the type mask.
constexpr uint32 BitsPerCondition = 3;

uint32 PlaceOf(uint32 member) {
    return static_cast<uint32>(std::countr_zero(member));
}

uint8 ConditionFor(uint64 conditionMask, uint32 member) {
    return static_cast<uint8>(conditionMask >> (PlaceOf(member) * BitsPerCondition) & 7);
}

bool Holds(std::strong_ordering order, uint8 condition) {
    return condition == VER_EQUAL ? order == 0 : condition == VER_GREATER_EQUAL && order >= 0;
}

}  // namespace

uint64 VerSetConditionMask(uint64 conditionMask, uint32 typeMask, uint8 condition) {
    for (uint32 rest = typeMask; rest != 0; rest &= rest - 1) {
        conditionMask |= uint64{condition & 7u} << (PlaceOf(rest) * BitsPerCondition);
    }
    return conditionMask;
}

bool VerifyVersionInfoW(OSVERSIONINFOEXW* version, uint32 typeMask, uint64 conditionMask) {
    if ((typeMask & VER_PRODUCT_TYPE) != 0 &&
        !Holds(ProductType <=> version->wProductType, ConditionFor(conditionMask, VER_PRODUCT_TYPE))) {
        return false;
    }
    // Version numbers are compared as one: a lower member counts only where the higher ones are equal.
    std::strong_ordering order = std::strong_ordering::equal;
    uint8 condition = 0;
    const auto compare = [&](uint32 member, std::strong_ordering memberOrder) {
        if ((typeMask & member) == 0) return;
        if (condition == 0) condition = ConditionFor(conditionMask, member);
        if (order == 0) order = memberOrder;
    };
    compare(VER_MAJORVERSION, MajorVersion <=> version->dwMajorVersion);
    compare(VER_MINORVERSION, MinorVersion <=> version->dwMinorVersion);
    compare(VER_SERVICEPACKMAJOR, ServicePackMajor <=> version->wServicePackMajor);
    return condition == 0 || Holds(order, condition);
}

}  // namespace Torvo::platform
