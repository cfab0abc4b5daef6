#include <Utility/platform/runtime.h>

#include <limits>

namespace Torvo::platform {

namespace {

bool IsSpace(wchar16 unit) {
    return unit == ' ' || (unit >= 9 && unit <= 13);
}

}  // namespace

int _wtoi(const wchar16* text) {
    while (IsSpace(*text)) ++text;
    const bool negative = *text == '-';
    if (negative || *text == '+') ++text;
    constexpr int64 Limit = std::numeric_limits<int>::max();
    int64 value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        value = value * 10 + (*text - '0');
        if (value > Limit) value = Limit + 1;
    }
    if (negative) return static_cast<int>(-value);
    return static_cast<int>(value > Limit ? Limit : value);
}

}  // namespace Torvo::platform
