#include <Utility/platform/posix/locale_identifiers.h>

#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <vector>

namespace Torvo::platform {

namespace {

constexpr LocaleIdentifier Rows[] = {
#include <Utility/platform/posix/locale_identifiers.inc>
};

char Folded(char c) {
    return c == '_' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

bool LessFolded(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return Folded(x) < Folded(y); });
}

bool EqualFolded(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Folded(x) == Folded(y); });
}

// The rows in the order of their names.
const auto& RowsByName() {
    static const auto rows = [] {
        std::array<const LocaleIdentifier*, std::size(Rows)> sorted;
        std::transform(std::begin(Rows), std::end(Rows), sorted.begin(), [](auto& row) { return &row; });
        std::sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return LessFolded(a->name, b->name); });
        return sorted;
    }();
    return rows;
}

// The names of all locales that the CLDR data hold.
const std::vector<std::string>& CldrNames() {
    static const auto names = [] {
        std::vector<std::string> sorted;
        for (int32 i = 0; i < uloc_countAvailable(); ++i) {
            char tag[ULOC_FULLNAME_CAPACITY];
            UErrorCode status = U_ZERO_ERROR;
            uloc_toLanguageTag(uloc_getAvailable(i), tag, sizeof tag, 0, &status);
            if (U_SUCCESS(status)) sorted.emplace_back(tag);
        }
        std::sort(sorted.begin(), sorted.end(), LessFolded);
        return sorted;
    }();
    return names;
}

// A name of ICU's with the script and the territory that it implies.
std::string WithLikelySubtags(const std::string& name) {
    char full[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    uloc_addLikelySubtags(name.c_str(), full, sizeof full, &status);
    return U_SUCCESS(status) ? full : name;
}

// The name of the specific locale that a name leads to; empty when there is none.
std::string SpecificLocaleName(const std::string& name) {
    if (const LocaleIdentifier* const row = FindLocaleIdentifier(name)) return row->SpecificName();
    return CldrLocaleName(name);
}

// A locale of the environment in its parts.
struct EnvironmentLocale {
    std::string language;
    std::string territory;
    std::string modifier;

    explicit EnvironmentLocale(std::string_view value) {
        if (const auto at = value.find('@'); at != value.npos) {
            modifier = value.substr(at + 1);
            value = value.substr(0, at);
        }
        value = value.substr(0, value.find('.'));
        const auto underscore = value.find('_');
        language = value.substr(0, underscore);
        if (underscore != value.npos) territory = value.substr(underscore + 1);
    }

    // The names that may stand for it, the best one first.
    std::vector<std::string> Candidates() const {
        const std::string plain = language == "no" ? "nb" : language;
        const std::string region = territory.empty() ? "" : "-" + territory;
        std::vector<std::string> names;
        if (modifier == "latin") names.push_back(plain + "-Latn" + region);
        if (modifier == "cyrillic") names.push_back(plain + "-Cyrl" + region);
        if (modifier == "devanagari") names.push_back(plain + "-Deva" + region);
        if (modifier == "valencia") names.push_back(plain + region + "-valencia");
        names.push_back(plain + region);
        names.push_back(WithLikelySubtags(plain + region));
        names.push_back(plain);
        return names;
    }
};

}  // namespace

std::span<const LocaleIdentifier> LocaleIdentifiers() {
    return Rows;
}

const LocaleIdentifier* FindLocaleIdentifier(uint32 lcid) {
    const auto row = std::lower_bound(std::begin(Rows), std::end(Rows), lcid,
                                      [](const LocaleIdentifier& r, uint32 wanted) { return r.lcid < wanted; });
    return row != std::end(Rows) && row->lcid == lcid ? row : nullptr;
}

const LocaleIdentifier* FindLocaleIdentifier(std::string_view name) {
    const auto& rows = RowsByName();
    const auto row = std::lower_bound(rows.begin(), rows.end(), name,
                                      [](auto* r, std::string_view wanted) { return LessFolded(r->name, wanted); });
    return row != rows.end() && EqualFolded((*row)->name, name) ? *row : nullptr;
}

const LocaleIdentifier* FindNearestLocaleIdentifier(std::string_view name) {
    while (!name.empty()) {
        if (const LocaleIdentifier* const row = FindLocaleIdentifier(name)) return row;
        const auto end = name.find_last_of("-_");
        name = name.substr(0, end == name.npos ? 0 : end);
    }
    return nullptr;
}

std::string CldrLocaleName(std::string_view name) {
    const auto& names = CldrNames();
    const auto found = std::lower_bound(names.begin(), names.end(), name, LessFolded);
    return found != names.end() && EqualFolded(*found, name) ? *found : std::string();
}

const LocaleIdentifier* FindImpliedLocaleIdentifier(std::string_view name) {
    char icuName[ULOC_FULLNAME_CAPACITY];
    char language[ULOC_LANG_CAPACITY];
    char territory[ULOC_COUNTRY_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    uloc_forLanguageTag(std::string(name).c_str(), icuName, sizeof icuName, nullptr, &status);
    uloc_getLanguage(icuName, language, sizeof language, &status);
    uloc_getCountry(icuName, territory, sizeof territory, &status);
    if (U_FAILURE(status)) return nullptr;
    const std::string plain = std::string(language) + '_' + territory;
    return WithLikelySubtags(plain) == icuName ? FindLocaleIdentifier(plain) : nullptr;
}

std::string LocaleNameOfEnvironment(std::string_view value) {
    const EnvironmentLocale asked(value);
    if (!asked.language.empty()) {
        for (const std::string& candidate : asked.Candidates()) {
            if (std::string name = SpecificLocaleName(candidate); !name.empty()) return name;
        }
    }
    return "en-US";
}

}  // namespace Torvo::platform
