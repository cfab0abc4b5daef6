// Picture formats the plain way: one list of cells for each format, every rule spelled out on its own, digits from long
// arithmetic. For comparison with the library over random formats; slow.
#pragma once

#include <Utility/platform/types.h>
#include <reference/exact_decimal.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace Torvo::test {

// The double nearest to a power of ten, as the C library reads it from text: its pow is not exact on every system.
inline double PlainPowerOfTen(double exponent) {
    if (std::floor(exponent) != exponent) return std::pow(10.0, exponent);
    const int whole = static_cast<int>(std::fmax(-1000, std::fmin(1000, exponent)));  // infinity and 0 on both sides
    return std::strtod(("1e" + std::to_string(whole)).c_str(), nullptr);
}

struct PlainSymbols {
    wchar16 decimal;
    wchar16 thousands;
    wchar16 currency;
};

inline wchar16 PlainUpper(wchar16 unit) {
    return unit >= 'a' && unit <= 'z' ? static_cast<wchar16>(unit - 32) : unit;
}

inline wstring16 PlainUpper(const wstring16& text) {
    wstring16 upper;
    for (wchar16 unit : text) upper += PlainUpper(unit);
    return upper;
}

// Either a text or the identifier of an error.
struct PlainPrint {
    wstring16 text;
    int error = 0;
};

class PlainSqlPrinter {
public:
    PlainSqlPrinter(const wstring16& toUse, const PlainSymbols& localeSymbols)
        : format(PlainUpper(toUse)), symbols(localeSymbols) {}

    PlainPrint Print(double value) {
        const auto size = format.size();
        leadS = size > 0 && format[0] == 'S';
        trailS = size > 0 && (format[size - 1] == 'S' || (size > 1 && format.substr(size - 2) == ZUTEXT("MI")));
        if (leadS) picture += ZUTEXT(" ");
        for (wchar16 unit : format) {
            if (const int error = Compile(unit)) return {{}, error};
        }
        const int n = N();
        if (currencyPos > 0 && currencyPos < n - 1) return {{}, 71};
        ForceZeros();
        if (!hasE) value = Round(value);
        if (!std::isfinite(value)) return {Overflow()};
        Fill(value);
        return {picture};
    }

private:
    int N() const { return static_cast<int>(picture.size()); }
    wchar16& At(int index) { return picture[static_cast<std::size_t>(index)]; }

    int Compile(wchar16 c) {
        const int n = N();
        if (c == '$' || c == 'L') {
            if (currencyPos != -1) return 71;
            currencyPos = n;
            picture += c == '$' ? wchar16{'$'} : symbols.currency;
        } else if (c == '+' || c == '-') {
            if (ePos != n - 1) return 73;
            expSignPos = n;
            picture += c;
        } else if (c == ',' || c == 'G') {
            if (pointPos != -1 || hasE) return 70;
            picture += c == ',' ? c : symbols.thousands;
        } else if (c == '.' || c == 'D') {
            if (pointPos != -1) return 68;
            if (hasE) return 69;
            pointPos = n;
            picture += c == '.' ? c : symbols.decimal;
        } else if (c == '0' || c == '9') {
            int& counter = pointPos == -1 ? intDigits : ePos == -1 ? fracDigits : expDigits;
            ++counter;
            if (c == '0') zeroSeen = true;
            const bool forced = c == '9' && zeroSeen && !hasE && pointPos == -1;
            picture += forced ? wchar16{'0'} : c;
        } else if (c == 'E') {
            if (hasE) return 72;
            hasE = true;
            ePos = n;
            if (pointPos == -1) pointPos = n;
            picture += c;
        }
        return 0;
    }

    void ForceZeros() {
        if (pointPos == -1 && ePos == -1) return;
        bool zero = false;
        for (int i = N() - 1; i >= 1; --i) {
            if (At(i) == '.' || At(i) == 'D') break;
            if (At(i) == '0') {
                zero = true;
            } else if (At(i) == '9') {
                if (zero) At(i) = '0';
            } else if (At(i) == 'E') {
                zero = false;
                if (pointPos == -1 || pointPos == ePos) break;
            }
        }
    }

    double Round(double v) const {
        const double p = fracDigits > 0 ? PlainPowerOfTen(fracDigits) : 1;
        const double scaled = v * p;
        if (!std::isfinite(scaled)) return v;
        return (v < 0 ? std::ceil(scaled - 0.5) : std::floor(scaled + 0.5)) / p;
    }

    wstring16 Overflow() {
        for (int i = leadS ? 1 : 0; i < N(); ++i) {
            if (At(i) == '0' || At(i) == '9') At(i) = '#';
        }
        return picture;
    }

