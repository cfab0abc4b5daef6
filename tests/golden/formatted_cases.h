// The formats whose text the Windows runtime was asked for, each with its arguments. The probe prints them with that
// runtime, the test with the library's formatter, in this order.
#pragma once

#include <Utility/platform/types.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <random>

namespace Torvo::test {

// Calls print(format, arguments...) for each fixed case.
template <typename Print>
void EachFormattedCase(const Print& print) {
    // Text around directives.
    print(ZUTEXT(""));
    print(ZUTEXT("plain"));
    print(ZUTEXT("100%%"));
    print(ZUTEXT("%%%%x%%"));
    print(ZUTEXT("\u017C\u00F3\u0142\u0107 %d \u65E5"), 5);

    // 16-bit text and characters.
    const wchar16* const text = ZUTEXT("\u017C\u00F3\u0142w");
    print(ZUTEXT("[%s]"), text);
    print(ZUTEXT("[%ls]"), text);
    print(ZUTEXT("[%ws]"), text);
    print(ZUTEXT("[%lS]"), text);
    print(ZUTEXT("[%10s]"), text);
    print(ZUTEXT("[%-10s]"), text);
    print(ZUTEXT("[%.2s]"), text);
    print(ZUTEXT("[%.0s]"), text);
    print(ZUTEXT("[%.s]"), text);
    print(ZUTEXT("[%6.3s]"), text);
    print(ZUTEXT("[%-6.3s]"), text);
    print(ZUTEXT("[%3s]"), text);
    print(ZUTEXT("[%*s]"), 7, text);
    print(ZUTEXT("[%*s]"), -7, text);
    print(ZUTEXT("[%.*s]"), 1, text);
    print(ZUTEXT("[%.*s]"), -1, text);
    print(ZUTEXT("[%*.*s]"), 5, 2, text);
    print(ZUTEXT("[%s]"), static_cast<const wchar16*>(nullptr));
    print(ZUTEXT("[%8s]"), static_cast<const wchar16*>(nullptr));
    print(ZUTEXT("[%.3s]"), static_cast<const wchar16*>(nullptr));
    print(ZUTEXT("[%c%c]"), 'x', 0x65E5);
    print(ZUTEXT("[%lc]"), 0x017C);
    print(ZUTEXT("[%4c]"), 'x');
    print(ZUTEXT("[%-4c]"), 'x');
    print(ZUTEXT("[%.0c]"), 'x');

    // Bytes.
    print(ZUTEXT("[%hs]"), "bytes");
    print(ZUTEXT("[%S]"), "bytes");
    print(ZUTEXT("[%hS]"), "bytes");
    print(ZUTEXT("[%8hs]"), "bytes");
    print(ZUTEXT("[%-8S]"), "bytes");
    print(ZUTEXT("[%.3hs]"), "bytes");
    print(ZUTEXT("[%7.2S]"), "bytes");
    print(ZUTEXT("[%hs]"), static_cast<const char*>(nullptr));
    print(ZUTEXT("[%hc]"), 'y');
    print(ZUTEXT("[%C]"), 'y');
    print(ZUTEXT("[%3C]"), 'y');

    // Integers of 32 bits.
    for (const int value :
         {0, 1, -1, 42, -42, 123456789, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        print(ZUTEXT("%d"), value);
        print(ZUTEXT("%i"), value);
        print(ZUTEXT("%u"), value);
        print(ZUTEXT("%x"), value);
        print(ZUTEXT("%X"), value);
        print(ZUTEXT("%o"), value);
        print(ZUTEXT("%ld"), value);
        print(ZUTEXT("%lu"), value);
        print(ZUTEXT("%lx"), value);
        print(ZUTEXT("%I32d"), value);
        print(ZUTEXT("%I32u"), value);
        print(ZUTEXT("%hd"), value);
        print(ZUTEXT("%hu"), value);
        print(ZUTEXT("%hx"), value);
        print(ZUTEXT("[%+d]"), value);
        print(ZUTEXT("[% d]"), value);
        print(ZUTEXT("[%+ d]"), value);
        print(ZUTEXT("[%+u]"), value);
        print(ZUTEXT("[%#x]"), value);
        print(ZUTEXT("[%#X]"), value);
        print(ZUTEXT("[%#o]"), value);
        print(ZUTEXT("[%12d]"), value);
        print(ZUTEXT("[%-12d]"), value);
        print(ZUTEXT("[%012d]"), value);
        print(ZUTEXT("[%-012d]"), value);
        print(ZUTEXT("[%+012d]"), value);
        print(ZUTEXT("[% 012d]"), value);
        print(ZUTEXT("[%#012x]"), value);
        print(ZUTEXT("[%#14x]"), value);
        print(ZUTEXT("[%-#14x]"), value);
        print(ZUTEXT("[%.0d]"), value);
        print(ZUTEXT("[%.d]"), value);
        print(ZUTEXT("[%.1d]"), value);
        print(ZUTEXT("[%.15d]"), value);
        print(ZUTEXT("[%20.15d]"), value);
        print(ZUTEXT("[%-20.15d]"), value);
        print(ZUTEXT("[%020.15d]"), value);
        print(ZUTEXT("[%+20.15d]"), value);
        print(ZUTEXT("[%#.15x]"), value);
        print(ZUTEXT("[%#.15o]"), value);
        print(ZUTEXT("[%#.0o]"), value);
        print(ZUTEXT("[%#.0x]"), value);
        print(ZUTEXT("[%*d]"), 9, value);
        print(ZUTEXT("[%*d]"), -9, value);
        print(ZUTEXT("[%.*d]"), -1, value);
        print(ZUTEXT("[%0*d]"), 9, value);
        print(ZUTEXT("[%*.*d]"), 15, 12, value);
        print(ZUTEXT("%02d-%04d"), value, value);
    }

    // Integers of 64 bits.
    for (const std::int64_t value :
         {std::int64_t{0}, std::int64_t{-1}, std::int64_t{4294967296}, std::int64_t{-4294967297},
          std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min()}) {
        print(ZUTEXT("%lld"), value);
        print(ZUTEXT("%llu"), value);
        print(ZUTEXT("%llx"), value);
        print(ZUTEXT("%llX"), value);
        print(ZUTEXT("%llo"), value);
        print(ZUTEXT("%I64d"), value);
        print(ZUTEXT("%I64u"), value);
        print(ZUTEXT("%I64x"), value);
        print(ZUTEXT("%Id"), value);
        print(ZUTEXT("%Iu"), value);
        print(ZUTEXT("%zd"), value);
        print(ZUTEXT("%zu"), value);
        print(ZUTEXT("%jd"), value);
        print(ZUTEXT("%td"), value);
        print(ZUTEXT("[%25lld]"), value);
        print(ZUTEXT("[%-25lld]"), value);
        print(ZUTEXT("[%025lld]"), value);
        print(ZUTEXT("[%+.22lld]"), value);
        print(ZUTEXT("[%#25llx]"), value);
    }

    // Pointers.
    for (const std::uintptr_t address :
         {std::uintptr_t{1}, std::uintptr_t{0xDEADBEEF}, std::uintptr_t{0x7FFF12345678ABCD}}) {
        print(ZUTEXT("[%p]"), reinterpret_cast<const void*>(address));
        print(ZUTEXT("[%20p]"), reinterpret_cast<const void*>(address));
        print(ZUTEXT("[%-20p]"), reinterpret_cast<const void*>(address));
    }
    print(ZUTEXT("[%p]"), static_cast<const void*>(nullptr));

    // Floating point.
    using Limits = std::numeric_limits<double>;
    for (const double value : {0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               0.5,
                               1.5,
                               2.5,
                               0.125,
                               0.375,
                               1234567.0,
                               0.1,
                               1.0 / 3.0,
                               12345.678,
                               -12345.678,
                               9.995,
                               99999.95,
                               999999.5,
                               0.0001,
                               0.00001234,
                               0.000099999995,
                               1e15,
                               1e16,
                               1e20,
                               1e21,
                               1e100,
                               1.5e-7,
                               5e-324,
                               1e-310,
                               Limits::max(),
                               Limits::min(),
                               4503599627370497.5,
                               123456789012345678.0,
                               Limits::infinity(),
                               -Limits::infinity()}) {
        print(ZUTEXT("%e"), value);
        print(ZUTEXT("%f"), value);
        print(ZUTEXT("%g"), value);
        print(ZUTEXT("%a"), value);
        print(ZUTEXT("%E"), value);
        print(ZUTEXT("%F"), value);
        print(ZUTEXT("%G"), value);
        print(ZUTEXT("%A"), value);
        print(ZUTEXT("%lf"), value);
        print(ZUTEXT("[%.0e]"), value);
        print(ZUTEXT("[%.0f]"), value);
        print(ZUTEXT("[%.0g]"), value);
        print(ZUTEXT("[%.0a]"), value);
        print(ZUTEXT("[%#.0e]"), value);
        print(ZUTEXT("[%#.0f]"), value);
        print(ZUTEXT("[%#.0g]"), value);
        print(ZUTEXT("[%#.0a]"), value);
        print(ZUTEXT("[%.1a]"), value);
        print(ZUTEXT("[%.5a]"), value);
        print(ZUTEXT("[%.15a]"), value);
        print(ZUTEXT("[%#g]"), value);
        print(ZUTEXT("[%#.12g]"), value);
        print(ZUTEXT("[%.2f]"), value);
        print(ZUTEXT("[%.12f]"), value);
        print(ZUTEXT("[%.17g]"), value);
        print(ZUTEXT("[%.17e]"), value);
        print(ZUTEXT("[%.40f]"), value);
        print(ZUTEXT("[%.40g]"), value);
        print(ZUTEXT("[%20.3f]"), value);
        print(ZUTEXT("[%-20.3f]"), value);
        print(ZUTEXT("[%020.3f]"), value);
        print(ZUTEXT("[%+f]"), value);
        print(ZUTEXT("[% f]"), value);
        print(ZUTEXT("[%+020.3e]"), value);
        print(ZUTEXT("[%30a]"), value);
        print(ZUTEXT("[%030a]"), value);
        print(ZUTEXT("[%*.*f]"), 25, 4, value);
        print(ZUTEXT("[%-*.*g]"), 25, 14, value);
        print(ZUTEXT("[%.*g]"), -1, value);
    }

    // Not a number, in its four kinds.
    for (const std::uint64_t bits : {0x7FF8000000000000ull, 0xFFF8000000000000ull, 0x7FF8000000000001ull,
                                     0xFFF8000000000001ull, 0x7FF0000000000001ull}) {
        const double value = std::bit_cast<double>(bits);
        print(ZUTEXT("%f"), value);
        print(ZUTEXT("%E"), value);
        print(ZUTEXT("%.2g"), value);
        print(ZUTEXT("[%012f]"), value);
        print(ZUTEXT("[%-12f]"), value);
        print(ZUTEXT("[%+a]"), value);
    }

    // Several directives in one format.
    print(ZUTEXT("%ls~ZUN%lu-%lu%ls"), ZUTEXT("C:\\temp"), 4711, 12, ZUTEXT(".tmp"));
    print(ZUTEXT("%02d%lc%02d%lc%04d"), 2, '/', 29, '/', 2024);
    print(ZUTEXT("%d %f %s %c %lld %x"), -5, 2.25, ZUTEXT("t"), 'u', std::int64_t{-7}, 255);
}

// Calls print(format, precision, value) for random doubles of all magnitudes.
template <typename Print>
void EachRandomNumberCase(const Print& print) {
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 400; ++i) {
        const double any = std::bit_cast<double>(random());
        if (!(any - any == 0)) continue;  // not finite
        const double usual = static_cast<double>(static_cast<std::int64_t>(random() >> 20)) / 1048576.0 - 8000000.0;
        const int precision = static_cast<int>(random() % 24);
        print(ZUTEXT("%.*e"), precision, any);
        print(ZUTEXT("%.*g"), precision, any);
        print(ZUTEXT("%.*f"), precision, usual);
        print(ZUTEXT("%.*g"), precision, usual);
        print(ZUTEXT("%.*a"), precision % 15, any);
    }
}

}  // namespace Torvo::test
