// What the environment said when the library was loaded. The test program is also run with the variable set to several
// values (tests/CMakeLists.txt).

#include <Utility/files.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

namespace Torvo::test {
namespace handle_limit_test {
namespace {

TEST(HandleLimitAtLoad, IsTheBudgetOfEveryFileSystem) {
    const std::map<std::string, int> budgets = {{"", 507},      {"400", 507},   {"507", 507},  {"508", 508},
                                                {"1000", 1000}, {"2040", 2040}, {"2041", 507}, {"3000", 507}};
    const char* const variable = std::getenv("ZU_MAX_FILE_HANDLES");
    const auto expected = budgets.find(variable != nullptr ? variable : "");
    if (expected == budgets.end()) GTEST_SKIP() << "the environment asks for a number that this test does not know";
    EXPECT_EQ(GetMaxFileCount(), expected->second);
    cFileSystem* const another = cFileSystem::Create();
    EXPECT_EQ(another->GetMaxFileCount(), expected->second);
    delete another;
}

}  // namespace
}  // namespace handle_limit_test
}  // namespace Torvo::test
