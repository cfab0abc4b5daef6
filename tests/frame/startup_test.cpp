#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/system_charset.h>

#include <thread>

namespace startup_test {
namespace {

using namespace Torvo;

// Calls InitLiterals on a thread whose system charset is the given one.
bool InitLiteralsUnder(int charset) {
    bool result = false;
    std::thread([&] {
        {
            const test::SystemCharset chosen(static_cast<ZUCHARSET>(charset));
            result = InitLiterals();
        }
        InstanceData::Destroy(false, false);
    }).join();
    return result;
}

// The font is chosen once for the process, so this is one story.
TEST(Literals, FontIsEmptyThenChosenOnceAndKept) {
    const wchar16* const font = GetDefaultRotatableFont();
    EXPECT_EQ(wstring16(font), ZUTEXT(""));
    // A charset without a font: a later call tries again.
    EXPECT_FALSE(InitLiteralsUnder(54));
    EXPECT_FALSE(InitLiteralsUnder(-1));
    EXPECT_EQ(wstring16(font), ZUTEXT(""));
    EXPECT_TRUE(InitLiteralsUnder(13));
    EXPECT_EQ(wstring16(font), ZUTEXT("Arial Cyr"));
    // The first choice holds, also where there would be none.
    EXPECT_TRUE(InitLiteralsUnder(38));
    EXPECT_TRUE(InitLiteralsUnder(54));
    EXPECT_EQ(GetDefaultRotatableFont(), font);
    EXPECT_EQ(wstring16(font), ZUTEXT("Arial Cyr"));
}

class SiblingLibrary : public testing::Test {
protected:
    // Loads the sibling that the tests bring along; it lies beside the program.
    HINSTANCE Load(const wchar16* name, const wchar16* sibling = nullptr) {
        HINSTANCE library = nullptr;
        EXPECT_TRUE(LoadZULibrary(name, sibling, library));
        return library;
    }
};

TEST_F(SiblingLibrary, NothingIsLoadedByTheCallsToSiblings) {
    UtilDllEnsureInit();
    UtilDllForceTerm();
    // Had one of them been loaded, its directory would be known now; the program's is used instead.
    HINSTANCE library = nullptr;
    EXPECT_FALSE(LoadZULibrary(ZUTEXT("no_such_library"), ZUTEXT("raster.dll"), library));
    EXPECT_EQ(library, nullptr);
}

TEST_F(SiblingLibrary, IsFoundByNameBesideTheProgram) {
    const HINSTANCE library = Load(ZUTEXT("dbinfo"));
    EXPECT_NE(library, nullptr);
    EXPECT_EQ(Load(ZUTEXT("dbinfo.dll")), library);
    EXPECT_EQ(Load(ZUTEXT("C:\\any\\directory\\at\\all\\dbinfo.dll")), library) << "a directory part is ignored";
    EXPECT_EQ(Load((wstring16(400, wchar16{'d'}) + ZUTEXT("\\dbinfo")).c_str()), library) << "of any length";
    EXPECT_EQ(Load(ZUTEXT("dbinfo"), ZUTEXT("no_module_of_this_name")), library);
    EXPECT_EQ(Load(ZUTEXT("dbinfo"), ZUTEXT("dbinfo.dll")), library) << "beside a module that is loaded";
}

TEST_F(SiblingLibrary, IsNotFoundUnderAnotherNameOrWithoutOne) {
    HINSTANCE library = nullptr;
    EXPECT_FALSE(LoadZULibrary(ZUTEXT("no_such_library"), nullptr, library));
    EXPECT_FALSE(LoadZULibrary(ZUTEXT("dbinfo.xyz"), nullptr, library));
    EXPECT_EQ(library, nullptr);
}

TEST_F(SiblingLibrary, ThatCannotBeLoadedLeavesNull) {
    HINSTANCE library = Load(ZUTEXT("dbinfo"));
    EXPECT_FALSE(LoadZULibrary(ZUTEXT("no_such_library"), nullptr, library));
    EXPECT_EQ(library, nullptr);
    for (const std::size_t length : {200u, 250u, 260u, 500u}) {
        library = Load(ZUTEXT("dbinfo"));
        EXPECT_FALSE(LoadZULibrary(wstring16(length, wchar16{'x'}).c_str(), nullptr, library));
        EXPECT_EQ(library, nullptr) << length;
    }
}

TEST_F(SiblingLibrary, WithoutANameLeavesTheResultAlone) {
    const HINSTANCE before = Load(ZUTEXT("dbinfo"));
    HINSTANCE library = before;
    EXPECT_FALSE(LoadZULibrary(nullptr, nullptr, library));
    EXPECT_EQ(library, before);
}

// The library itself is a module, under its own name on every system.
TEST_F(SiblingLibrary, IsFoundBesideTheLibraryItself) {
    HINSTANCE library = nullptr;
    const bool found = LoadZULibrary(ZUTEXT("neighbour"), ZUTEXT("TorvoUtility.dll"), library);
    EXPECT_TRUE(found);
    // It lies there and not beside the program.
    EXPECT_EQ(LoadZULibrary(ZUTEXT("neighbour"), nullptr, library), PROGRAM_LIES_BESIDE_THE_LIBRARY);
}

}  // namespace
}  // namespace startup_test
