#include <Utility/platform/version.h>

namespace Torvo::platform {

uint64 VerSetConditionMask(uint64 conditionMask, uint32 typeMask, uint8 condition) {
    return ::VerSetConditionMask(conditionMask, typeMask, condition);
}

bool VerifyVersionInfoW(OSVERSIONINFOEXW* version, uint32 typeMask, uint64 conditionMask) {
    return ::VerifyVersionInfoW(version, typeMask, conditionMask) != 0;
}

}  // namespace Torvo::platform
