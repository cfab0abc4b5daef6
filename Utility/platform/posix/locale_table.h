// What a locale says of numbers, money, dates and times, as an immutable table.
//
// A table is made from ICU's data once per locale, at the first query for it, and lives as long as the process. Threads
// share it without a lock, and each thread remembers the table of its last query: a query then is a comparison, an
// index and a copy. That much is in this header, so that it costs no calls: a refresh of the locale service makes more
// than twenty queries.
#pragma once

#include <Utility/platform/locales.h>

#include <array>
#include <string>
#include <string_view>

namespace Torvo::platform {

class LocaleTable {
public:
    // `text` is null for a type that the table does not have. `units` counts the terminator.
    struct Value {
        const wchar16* text;
        uint32 units;
    };

    // What pictures need and locale types do not name: the twelve months as they are written beside the number of a
    // day, in full and abbreviated, and the era of all years.
    enum PictureText : uint32 { GenitiveMonth1 = 0x10000, GenitiveShortMonth1 = 0x1000C, Era = 0x10018 };

    // One of the LOCALE_ types that <Utility/platform/locales.h> lists. Any other type has no text, the picture texts
    // included.
    Value FindType(uint32 type) const { return At(TypeIndex(type)); }
    // The same, and picture texts.
    Value Find(uint32 type) const { return At(EntryIndex(type)); }

    uint32 ansiCodePage = 0;  // 0 for a language that is written in Unicode only
    uint32 oemCodePage = 1;   // 1 for such a language

    // For the building of a table alone. Setting a type again replaces its value.
    void Set(uint32 type, std::u16string_view text);

private:
    struct Entry {
        uint16 offset;
        uint16 units;
    };

    // The types come in two runs, 0x00 to 0x7F and 0x1000 to 0x107F. Every other number maps to an entry that stays
    // empty.
    static constexpr std::size_t TypeIndex(uint32 type) {
        if (type < 0x80) return type;
        return type >= 0x1000 && type < 0x1080 ? type - 0x1000 + 0x80 : 0;
    }
    static constexpr std::size_t EntryIndex(uint32 type) {
        return type >= GenitiveMonth1 && type <= Era ? type - GenitiveMonth1 + 0x100 : TypeIndex(type);
    }

    Value At(std::size_t index) const {
        const Entry entry = entries[index];
        if (entry.units == 0) return {nullptr, 0};
        return {texts.data() + entry.offset, entry.units};
    }

    std::array<Entry, 0x100 + (Era - GenitiveMonth1) + 1> entries{};
    std::u16string texts;
};

// Whether the value of a type is a number, which a query may ask for in binary.
bool IsNumericLocaleType(uint32 type);

// A new table for the locale of a name.
LocaleTable BuildLocaleTable(const std::string& name);

// The table that the calling thread asked for last. Its place in a thread's memory is fixed when the library is loaded
// (the initial-exec model), so that looking there is no call of the dynamic loader.
struct LastLocaleTable {
    uint32 locale;
    const LocaleTable* table;
};
extern constinit thread_local LastLocaleTable lastLocaleTable __attribute__((tls_model("initial-exec")));

// The part of FindLocaleTable beyond the thread's last one.
const LocaleTable* FindOtherLocaleTable(uint32 locale);

// The table for an identifier, or null for one that names no locale (or when memory is short). The identifiers that
// stand for a default (0, 0x400, 0x800, 0xC00, 0x1000, 0x1400) lead to the user's default.
inline const LocaleTable* FindLocaleTable(uint32 locale) {
    const LastLocaleTable last = lastLocaleTable;
    return last.table != nullptr && last.locale == locale ? last.table : FindOtherLocaleTable(locale);
}

// The code pages of the calling thread's locale. A language that is written in Unicode only borrows those of the user's
// default locale, and those of English if that has none either; the result is always the number of a real page.
uint32 ThreadAnsiCodePage();
uint32 ThreadOemCodePage();

// The name of the user's default locale, which the environment decides once, at the first question. While memory is too
// short to find it out, these two answer "en-US" and 0x0409, and keep nothing of that.
std::string_view UserDefaultLocaleName();
// Its identifier; 0x0C00 when it has none of its own.
uint32 UserDefaultLocale();

}  // namespace Torvo::platform
