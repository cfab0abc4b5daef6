#include <Utility/platform/modules.h>
#include <Utility/startup.h>
#include <gtest/gtest.h>

namespace {

using namespace Torvo;

int* Counter(HINSTANCE library, const char* name) {
    return static_cast<int*>(platform::GetProcAddress(library, name));
}

TEST(SiblingCalls, InitReachesALoadedSiblingAndTermDoesNot) {
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), nullptr);
    UtilDllEnsureInit();
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), nullptr) << "a sibling is never loaded";

    HINSTANCE library = nullptr;
    ASSERT_TRUE(LoadZULibrary(ZUTEXT("dbinfo"), nullptr, library));
    int* const initCalls = Counter(library, "fixtureInitCalls");
    int* const termCalls = Counter(library, "fixtureTermCalls");
    ASSERT_NE(initCalls, nullptr);
    ASSERT_NE(termCalls, nullptr);
    const int before = *initCalls;
    UtilDllEnsureInit();
    UtilDllEnsureInit();
    EXPECT_EQ(*initCalls, before + 2);
    UtilDllForceTerm();
    EXPECT_EQ(*termCalls, 0);
    platform::FreeLibrary(library);
}

}  // namespace
