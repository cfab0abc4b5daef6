// Tests of dates with the names of the thread's locale.
#pragma once

#include <Utility/locale_info.h>
#include <gtest/gtest.h>
#include <support/dates.h>
#include <support/thread_locale.h>

#include <optional>

namespace Torvo::test {

constexpr uint32 English = 0x409;
constexpr uint32 German = 0x407;
constexpr uint32 Polish = 0x415;
constexpr uint32 Japanese = 0x411;
constexpr uint32 Russian = 0x419;

// The names are English until the test sets another locale. No test leaves an error.
class DateNames : public testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override {
        english.reset();
        ResetZULocaleInfo();
        EXPECT_EQ(TakeDateErrors(), "");
    }

private:
    std::optional<ThreadLocale> english{std::in_place, English};
};

}  // namespace Torvo::test
