// Picture formats in both directions, beside their plain form. The first eight bytes are the number, the next one tells
// how long the format is; the rest is the text to read.
#include <Utility/errors.h>
#include <Utility/sql_numbers.h>
#include <reference/plain_sql_numbers.h>
#include <support/user_locale.h>

#include <cstdint>
#include <cstring>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

wstring16 Widen(const std::uint8_t* data, std::size_t size) {
    wstring16 text(data, data + size);
    return text.c_str();
}

// Bounded, since the plain form works through every digit that a format asks for.
constexpr std::size_t MaxFormat = 200;
constexpr test::PlainSymbols Symbols = {',', '.', 'x'};

void Print(double value, const wstring16& format, std::size_t size) {
    const test::PlainPrint expected = test::PlainSqlPrinter(format, Symbols).Print(value);
    wstring16 out(size, '~');
    const bool fits = expected.text.size() < size;
    Require(zuSQLDoubleToString(value, format.c_str(), out.data(), size) == (expected.error == 0 && fits));
    Require(NumErrors() == (expected.error == 0 ? 0 : 1));
    if (expected.error != 0) Require(GetResourceID(0) == expected.error);
    if (expected.error == 0 && fits) Require(out.c_str() == expected.text);
    ClearErrors();
}

void Read(const wstring16& text, const wstring16& format) {
    const std::optional<double> expected = test::PlainSqlRead(text, format, Symbols);
    double value = 77;
    Require(zuSQLStringToDouble(text.c_str(), format.c_str(), &value) == expected.has_value());
    Require(value == expected.value_or(77) || (std::isnan(value) && std::isnan(*expected)));
    ClearErrors();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::UserLocale locale(Symbols.decimal, Symbols.thousands, 3, ZUTEXT("x"));
    if (size < 9) return 0;
    double value;
    std::memcpy(&value, data, sizeof value);
    const std::size_t formatSize = std::min<std::size_t>({data[8], size - 9, MaxFormat});
    const wstring16 format = Widen(data + 9, formatSize);
    const wstring16 text = Widen(data + 9 + formatSize, std::min(size - 9 - formatSize, MaxFormat));
    Print(value, format, formatSize + 2 - (size & 1));
    Read(text, format);
    return 0;
}
