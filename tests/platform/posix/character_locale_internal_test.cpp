// Comparisons that ignore case while another thread changes the character locale.

#include <Utility/platform/runtime.h>
#include <gtest/gtest.h>

#include <atomic>
#include <clocale>
#include <thread>

namespace character_locale_internal_test {
namespace {

namespace platform = Torvo::platform;

TEST(CharacterLocale, MayBeChangedWhileAnotherThreadCompares) {
    std::atomic<bool> done = false;
    std::atomic<int> wrong = 0;
    std::thread comparing([&] {
        while (!done) {
            const int order = platform::_wcsicmp(ZUTEXT("\u0436a"), ZUTEXT("\u0416b"));
            // In "C" the two letters differ and decide; elsewhere they are the same, and what follows decides.
            if (order != 0x0436 - 0x0416 && order != 'a' - 'b') ++wrong;
        }
    });
    for (int round = 0; round < 2000; ++round) {
        std::setlocale(LC_CTYPE, round % 2 == 0 ? "C.UTF-8" : "C");
    }
    std::setlocale(LC_CTYPE, "C");
    done = true;
    comparing.join();
    EXPECT_EQ(wrong, 0);
}

// The answer follows the locale as it is set, and back.
TEST(CharacterLocale, IsTheBuiltInOneOnlyUnderTheNameC) {
    const auto folds = [] { return platform::_wcsicmp(ZUTEXT("\u0436"), ZUTEXT("\u0416")) == 0; };
    EXPECT_FALSE(folds());
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) GTEST_SKIP() << "this system has no locale C.UTF-8";
    EXPECT_TRUE(folds());
    std::setlocale(LC_CTYPE, "POSIX");
    EXPECT_FALSE(folds());
    std::setlocale(LC_CTYPE, "C");
    EXPECT_FALSE(folds());
}

}  // namespace
}  // namespace character_locale_internal_test
