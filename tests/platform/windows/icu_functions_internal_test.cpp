// How the functions of ICU are found, with libraries that have their names.
#include <Utility/platform/modules.h>
#include <Utility/platform/windows/icu_functions.h>
#include <Utility/startup.h>
#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace icu_functions_internal_test {
namespace {

using namespace Torvo;

using Names = std::vector<wstring16>;

// Which library stands under a name; what is not here cannot be loaded.
std::map<wstring16, wstring16> present;
Names asked;

HINSTANCE Load(const wchar16* name) {
    asked.emplace_back(name);
    const auto found = present.find(name);
    HINSTANCE library = nullptr;
    if (found != present.end()) LoadZULibrary(found->second.c_str(), nullptr, library);
    return library;
}

class IcuFunctions : public testing::Test {
protected:
    void SetUp() override {
        present.clear();
        asked.clear();
    }
    bool Found() { return platform::FindIcuFunctions(Load, icu); }

    static inline const wstring16 plain = ZUTEXT("fixture_icu.dll");
    static inline const wstring16 release = ZUTEXT("fixture_icu55.dll");
    static inline const Names all = {ZUTEXT("icu.dll"), ZUTEXT("icudt55.dll"), ZUTEXT("icuuc55.dll"),
                                     ZUTEXT("icuin55.dll")};
    platform::IcuFunctions icu;
};

TEST_F(IcuFunctions, AreThoseOfTheSystemsLibrary) {
    present[ZUTEXT("icu.dll")] = plain;
    ASSERT_TRUE(Found());
    EXPECT_EQ(asked, Names{ZUTEXT("icu.dll")});
    int32 status = 0;
    platform::Collator* const collator = icu.calls.open("en", &status);
    EXPECT_NE(collator, nullptr);
    EXPECT_EQ(icu.calls.compare(collator, ZUTEXT("a"), 1, ZUTEXT("b"), 1), -1);
    EXPECT_EQ(icu.calls.getSortKey(collator, ZUTEXT("abc"), 3, nullptr, 0), 4);
    EXPECT_EQ(icu.toUpper(nullptr, 0, ZUTEXT("ab"), 2, "", &status), 2);
    EXPECT_EQ(icu.normalize(icu.getComposer(&status), ZUTEXT("abcde"), 5, nullptr, 0, &status), 5);
    icu.calls.setStrength(collator, platform::CollationStrength::Primary);
    icu.calls.close(collator);
}

TEST_F(IcuFunctions, AreElseThoseOfTheRelease) {
    for (std::size_t index = 1; index < all.size(); ++index) present[all[index]] = release;
    ASSERT_TRUE(Found());
    EXPECT_EQ(asked, all);
    EXPECT_EQ(icu.calls.compare(nullptr, ZUTEXT("b"), 1, ZUTEXT("a"), 1), 1);
}

TEST_F(IcuFunctions, NeedEveryLibraryOfTheRelease) {
    for (std::size_t missing = 1; missing < all.size(); ++missing) {
        SetUp();
        for (std::size_t index = 1; index < all.size(); ++index) {
            if (index != missing) present[all[index]] = release;
        }
        EXPECT_FALSE(Found());
        EXPECT_EQ(asked, Names(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(missing) + 1))
            << "no more is asked for once one is missing";
    }
}

TEST_F(IcuFunctions, AreNotTakenFromALibraryThatLacksThem) {
    present[ZUTEXT("icu.dll")] = release;  // its functions have other names
    EXPECT_FALSE(Found());
    EXPECT_EQ(asked, Names(all.begin(), all.begin() + 2));
    for (std::size_t index = 1; index < all.size(); ++index) present[all[index]] = release;
    EXPECT_TRUE(Found());
    for (std::size_t index = 1; index < all.size(); ++index) present[all[index]] = plain;
    EXPECT_FALSE(Found());
}

}  // namespace
}  // namespace icu_functions_internal_test
