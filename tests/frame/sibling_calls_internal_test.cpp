#include <Utility/platform/modules.h>
#include <Utility/startup.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sibling_calls_internal_test {
namespace {

using namespace Torvo;

// Which siblings were called, in order.
std::string calls;

// A sibling that a test has loaded, until it goes out of scope.
class Sibling {
public:
    Sibling(const wchar16* name, void (*listener)()) {
        EXPECT_EQ(platform::GetModuleHandleW(name), nullptr) << "loaded by an earlier test";
        EXPECT_TRUE(LoadZULibrary(name, nullptr, library_));
        *Symbol<void (*)()>("fixtureInitListener") = listener;
    }
    ~Sibling() { platform::FreeLibrary(library_); }
    Sibling(const Sibling&) = delete;
    Sibling& operator=(const Sibling&) = delete;

    int InitCalls() const { return *Symbol<int>("fixtureInitCalls"); }
    int TermCalls() const { return *Symbol<int>("fixtureTermCalls"); }

private:
    template <typename T>
    T* Symbol(const char* name) const {
        return static_cast<T*>(platform::GetProcAddress(library_, name));
    }

    HINSTANCE library_ = nullptr;
};

class SiblingCalls : public testing::Test {
protected:
    void SetUp() override { calls.clear(); }

    static void DbInfoCalled() { calls += "dbinfo "; }
    static void RasterCalled() { calls += "raster "; }
    static void EngineCalled() { calls += "daengine "; }
};

constexpr const wchar16* siblings[] = {ZUTEXT("dbinfo.dll"), ZUTEXT("raster.dll"), ZUTEXT("daengine.dll")};

TEST_F(SiblingCalls, LoadNothing) {
    UtilDllEnsureInit();
    UtilDllForceTerm();
    for (const wchar16* name : siblings) EXPECT_EQ(platform::GetModuleHandleW(name), nullptr);
}

TEST_F(SiblingCalls, InitReachesALoadedSiblingAndTermDoesNot) {
    const Sibling sibling(siblings[0], DbInfoCalled);
    const int before = sibling.InitCalls();
    UtilDllEnsureInit();
    UtilDllEnsureInit();
    EXPECT_EQ(sibling.InitCalls(), before + 2);
    UtilDllForceTerm();
    EXPECT_EQ(sibling.TermCalls(), 0);
}

TEST_F(SiblingCalls, InitReachesAllInTheirOrder) {
    const Sibling engine(siblings[2], EngineCalled);
    const Sibling raster(siblings[1], RasterCalled);
    const Sibling dbInfo(siblings[0], DbInfoCalled);
    UtilDllEnsureInit();
    EXPECT_EQ(calls, "dbinfo raster daengine ");
    UtilDllForceTerm();
    for (const Sibling* sibling : {&dbInfo, &raster, &engine}) {
        EXPECT_EQ(sibling->InitCalls(), 1);
        EXPECT_EQ(sibling->TermCalls(), 0);
    }
}

TEST_F(SiblingCalls, InitPassesOverThoseThatAreNotLoaded) {
    {
        const Sibling raster(siblings[1], RasterCalled);
        UtilDllEnsureInit();
        EXPECT_EQ(calls, "raster ");
        const Sibling engine(siblings[2], EngineCalled);
        UtilDllEnsureInit();
        EXPECT_EQ(calls, "raster raster daengine ");
    }
    UtilDllEnsureInit();
    EXPECT_EQ(calls, "raster raster daengine ") << "gone again";
    for (const wchar16* name : siblings) EXPECT_EQ(platform::GetModuleHandleW(name), nullptr);
}

}  // namespace
}  // namespace sibling_calls_internal_test
