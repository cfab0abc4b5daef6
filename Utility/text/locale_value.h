// One value of a locale, read from the system.
#pragma once

#include <Utility/platform/platform.h>

#include <memory>
#include <new>

namespace Torvo {

// Nearly every value is short, so it is read into a buffer inside the object with a single call of the system; only for
// one that does not fit there, its length is asked for and memory allocated.
template <int BufferSize>
class LocaleValue {
public:
    LocaleValue(uint32 locale, uint32 type) : units(Read(locale, type, buffer, BufferSize)) {
        if (units == 0 && platform::GetLastError() == ERROR_INSUFFICIENT_BUFFER) ReadLong(locale, type);
        // A few types are not text and bring no terminator.
        text[units] = 0;
    }
    LocaleValue(const LocaleValue&) = delete;
    LocaleValue& operator=(const LocaleValue&) = delete;

    // How many units the system delivered, the terminator included; 0 when there is no value.
    int Units() const { return units; }
    // Always terminated.
    const wchar16* Text() const { return text; }

private:
    // Leaves the last unit of the target free.
    static int Read(uint32 locale, uint32 type, wchar16* target, int size) {
        return platform::GetLocaleInfoW(locale, type, target, size - 1);
    }

    void ReadLong(uint32 locale, uint32 type) {
        const int needed = platform::GetLocaleInfoW(locale, type, nullptr, 0);
        if (needed == 0) return;
        onHeap.reset(new (std::nothrow) wchar16[static_cast<std::size_t>(needed) + 1]);
        if (onHeap == nullptr) return;
        text = onHeap.get();
        units = Read(locale, type, text, needed + 1);
    }

    wchar16 buffer[BufferSize];
    std::unique_ptr<wchar16[]> onHeap;
    wchar16* text = buffer;
    int units;
};

}  // namespace Torvo
