// Turns ICU's data for a locale into a table of the platform's locale types.
//
// ICU describes a locale by patterns in the notation of CLDR (UTS #35, part 4), from which the platform's pictures,
// orders and separators are derived. The choices made here (which of several patterns, which width of a name, what
// becomes of a letter that pictures do not have) follow what the other system's data show; docs/locales.md lists them.
#include <Utility/platform/posix/locale_identifiers.h>
#include <Utility/platform/posix/locale_table.h>

#include <unicode/ucurr.h>
#include <unicode/udat.h>
#include <unicode/udatpg.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ures.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Torvo::platform {

namespace {

using std::u16string;
using std::u16string_view;

template <auto Close>
struct Closer {
    template <typename T>
    void operator()(T* object) const {
        Close(object);
    }
};
using NumberFormat = std::unique_ptr<UNumberFormat, Closer<unum_close>>;
// The date types of ICU's C interface are pointers to void.
struct DateFormatCloser {
    void operator()(void* format) const { udat_close(static_cast<UDateFormat*>(format)); }
};
using DateFormat = std::unique_ptr<void, DateFormatCloser>;
struct PatternGeneratorCloser {
    void operator()(void* generator) const { udatpg_close(static_cast<UDateTimePatternGenerator*>(generator)); }
};
using PatternGenerator = std::unique_ptr<void, PatternGeneratorCloser>;

// An object of ICU's, which fails to open only when memory is short or its data are missing.
template <typename T>
T* Opened(T* object) {
    if (object == nullptr) throw std::bad_alloc();
    return object;
}

// The text of an ICU call that takes (buffer, capacity, status) and answers the length; empty when it fails. All such
// texts of a locale are far shorter than the buffer.
template <typename Call>
u16string TextOf(Call call) {
    char16_t buffer[256];
    UErrorCode status = U_ZERO_ERROR;
    const int32 length = call(buffer, static_cast<int32>(std::size(buffer)), &status);
    return U_SUCCESS(status) && length > 0 ? u16string(buffer, static_cast<std::size_t>(length)) : u16string();
}

u16string Widened(int number) {
    const std::string digits = std::to_string(number);
    return u16string(digits.begin(), digits.end());
}

// ---- Numbers and money

// What stands before and after the digits of a number pattern such as "#,##0.00 \u00A4".
struct PatternParts {
    u16string before;
    u16string digits;
    u16string after;

    explicit PatternParts(u16string_view pattern) {
        constexpr u16string_view DigitUnits = u"#,.0123456789@";
        const auto first = std::min(pattern.find_first_of(DigitUnits), pattern.size());
        const auto last = std::min(pattern.find_first_not_of(DigitUnits, first), pattern.size());
        before = pattern.substr(0, first);
        digits = pattern.substr(first, last - first);
        after = pattern.substr(last);
    }
};

// A positive and a negative form. Without one of its own the negative form is the positive one behind a minus sign.
struct NumberPattern {
    PatternParts positive;
    PatternParts negative;

