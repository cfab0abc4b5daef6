// Prints the cases of formatted_cases.h with the universal C runtime of Windows, one line each: the number that it
// returned, and the text with every unit outside printable ASCII as \hhhh.
//
// The runtime is loaded by name, so that it makes no difference which one the compiler links.
#include "formatted_cases.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>

namespace {

using Torvo::wchar16;

// What the compiler of that system passes: output that is always terminated, %s for 16-bit text, rounding as IEEE 754
// has it.
constexpr unsigned long long Options = 0x02 | 0x04 | 0x20;

using PrintCall = int(__cdecl*)(unsigned long long, wchar_t*, std::size_t, const wchar_t*, void*, va_list);
PrintCall runtimePrint;

void PrintCase(const wchar16* format, ...) {
    static wchar_t buffer[4096];
    va_list arguments;
    va_start(arguments, format);
    const int length = runtimePrint(Options, buffer, std::size(buffer), format, nullptr, arguments);
    va_end(arguments);
    std::printf("%d ", length);
    for (int i = 0; i < length; ++i) {
        const unsigned int unit = buffer[i];
        if (unit >= 0x20 && unit < 0x7F && unit != '\\')
            std::printf("%c", unit);
        else
            std::printf("\\%04X", unit);
    }
    std::printf("\n");
}

}  // namespace

int main() {
    const HMODULE runtime = LoadLibraryW(L"ucrtbase.dll");
    if (runtime == nullptr) return 1;
    runtimePrint =
        reinterpret_cast<PrintCall>(reinterpret_cast<void*>(GetProcAddress(runtime, "__stdio_common_vswprintf")));
    if (runtimePrint == nullptr) return 1;
    const auto print = [](auto... arguments) { PrintCase(arguments...); };
    Torvo::test::EachFormattedCase(print);
    Torvo::test::EachRandomNumberCase(print);
    return 0;
}
