// The calling thread's locale, of a test's choosing until it goes out of scope; the former one again from then on.
#pragma once

#include <Utility/platform/host.h>

namespace Torvo::test {

class ThreadLocale {
public:
    // Leaves the locale as it is: the test sets it by SetThreadLocale, as often as it likes.
    ThreadLocale() = default;
    // Sets this one.
    explicit ThreadLocale(uint32 locale) { platform::SetThreadLocale(locale); }
    ~ThreadLocale() { platform::SetThreadLocale(former_); }
    ThreadLocale(const ThreadLocale&) = delete;
    ThreadLocale& operator=(const ThreadLocale&) = delete;

private:
    const uint32 former_ = platform::GetThreadLocale();
};

}  // namespace Torvo::test
