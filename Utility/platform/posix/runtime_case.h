// Case as the runtime's character locale has it.
#pragma once

#include <Utility/platform/types.h>

#include <cstddef>

namespace Torvo::platform {

// Compares up to `count` units of two texts ignoring case, by towlower: below 0, 0 or above.
int CompareByCharacterLocale(const wchar16* a, const wchar16* b, std::size_t count);

}  // namespace Torvo::platform
