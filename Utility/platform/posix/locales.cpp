#include <Utility/platform/locales.h>

#include <Utility/platform/byte_copy.h>
#include <Utility/platform/host.h>
#include <Utility/platform/posix/locale_identifiers.h>
#include <Utility/platform/posix/locale_table.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/threads.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>
#include <string_view>

namespace Torvo::platform {

namespace {

// The longest name of a locale, terminator included, that the calls accept.
constexpr std::size_t LocaleNameMaxLength = 85;

// What SetThreadLocale set; 0 as long as the thread follows the user's default.
constinit thread_local uint32 threadLocale __attribute__((tls_model("initial-exec"))) = 0;

int Fail(uint32 error) {
    SetLastError(error);
    return 0;
}

// The common end of all calls that hand out text: with a size of 0 the number of units needed, else the copy.
int Deliver(const wchar16* text, uint32 units, wchar16* buffer, int size) {
    const int needed = static_cast<int>(units);
    if (size == 0) return needed;
    if (buffer == nullptr || size < needed) return Fail(ERROR_INSUFFICIENT_BUFFER);
    CopyUnits(buffer, text, units);
    return needed;
}

// Of the calls for names; a negative size is too small to them.
int DeliverName(std::string_view name, wchar16* buffer, int size) {
    if (buffer == nullptr && size > 0) return Fail(ERROR_INVALID_PARAMETER);
    wchar16 wide[LocaleNameMaxLength] = {};
    const std::size_t length = std::min(name.size(), LocaleNameMaxLength - 1);
    std::copy_n(name.data(), length, wide);
    return Deliver(wide, static_cast<uint32>(length + 1), buffer, size);
}

int DeliverNumber(const LocaleTable::Value& value, wchar16* buffer, int size) {
    const auto number = static_cast<uint32>(_wtoi(value.text));
    wchar16 units[sizeof number / sizeof(wchar16)];
    std::memcpy(units, &number, sizeof number);
    return Deliver(units, std::size(units), buffer, size);
}

// A name of 7-bit characters as bytes; empty for one that no locale can have.
std::string NarrowName(const wchar16* name) {
    const std::size_t length = wcslen(name);
    if (length >= LocaleNameMaxLength || std::any_of(name, name + length, [](wchar16 c) { return c >= 0x80; })) {
        return "?";
    }
    return std::string(name, name + length);
}

// Throws std::bad_alloc only for a name that has no row of its own.
uint32 LocaleOfName(std::string_view name, bool neutralAllowed) {
    const LocaleIdentifier* row = FindLocaleIdentifier(name);
    if (row != nullptr && row->IsNeutral() && !neutralAllowed) {
        row = FindLocaleIdentifier(row->specific);
        if (row == nullptr) return UnnumberedLocale;
    }
    if (row != nullptr) return row->lcid;
    if (CldrLocaleName(name).empty()) return 0;
    const LocaleIdentifier* const implied = FindImpliedLocaleIdentifier(name);
    return implied != nullptr ? implied->lcid : UnnumberedLocale;
}

}  // namespace

uint32 GetThreadLocale() {
    return threadLocale != 0 ? threadLocale : UserDefaultLocale();
}

bool SetThreadLocale(uint32 locale) {
    const LocaleIdentifier* const row = FindLocaleIdentifier(locale);
    if (MeansUserDefault(locale)) {
        threadLocale = UserDefaultLocale();
    } else if (row != nullptr) {
        // A neutral locale becomes the specific one behind it, and one with a sort order of its own becomes plain.
        threadLocale = (row->IsNeutral() ? LocaleOfName(row->name, false) : locale) & 0xFFFF;
    } else {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    return true;
}

int GetLocaleInfoW(uint32 locale, uint32 type, wchar16* buffer, int size) {
    if (size < 0 || (size > 0 && buffer == nullptr)) return Fail(ERROR_INVALID_PARAMETER);
    const LocaleTable* const table = FindLocaleTable(locale);
    if (table == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    const uint32 plainType = type & ~(LOCALE_NOUSEROVERRIDE | LOCALE_RETURN_NUMBER);
    const LocaleTable::Value value = table->FindType(plainType);
    if (value.text == nullptr) return Fail(ERROR_INVALID_FLAGS);
    if ((type & LOCALE_RETURN_NUMBER) == 0) return Deliver(value.text, value.units, buffer, size);
    if (!IsNumericLocaleType(plainType)) return Fail(ERROR_INVALID_FLAGS);
    return DeliverNumber(value, buffer, size);
}

bool LocaleValuesAreFixed() {
    return true;
}

int LCIDToLocaleName(uint32 locale, wchar16* name, int size, uint32 flags) {
    if (MeansUserDefault(locale)) return DeliverName(UserDefaultLocaleName(), name, size);
    const LocaleIdentifier* const row = FindLocaleIdentifier(locale);
    if (row == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    return DeliverName((flags & LOCALE_ALLOW_NEUTRAL_NAMES) != 0 ? row->name : row->SpecificName(), name, size);
}

uint32 LocaleNameToLCID(const wchar16* name, uint32 flags) {
    if (name == nullptr) return UserDefaultLocale();
    try {
        const uint32 locale = LocaleOfName(NarrowName(name), (flags & LOCALE_ALLOW_NEUTRAL_NAMES) != 0);
        if (locale == 0) SetLastError(ERROR_INVALID_PARAMETER);
        return locale;
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
}

int GetSystemDefaultLocaleName(wchar16* name, int size) {
    return DeliverName(UserDefaultLocaleName(), name, size);
}

}  // namespace Torvo::platform
