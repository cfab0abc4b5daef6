#include <Utility/platform/modules.h>
#include <Utility/resources.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/vtable_slot.h>

namespace resource_library_internal_test {
namespace {

using namespace Torvo;

HINSTANCE LoadFixture() {
    return platform::LoadLibraryW(test::Wide(test::DataPath("strings.dll")).c_str());
}

bool FixtureIsLoaded() {
    return platform::GetModuleHandleW(ZUTEXT("strings.dll")) != nullptr;
}

TEST(ResourceLibraryOwnership, ALoadedModuleIsFreedWithTheObject) {
    ASSERT_FALSE(FixtureIsLoaded());
    {
        const cResourceDLL library(LoadFixture());
        EXPECT_EQ(wstring16(library[1]), ZUTEXT("one"));
        EXPECT_TRUE(FixtureIsLoaded());
    }
    EXPECT_FALSE(FixtureIsLoaded());
}

TEST(ResourceLibraryOwnership, TheNameIsLoadedAtTheFirstLookUpAndFreedWithTheObject) {
    {
        const cResourceDLL library(test::Wide(test::DataPath("strings.dll")).c_str());
        EXPECT_FALSE(FixtureIsLoaded());
        library[1];
        EXPECT_TRUE(FixtureIsLoaded());
    }
    EXPECT_FALSE(FixtureIsLoaded());
}

TEST(ResourceLibraryOwnership, ACopyFreesTheSameModuleOnceMore) {
    const HINSTANCE module = LoadFixture();
    LoadFixture();
    LoadFixture();
    {
        const cResourceDLL library(module);
        const cResourceDLL copy(library);  // NOLINT(performance-unnecessary-copy-initialization): it frees too
    }
    EXPECT_TRUE(FixtureIsLoaded()) << "two of three references are gone";
    EXPECT_TRUE(platform::FreeLibrary(module));
    EXPECT_FALSE(FixtureIsLoaded());
}

// Shows the protected operation.
class Shown : public cResourceHandle {
public:
    using cResourceHandle::FindString;
};

TEST(ResourceLibraryOwnership, FindStringIsTheThirdOperation) {
    EXPECT_EQ(test::SlotOf(&Shown::FindString), 3u);
}

}  // namespace
}  // namespace resource_library_internal_test
