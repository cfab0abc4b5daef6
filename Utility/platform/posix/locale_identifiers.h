// Locale identifiers (LCID), names and code pages, by a table.
//
// The rows follow the published reference of language code identifiers ([MS-LCID]), completed by what the calls of
// Wine 8.0 answer. A neutral row names a language (or a language in a script) and the specific locale that stands for
// it. Beyond the table, every locale that the CLDR data hold has a name and no number of its own; all of those share
// UnnumberedLocale.
#pragma once

#include <Utility/platform/types.h>

#include <span>
#include <string>
#include <string_view>

namespace Torvo::platform {

// The number that stands for a locale without one. As an argument of a query it means the user's default.
inline constexpr uint32 UnnumberedLocale = 0x1000;

// Whether an identifier stands for the user's default, whatever that is.
constexpr bool MeansUserDefault(uint32 lcid) {
    return lcid == 0 || lcid == 0x400 || lcid == 0x800 || lcid == 0xC00 || lcid == UnnumberedLocale || lcid == 0x1400;
}

struct LocaleIdentifier {
    uint32 lcid;
    const char* name;
    const char* specific;  // for a neutral row the name of the specific locale behind it, else empty
    uint16 ansiCodePage;   // 0 for a language that is written in Unicode only
    uint16 oemCodePage;    // 1 for such a language

    bool IsNeutral() const { return *specific != 0; }
    const char* SpecificName() const { return IsNeutral() ? specific : name; }
};

// All rows, by ascending number.
std::span<const LocaleIdentifier> LocaleIdentifiers();

// The row of a number, or null.
const LocaleIdentifier* FindLocaleIdentifier(uint32 lcid);
// The row of a name, in letters of either case, with '-' or '_' between its parts; or null.
const LocaleIdentifier* FindLocaleIdentifier(std::string_view name);
// The row of a name that says its script although the rest implies it, as in zh-Hans-CN; or null.
const LocaleIdentifier* FindImpliedLocaleIdentifier(std::string_view name);
// The row that decides on code pages: the one of the name itself or of the nearest language above it; or null.
const LocaleIdentifier* FindNearestLocaleIdentifier(std::string_view name);

// The name under which the library knows a locale of the CLDR data, in its usual spelling; empty when there is none.
std::string CldrLocaleName(std::string_view name);

// The name of the locale that a value of the environment asks for, such as "de_AT.UTF-8" or "sr_RS@latin"; "en-US" for
// "C", "POSIX" and everything unknown.
std::string LocaleNameOfEnvironment(std::string_view value);

}  // namespace Torvo::platform