    void Fill(double value) {
        const int n = N();
        const bool sign = std::signbit(value);
        const bool noPlace = !leadS && !trailS;
        const ExactDecimal digits = RoundToDigits(std::fabs(value), intDigits + fracDigits);
        int decpt = digits.point;
        int exponent = 0;
        if (hasE) {
            const int spare = sign && noPlace ? 1 : 0;
            exponent = decpt + spare - intDigits;
            decpt = intDigits - spare;
        }
        bool fits = !(decpt > intDigits) && !(decpt == intDigits && sign && noPlace);
        std::string expDigitString = exponent == 0 ? "" : std::to_string(std::abs(exponent));
        if (hasE) {
            const int expDecpt = static_cast<int>(expDigitString.size());
            if (expDecpt > expDigits) fits = false;
            if (expDecpt == expDigits && exponent < 0 && expSignPos == -1) fits = false;
        }
        if (!fits) {
            Overflow();
            return;
        }
        const auto digit = [&](int index) -> wchar16 {
            if (index < 0 || index >= static_cast<int>(digits.digits.size())) return '0';
            return static_cast<wchar16>(digits.digits[static_cast<std::size_t>(index)]);
        };

        const int end = pointPos != -1 ? pointPos : n;
        int placed = 0;
        for (int i = end - 1; i >= (leadS ? 1 : 0); --i) {
            if (At(i) != '0' && At(i) != '9') continue;
            if (placed < decpt) {
                At(i) = digit(decpt - 1 - placed);
                ++placed;
            } else if (At(i) == '9') {
                At(i) = ' ';
            }
        }
        for (int i = leadS ? 2 : 1; i <= end - 1; ++i) {
            if ((At(i) == ',' || At(i) == symbols.thousands) && At(i - 1) == ' ') At(i) = ' ';
        }
        if (!hasE || end < ePos) {
            int next = decpt;
            for (int i = end + 1; i < n && i != ePos; ++i) {
                if (At(i) == '0' || At(i) == '9') At(i) = digit(next++);
            }
        }
        if (hasE) {
            for (int i = n - 1; i >= ePos + 1; --i) {
                const wchar16 c = At(i);
                if (c != '+' && c != '-' && c != '0' && c != '9') continue;
                if (!expDigitString.empty()) {
                    At(i) = static_cast<wchar16>(expDigitString.back());
                    expDigitString.pop_back();
                } else if (c == '+' || c == '-') {
                    At(i) = exponent < 0 ? '-' : '+';
                } else if (i == ePos + 1 && exponent < 0) {
                    At(i) = '-';
                } else if (c == '9') {
                    At(i) = ' ';
                }
            }
        }
        if (leadS) {
            At(0) = sign ? '-' : '+';
        } else if (trailS) {
            picture += sign ? wchar16{'-'} : wchar16{'+'};
        } else if (sign) {
            At(currencyPos != -1 ? 1 : 0) = '-';
        }
    }

    const wstring16 format;
    const PlainSymbols symbols;
    wstring16 picture;
    bool leadS = false;
    bool trailS = false;
    int intDigits = 0;
    int fracDigits = 0;
    int expDigits = 0;
    int pointPos = -1;
    int ePos = -1;
    int currencyPos = -1;
    int expSignPos = -1;
    bool zeroSeen = false;
    bool hasE = false;
};

// The number at the start of a text, as the runtime's reader takes it: D stands for E in a decimal number, and the
// no-break space is white.
inline double PlainNumber(const wstring16& text) {
    std::string narrow;
    const std::size_t first = std::min(text.find_first_not_of(ZUTEXT(" \t\n\v\f\r\u00A0+-")), text.size());
    const wstring16 prefix = text.substr(first, 2);
    const bool isHexadecimal = prefix == ZUTEXT("0x") || prefix == ZUTEXT("0X");
    for (wchar16 unit : text) {
        const bool isLetter = !isHexadecimal && (unit == 'd' || unit == 'D');
        narrow += isLetter ? 'e' : unit == 0xA0 ? ' ' : unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return std::strtod(narrow.c_str(), nullptr);
}

// Nothing where text and format do not match.
inline std::optional<double> PlainSqlRead(const wstring16& text, const wstring16& toUse, const PlainSymbols& symbols) {
    wstring16 integers, fractions, exponents;
    bool point = false, exp = false, mayGroup = true;
    std::size_t p = 0;
    const auto atEnd = [&] { return p >= text.size(); };
    const auto is = [&](wchar16 unit) { return !atEnd() && text[p] == unit; };
    for (wchar16 f : PlainUpper(toUse)) {
        switch (f) {
            case '$':
            case 'L':
                if (!is(symbols.currency)) return {};
                ++p;
                break;
            case '+':
            case '-':
                return {};
            case ',':
            case 'G':
                if (!is(' ') && !is(symbols.thousands)) return {};
                ++p;
                mayGroup = false;
                break;
            case '.':
            case 'D':
                if (point || exp) return {};
                if (!atEnd()) {
                    if (!is(symbols.decimal)) return {};
                    ++p;
                }
                point = true;
                mayGroup = false;
                break;
            case '0':
            case '9':
                if (atEnd()) break;
                if (exp) {
                    exponents += text[p++];
                } else if (is(' ')) {
                    ++p;
                } else if (point) {
                    if (!is('E') && !is('e')) fractions += text[p++];
                } else if (is(symbols.thousands)) {
                    if (!mayGroup) return {};
                } else if (!is(symbols.decimal)) {
                    integers += text[p++];
                }
                break;
            case 'E':
                if (exp || (!is('E') && !is('e'))) return {};
                ++p;
                exp = true;
                mayGroup = false;
                break;
            default:
                break;
        }
    }
    if (!atEnd()) return {};
    double v = PlainNumber(integers);
    if (point) {
        const double f = PlainNumber(fractions) / PlainPowerOfTen(static_cast<double>(fractions.size()));
        v = v < 0 ? v - f : v + f;
    }
    if (exp) v *= PlainPowerOfTen(PlainNumber(exponents));
    return v;
}

}  // namespace Torvo::test
