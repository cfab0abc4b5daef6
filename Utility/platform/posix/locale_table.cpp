#include <Utility/platform/posix/locale_table.h>

#include <Utility/platform/host.h>
#include <Utility/platform/posix/locale_identifiers.h>
#include <Utility/platform/threads.h>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <memory>
#include <mutex>
#include <new>
#include <string_view>
#include <vector>

namespace Torvo::platform {

namespace {

// What stands for the user's default while memory is too short to find it out.
constexpr std::string_view UsualLocaleName = "en-US";
constexpr uint32 UsualLocale = 0x0409;

const char* EnvironmentLocale() {
    for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (const char* const value = std::getenv(variable); value != nullptr && *value != 0) return value;
    }
    return "C";
}

// Throws std::bad_alloc when memory is short; the next question then tries again.
const std::string& NameOfEnvironment() {
    static const std::string* const name = new std::string(LocaleNameOfEnvironment(EnvironmentLocale()));
    return *name;
}

// The tables made so far: one place for each row of identifiers and one for the user's default. A place once filled
// never changes, so that readers need no lock; the mutex keeps two threads from making the same table.
class LocaleTables {
public:
    LocaleTables() : places(LocaleIdentifiers().size() + 1) {}

    const LocaleTable* Get(const LocaleIdentifier& row) {
        Place& place = PlaceOf(row);
        if (const LocaleTable* const made = place.load(std::memory_order_acquire)) return made;
        // A neutral locale shares the table of the specific one behind it.
        const LocaleIdentifier* const specific = FindLocaleIdentifier(row.SpecificName());
        const LocaleTable* const table = GetOrMake(PlaceOf(specific != nullptr ? *specific : row), row.SpecificName());
        place.store(table, std::memory_order_release);
        return table;
    }
    const LocaleTable* GetUserDefault() { return GetOrMake(places.back(), NameOfEnvironment()); }

private:
    using Place = std::atomic<const LocaleTable*>;

    Place& PlaceOf(const LocaleIdentifier& row) {
        return places[static_cast<std::size_t>(&row - LocaleIdentifiers().data())];
    }

    const LocaleTable* GetOrMake(Place& place, const std::string& name) {
        if (const LocaleTable* const made = place.load(std::memory_order_acquire)) return made;
        const std::lock_guard lock(making);
        if (place.load() == nullptr) place = new LocaleTable(BuildLocaleTable(name));
        return place.load();
    }

    std::vector<Place> places;
    std::mutex making;
};

LocaleTables& Tables() {
    // Never destroyed: threads may still ask while the process ends.
    static LocaleTables* const tables = new LocaleTables;
    return *tables;
}

const LocaleTable* MakeOrFindTable(uint32 locale) {
    try {
        if (MeansUserDefault(locale)) return Tables().GetUserDefault();
        const LocaleIdentifier* const row = FindLocaleIdentifier(locale);
        return row != nullptr ? Tables().Get(*row) : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

// A code page of the thread's locale, or of the next locale that has one.
uint32 CodePageOrFallback(uint32 LocaleTable::*page, uint32 none, uint32 last) {
    const LocaleTable* const own = FindLocaleTable(GetThreadLocale());
    if (own != nullptr && own->*page != none) return own->*page;
    const LocaleTable* const fallback = MakeOrFindTable(0);
    return fallback != nullptr && fallback->*page != none ? fallback->*page : last;
}

}  // namespace

constinit thread_local LastLocaleTable lastLocaleTable = {0, nullptr};

void LocaleTable::Set(uint32 type, std::u16string_view text) {
    Entry& entry = entries[EntryIndex(type)];
    entry.offset = static_cast<uint16>(texts.size());
    entry.units = static_cast<uint16>(text.size() + 1);
    texts.append(text);
    texts.push_back(0);
}

bool IsNumericLocaleType(uint32 type) {
    switch (type) {
        case LOCALE_IDIGITS:
        case LOCALE_ILZERO:
        case LOCALE_ICURRDIGITS:
        case LOCALE_ICURRENCY:
        case LOCALE_INEGCURR:
        case LOCALE_IDATE:
        case LOCALE_ITIME:
        case LOCALE_IDEFAULTANSICODEPAGE:
        case LOCALE_IDEFAULTCODEPAGE:
        case LOCALE_ITIMEMARKPOSN:
        case LOCALE_INEGNUMBER:
            return true;
        default:
            return false;
    }
}

const LocaleTable* FindOtherLocaleTable(uint32 locale) {
    const LocaleTable* const table = MakeOrFindTable(locale);
    if (table != nullptr) lastLocaleTable = {locale, table};
    return table;
}

uint32 ThreadAnsiCodePage() {
    return CodePageOrFallback(&LocaleTable::ansiCodePage, 0, 1252);
}

uint32 ThreadOemCodePage() {
    return CodePageOrFallback(&LocaleTable::oemCodePage, 1, 437);
}

std::string_view UserDefaultLocaleName() {
    try {
        return NameOfEnvironment();
    } catch (const std::bad_alloc&) {
        return UsualLocaleName;
    }
}

uint32 UserDefaultLocale() {
    try {
        static const uint32 locale = [] {
            const LocaleIdentifier* const row = FindLocaleIdentifier(NameOfEnvironment());
            return row != nullptr ? row->lcid : uint32{0xC00};
        }();
        return locale;
    } catch (const std::bad_alloc&) {
        return UsualLocale;
    }
}

}  // namespace Torvo::platform
