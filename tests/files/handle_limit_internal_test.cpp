#include <Utility/files.h>
#include <Utility/files/handle_limit.h>

#include <gtest/gtest.h>

namespace Torvo::test {
namespace handle_limit_internal_test {
namespace {

TEST(HandleLimit, IsWhatTheEnvironmentAsksForWithinItsBounds) {
    struct Case {
        const wchar16* text;
        int32 budget;
    };
    for (const Case& c : {
             Case{nullptr, 507},
             Case{ZUTEXT(""), 507},
             Case{ZUTEXT("many"), 507},
             Case{ZUTEXT("-5"), 507},
             Case{ZUTEXT("0"), 507},
             Case{ZUTEXT("400"), 507},
             Case{ZUTEXT("507"), 507},
             Case{ZUTEXT("508"), 508},
             Case{ZUTEXT(" 1000 files"), 1000},
             Case{ZUTEXT("2040"), 2040},
             Case{ZUTEXT("2041"), 507},
             Case{ZUTEXT("3000"), 507},
             Case{ZUTEXT("2147483648"), 507},
             Case{ZUTEXT("-2147483649"), 507},
             Case{ZUTEXT("99999999999999999999"), 507},
         }) {
        EXPECT_EQ(FileBudgetFrom(c.text), c.budget);
    }
}

TEST(HandleLimit, IsReadOnce) {
    const int32 before = FileBudget();
    const cMaxFileHandleHelper again;
    EXPECT_EQ(FileBudget(), before);
}

}  // namespace
}  // namespace handle_limit_internal_test
}  // namespace Torvo::test