    explicit NumberPattern(u16string_view pattern)
        : positive(pattern.substr(0, pattern.find(u';'))), negative(NegativeOf(pattern)) {}

private:
    static u16string NegativeOf(u16string_view pattern) {
        const auto semicolon = pattern.find(u';');
        return u16string(semicolon != pattern.npos ? pattern.substr(semicolon + 1) : u"-" + u16string(pattern));
    }
};

// The sizes of the groups from the right, the last one repeated: "3;0", "3;2;0".
u16string GroupingOf(u16string_view digits) {
    const auto point = std::min(digits.find(u'.'), digits.size());
    const auto last = digits.rfind(u',', point);
    if (last == digits.npos) return u"0;0";
    u16string grouping = Widened(static_cast<int>(point - last - 1));
    const auto before = last == 0 ? digits.npos : digits.rfind(u',', last - 1);
    if (before != digits.npos && last - before != point - last) {
        grouping += u";" + Widened(static_cast<int>(last - before - 1));
    }
    return grouping + u";0";
}

bool Contains(u16string_view text, char16_t unit) {
    return text.find(unit) != text.npos;
}

constexpr char16_t CurrencySign = u'\u00A4';

bool HasSpace(u16string_view affix) {
    return affix.find_first_of(u" \u00A0\u202F") != affix.npos;
}

// One of the orders of LOCALE_INEGCURR, written with n for the number, $ for the symbol, - for the sign. The position
// in this list is the value.
constexpr u16string_view NegativeCurrencyOrders[] = {u"($n)", u"-$n",  u"$-n",   u"$n-",  u"(n$)", u"-n$",
                                                     u"n-$",  u"n$-",  u"-n $",  u"-$ n", u"n $-", u"$ n-",
                                                     u"$ -n", u"n- $", u"($ n)", u"(n $)"};

// The affix in the notation of that list. Direction marks are dropped.
u16string OrderNotation(u16string_view affix) {
    u16string notation;
    for (const char16_t unit : affix) {
        if (unit == CurrencySign) {
            if (notation.empty() || notation.back() != u'$') notation += u'$';
        } else if (unit == u'\u00A0' || unit == u'\u202F') {
            notation += u' ';
        } else if (unit == u'-' || unit == u'(' || unit == u')' || unit == u' ') {
            notation += unit;
        }
    }
    return notation;
}

template <std::size_t Count>
int IndexOf(const u16string_view (&list)[Count], u16string_view wanted, int otherwise) {
    const auto found = std::find(std::begin(list), std::end(list), wanted);
    return found != std::end(list) ? static_cast<int>(found - list) : otherwise;
}

int NegativeCurrencyOrder(const PatternParts& negative) {
    return IndexOf(NegativeCurrencyOrders, OrderNotation(negative.before) + u"n" + OrderNotation(negative.after), 1);
}

int PositiveCurrencyOrder(const PatternParts& positive) {
    const bool symbolFirst = Contains(positive.before, CurrencySign);
    const bool space = HasSpace(symbolFirst ? positive.before : positive.after);
    return (symbolFirst ? 0 : 1) + (space ? 2 : 0);
}

int NegativeNumberOrder(const PatternParts& negative) {
    constexpr u16string_view Orders[] = {u"(n)", u"-n", u"- n", u"n-", u"n -"};
    return IndexOf(Orders, OrderNotation(negative.before) + u"n" + OrderNotation(negative.after), 1);
}

// ---- Dates and times

bool IsPatternLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

// Calls `onField` with the letter and length of each field of a pattern, and `onLiteral` with the text between them,
// quotes included.
template <typename OnField, typename OnLiteral>
void WalkPattern(u16string_view pattern, OnField onField, OnLiteral onLiteral) {
    for (std::size_t i = 0; i < pattern.size();) {
        std::size_t end;
        if (pattern[i] == u'\'') {
            end = std::min(pattern.find(u'\'', i + 1), pattern.size() - 1) + 1;
            onLiteral(pattern.substr(i, end - i));
        } else if (IsPatternLetter(pattern[i])) {
            end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
            onField(pattern[i], end - i);
        } else {
            end = i + 1;
            onLiteral(pattern.substr(i, 1));
        }
        i = end;
    }
}

// The letters of a picture for a field of a pattern; empty for a field that pictures do not have.
u16string PictureOf(char16_t letter, std::size_t count) {
    switch (letter) {
        case u'y':
        case u'u':
        case u'r':
            return u"yyyy";
        case u'M':
        case u'L':
            return u16string(std::min<std::size_t>(count, 4), u'M');
        case u'd':
            return u16string(std::min<std::size_t>(count, 2), u'd');
        case u'E':
        case u'e':
        case u'c':
            return count >= 4 ? u"dddd" : u"ddd";
        case u'G':
            return u"gg";
        case u'H':
        case u'k':
            return u16string(std::min<std::size_t>(count, 2), u'H');
        case u'h':
        case u'K':
            return u16string(std::min<std::size_t>(count, 2), u'h');
        case u'm':
        case u's':
            return u16string(std::min<std::size_t>(count, 2), letter);
        case u'a':
        case u'b':
        case u'B':
            return u"tt";
        default:
            return {};
    }
}

// Literal text keeps its quotes: pictures quote as patterns do.
u16string PictureOfPattern(u16string_view pattern) {
    u16string picture;
    WalkPattern(
        pattern, [&](char16_t letter, std::size_t count) { picture += PictureOf(letter, count); },
        [&](u16string_view literal) { picture += literal; });
    return picture;
}

// The literal text between the first field of a picture, out of those given by their letters, and the next one.
u16string FirstSeparator(u16string_view picture, u16string_view fieldLetters) {
    int fields = 0;
    u16string separator;
    WalkPattern(
        picture,
        [&](char16_t letter, std::size_t) {
            if (Contains(fieldLetters, letter)) ++fields;
        },
        [&](u16string_view literal) {
            if (fields == 1) separator += literal;
        });
    return fields > 1 ? separator : u16string();
}

// 0 month, day, year; 1 day, month, year; 2 year, month, day. There is no number for year, day, month (Kirghiz,
// Uighur), which counts as day before month.
int DateOrder(u16string_view picture) {
    const auto year = picture.find(u'y');
    const auto month = picture.find(u'M');
    const auto day = picture.find(u'd');
    if (day < month) return 1;
    return year < month ? 2 : 0;
}

// ---- Where the data of a locale are

// ICU's name for one of our names.
std::string IcuNameOf(const std::string& localeName) {
    char icu[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    uloc_forLanguageTag(localeName.substr(0, localeName.find('_')).c_str(), icu, sizeof icu, nullptr, &status);
    return U_SUCCESS(status) ? icu : "";
}

bool HasData(const std::string& icuName) {
    UErrorCode status = U_ZERO_ERROR;
    ures_close(ures_open(nullptr, icuName.c_str(), &status));
    return U_SUCCESS(status) && status != U_USING_DEFAULT_WARNING;
}

// The main language of the territory of a locale, there.
std::string TerritoryLocale(const std::string& icuName) {
    char territory[ULOC_COUNTRY_CAPACITY];
    char full[ULOC_FULLNAME_CAPACITY];
    UErrorCode status = U_ZERO_ERROR;
    uloc_getCountry(icuName.c_str(), territory, sizeof territory, &status);
    uloc_addLikelySubtags((std::string("und_") + territory).c_str(), full, sizeof full, &status);
    return U_SUCCESS(status) && *territory != 0 ? full : "";
}

// The locale whose data speak for a name. A language that ICU does not hold is answered in the main language of its
// territory, and in English as the last resort; left to itself, ICU would take the language of the environment.
std::string DataLocaleOf(const std::string& localeName) {
    const std::string icuName = IcuNameOf(localeName);
    for (const std::string& candidate : {icuName, TerritoryLocale(icuName)}) {
        if (!candidate.empty() && HasData(candidate)) return candidate;
    }
    return "en";
}

// The table speaks of the Gregorian calendar and of the digits 0 to 9, whatever a locale prefers.
constexpr char PlatformKeywords[] = "@calendar=gregorian;numbers=latn";
// With the currency code that ISO 4217 gives to no currency, since a few locales write a pattern of its own for theirs.
constexpr char CurrencyPatternKeywords[] = "@calendar=gregorian;currency=XXX;numbers=latn";

using Resource = std::unique_ptr<UResourceBundle, Closer<ures_close>>;

// The locale from which one inherits what it does not have itself.
std::string ParentLocale(const UResourceBundle* bundle, const std::string& icuName) {
    UErrorCode status = U_ZERO_ERROR;
    int32 length = 0;
    const char16_t* const explicitParent = ures_getStringByKey(bundle, "%%Parent", &length, &status);
    if (U_SUCCESS(status)) return std::string(explicitParent, explicitParent + length);
    char parent[ULOC_FULLNAME_CAPACITY];
    status = U_ZERO_ERROR;
    uloc_getParent(icuName.c_str(), parent, sizeof parent, &status);
    return U_SUCCESS(status) ? parent : "";
}

// The abbreviated mark of the morning (0) or the afternoon (1), which ICU's formats do not offer. A locale without
// marks of its own has the root's.
u16string AbbreviatedDayMark(std::string icuName, int32 index) {
    while (!icuName.empty() && icuName != "root") {
        UErrorCode status = U_ZERO_ERROR;
        const Resource bundle(ures_openDirect(nullptr, icuName.c_str(), &status));
        Resource marks(ures_getByKey(bundle.get(), "calendar", nullptr, &status));
        for (const char* const key : {"gregorian", "AmPmMarkersAbbr"}) {
            marks.reset(ures_getByKey(marks.get(), key, nullptr, &status));
        }
        int32 length = 0;
        const char16_t* const mark = ures_getStringByIndex(marks.get(), index, &length, &status);
        if (U_SUCCESS(status)) return u16string(mark, static_cast<std::size_t>(length));
        icuName = ParentLocale(bundle.get(), icuName);
    }
    return index == 0 ? u"AM" : u"PM";
}

// ---- The table

class LocaleTableBuilder {
public:
    explicit LocaleTableBuilder(const std::string& localeName)
        : name(localeName), dataLocale(DataLocaleOf(localeName)), icuName(dataLocale + PlatformKeywords) {}

    LocaleTable Build() {
        SetCodePages();
        SetNumbers();
        SetCurrency();
        SetDatesAndTimes();
        SetNames();
        if (name.empty() || name.starts_with("x-")) SetInvariantForms();
        return std::move(table);
    }

private:
    static NumberFormat OpenNumbers(const std::string& icuName, UNumberFormatStyle style);
    static u16string Symbol(const NumberFormat& format, UNumberFormatSymbol symbol);
    static u16string Pattern(const NumberFormat& format);
    u16string Currency() const;
    u16string CurrencySymbol() const;
    u16string DatePattern(UDateFormatStyle time, UDateFormatStyle date) const;
    u16string SkeletonPattern(u16string_view skeleton) const;

    void SetNumber(uint32 type, int value) { table.Set(type, Widened(value)); }
    void SetCodePages();
    void SetNumbers();
    void SetCurrency();
    void SetDatesAndTimes();
    void SetNames();
    void SetInvariantForms();
    void SetNames(const DateFormat& format, UDateFormatSymbolType symbols, int32 first, int32 count, uint32 type);
    void SetWeekdays(const DateFormat& format, UDateFormatSymbolType symbols, uint32 type);

    const std::string& name;
    const std::string dataLocale;
    const std::string icuName;
    LocaleTable table;
};

NumberFormat LocaleTableBuilder::OpenNumbers(const std::string& icuName, UNumberFormatStyle style) {
    UErrorCode status = U_ZERO_ERROR;
    return NumberFormat(Opened(unum_open(style, nullptr, 0, icuName.c_str(), nullptr, &status)));
}

// The narrow no-break space, which the platform's older locales do not have, becomes the plain one.
u16string LocaleTableBuilder::Symbol(const NumberFormat& format, UNumberFormatSymbol symbol) {
    u16string text = TextOf([&](char16_t* buffer, int32 size, UErrorCode* status) {
        return unum_getSymbol(format.get(), symbol, buffer, size, status);
    });
    std::replace(text.begin(), text.end(), u'\u202F', u'\u00A0');
    return text;
}

u16string LocaleTableBuilder::Pattern(const NumberFormat& format) {
    return TextOf([&](char16_t* buffer, int32 size, UErrorCode* status) {
        return unum_toPattern(format.get(), false, buffer, size, status);
    });
}

// The currency of the territory; a region without one counts in special drawing rights.
u16string LocaleTableBuilder::Currency() const {
    const u16string currency = TextOf([&](char16_t* buffer, int32 size, UErrorCode* status) {
        return ucurr_forLocale(icuName.c_str(), buffer, size, status);
    });
    return currency.empty() ? u"XDR" : currency;
}

// Its short symbol, as in "$" also for Australia.
u16string LocaleTableBuilder::CurrencySymbol() const {
    const u16string currency = Currency();
    UErrorCode status = U_ZERO_ERROR;
    int32 length = 0;
    const char16_t* const symbol =
        ucurr_getName(currency.c_str(), icuName.c_str(), UCURR_NARROW_SYMBOL_NAME, nullptr, &length, &status);
    return U_SUCCESS(status) ? u16string(symbol, static_cast<std::size_t>(length)) : currency;
}

u16string LocaleTableBuilder::DatePattern(UDateFormatStyle time, UDateFormatStyle date) const {
    UErrorCode status = U_ZERO_ERROR;
    const DateFormat format(Opened(udat_open(time, date, icuName.c_str(), nullptr, 0, nullptr, 0, &status)));
    return TextOf([&](char16_t* buffer, int32 size, UErrorCode* error) {
        return udat_toPattern(static_cast<UDateFormat*>(format.get()), false, buffer, size, error);
    });
}

u16string LocaleTableBuilder::SkeletonPattern(u16string_view skeleton) const {
    UErrorCode status = U_ZERO_ERROR;
    const PatternGenerator generator(Opened(udatpg_open(icuName.c_str(), &status)));
    return TextOf([&](char16_t* buffer, int32 size, UErrorCode* error) {
        return udatpg_getBestPattern(static_cast<UDateTimePatternGenerator*>(generator.get()), skeleton.data(),
                                     static_cast<int32>(skeleton.size()), buffer, size, error);
    });
}

void LocaleTableBuilder::SetCodePages() {
    const LocaleIdentifier* row = FindLocaleIdentifier(name);
    if (row == nullptr) row = FindNearestLocaleIdentifier(name);
    if (row != nullptr) {
        table.ansiCodePage = row->ansiCodePage;
        table.oemCodePage = row->oemCodePage;
    }
    SetNumber(LOCALE_IDEFAULTANSICODEPAGE, static_cast<int>(table.ansiCodePage));
    SetNumber(LOCALE_IDEFAULTCODEPAGE, static_cast<int>(table.oemCodePage));
}

void LocaleTableBuilder::SetNumbers() {
    const NumberFormat format = OpenNumbers(icuName, UNUM_DECIMAL);
    const NumberPattern pattern(Pattern(format));
    SetNumber(LOCALE_IDIGITS, 2);
    SetNumber(LOCALE_ILZERO, 1);
    SetNumber(LOCALE_INEGNUMBER, NegativeNumberOrder(pattern.negative));
    table.Set(LOCALE_SGROUPING, GroupingOf(pattern.positive.digits));
    table.Set(LOCALE_SDECIMAL, Symbol(format, UNUM_DECIMAL_SEPARATOR_SYMBOL));
    table.Set(LOCALE_STHOUSAND, Symbol(format, UNUM_GROUPING_SEPARATOR_SYMBOL));
}

void LocaleTableBuilder::SetCurrency() {
    const NumberFormat format = OpenNumbers(icuName, UNUM_CURRENCY_ACCOUNTING);
    const NumberPattern pattern(Pattern(OpenNumbers(dataLocale + CurrencyPatternKeywords, UNUM_CURRENCY_ACCOUNTING)));
    table.Set(LOCALE_SCURRENCY, CurrencySymbol());
    table.Set(LOCALE_SMONDECIMALSEP, Symbol(format, UNUM_MONETARY_SEPARATOR_SYMBOL));
    table.Set(LOCALE_SMONTHOUSANDSEP, Symbol(format, UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL));
    table.Set(LOCALE_SMONGROUPING, GroupingOf(pattern.positive.digits));
    SetNumber(LOCALE_ICURRDIGITS, unum_getAttribute(format.get(), UNUM_FRACTION_DIGITS));
    SetNumber(LOCALE_ICURRENCY, PositiveCurrencyOrder(pattern.positive));
    SetNumber(LOCALE_INEGCURR, NegativeCurrencyOrder(pattern.negative));
}

void LocaleTableBuilder::SetDatesAndTimes() {
    const u16string shortDate = PictureOfPattern(SkeletonPattern(u"yMd"));
    table.Set(LOCALE_SSHORTDATE, shortDate);
    table.Set(LOCALE_SLONGDATE, PictureOfPattern(DatePattern(UDAT_NONE, UDAT_FULL)));
    table.Set(LOCALE_SDATE, FirstSeparator(shortDate, u"dMy"));
    SetNumber(LOCALE_IDATE, DateOrder(shortDate));

    u16string time = PictureOfPattern(DatePattern(UDAT_MEDIUM, UDAT_NONE));
    std::replace(time.begin(), time.end(), u'\u202F', u' ');
    table.Set(LOCALE_STIMEFORMAT, time);
    table.Set(LOCALE_STIME, FirstSeparator(time, u"Hhms"));
    SetNumber(LOCALE_ITIME, Contains(time, u'H') ? 1 : 0);
    SetNumber(LOCALE_ITIMEMARKPOSN, time.starts_with(u"tt") ? 1 : 0);
}

// The locale of no country and no language is English with forms of its own, which are documented and never change.
void LocaleTableBuilder::SetInvariantForms() {
    table.Set(LOCALE_SCURRENCY, u"\u00A4");
    table.Set(LOCALE_SSHORTDATE, u"MM/dd/yyyy");
    table.Set(LOCALE_SLONGDATE, u"dddd, dd MMMM yyyy");
    table.Set(LOCALE_STIMEFORMAT, u"HH:mm:ss");
    SetNumber(LOCALE_ITIME, 1);
}

void LocaleTableBuilder::SetNames() {
    UErrorCode status = U_ZERO_ERROR;
    const DateFormat format(Opened(udat_open(UDAT_NONE, UDAT_SHORT, icuName.c_str(), nullptr, 0, nullptr, 0, &status)));
    table.Set(LOCALE_S1159, AbbreviatedDayMark(dataLocale, 0));
    table.Set(LOCALE_S2359, AbbreviatedDayMark(dataLocale, 1));
    SetWeekdays(format, UDAT_WEEKDAYS, LOCALE_SDAYNAME1);
    SetWeekdays(format, UDAT_SHORT_WEEKDAYS, LOCALE_SABBREVDAYNAME1);
    SetNames(format, UDAT_STANDALONE_MONTHS, 0, 12, LOCALE_SMONTHNAME1);
    SetNames(format, UDAT_STANDALONE_SHORT_MONTHS, 0, 12, LOCALE_SABBREVMONTHNAME1);
    SetNames(format, UDAT_MONTHS, 0, 12, LocaleTable::GenitiveMonth1);
    SetNames(format, UDAT_SHORT_MONTHS, 0, 12, LocaleTable::GenitiveShortMonth1);
    SetNames(format, UDAT_ERAS, 1, 1, LocaleTable::Era);
    // The Gregorian calendar has no thirteenth month.
    table.Set(LOCALE_SMONTHNAME13, u"");
    table.Set(LOCALE_SABBREVMONTHNAME13, u"");
}

void LocaleTableBuilder::SetNames(const DateFormat& format, UDateFormatSymbolType symbols, int32 first, int32 count,
                                  uint32 type) {
    for (int32 i = 0; i < count; ++i) {
        table.Set(type + static_cast<uint32>(i), TextOf([&](char16_t* buffer, int32 size, UErrorCode* status) {
                      return udat_getSymbols(static_cast<UDateFormat*>(format.get()), symbols, first + i, buffer, size,
                                             status);
                  }));
    }
}

// ICU counts the days of the week from Sunday, 1; the locale types from Monday.
void LocaleTableBuilder::SetWeekdays(const DateFormat& format, UDateFormatSymbolType symbols, uint32 type) {
    SetNames(format, symbols, 2, 6, type);
    SetNames(format, symbols, 1, 1, type + 6);
}

}  // namespace

LocaleTable BuildLocaleTable(const std::string& name) {
    return LocaleTableBuilder(name).Build();
}

}  // namespace Torvo::platform
