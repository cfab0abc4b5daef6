#include <Utility/files/name_index.h>
#include <Utility/platform/platform.h>

#include <gtest/gtest.h>
#include <support/fresh_files.h>

#include <clocale>

namespace Torvo::test {
namespace name_index_internal_test {
namespace {

// The index finds a name only if what the comparison takes for equal has the same class.
TEST(NameIndex, UnitsThatAreEqualIgnoringCaseAreInOneClass) {
    const std::string former = std::setlocale(LC_CTYPE, nullptr);
    for (const char* const locale : {"C", "C.UTF-8", "tr_TR.UTF-8", "en_US.UTF-8", ".UTF-8", "Turkish_Türkiye.1254"}) {
        if (std::setlocale(LC_CTYPE, locale) == nullptr) continue;
        SCOPED_TRACE(locale);
        for (uint32 unit = 1; unit < 0x10000; ++unit) {
            const auto one = static_cast<wchar16>(unit);
            for (const wchar16 other :
                 {platform::CharLowerW(one), platform::CharUpperW(one), wchar16{'i'}, wchar16{'k'}}) {
                const wchar16 a[] = {one, 0};
                const wchar16 b[] = {other, 0};
                if (platform::_wcsicmp(a, b) != 0) continue;
                ASSERT_EQ(CaseClass(one), CaseClass(other)) << unit << ' ' << uint32{other};
            }
        }
    }
    std::setlocale(LC_CTYPE, former.c_str());
}

TEST(NameIndex, NamesAreFoundAfterTheRuntimesLocaleHasChanged) {
    const std::string former = std::setlocale(LC_CTYPE, nullptr);
    const FreshFiles files;
    const int file = register_file(ZUTEXT("C:\\stra\u00DFe \u00E4\u00E5.dat"), ftNone, true);
    EXPECT_EQ(is_file_registered(ZUTEXT("C:\\STRA\u00DFE \u00C4\u00C5.DAT"), ftNone), 0);
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr && std::setlocale(LC_CTYPE, ".UTF-8") == nullptr) {
        GTEST_SKIP() << "this system has no UTF-8 locale";
    }
    EXPECT_EQ(is_file_registered(ZUTEXT("C:\\STRA\u00DFE \u00C4\u00C5.DAT"), ftNone), file);
    std::setlocale(LC_CTYPE, former.c_str());
    EXPECT_EQ(is_file_registered(ZUTEXT("C:\\STRA\u00DFE \u00C4\u00C5.DAT"), ftNone), 0);
}

TEST(NameIndex, ShowsCandidatesInTheOrderOfTheTable) {
    NameIndex index;
    EXPECT_EQ(index.FindFirst(1, [](int32) { return true; }), -1);
    index.Reserve(200);
    for (const int32 entry : {150, 3, 70, 4}) index.Insert(entry, 7);
    index.Insert(1, 7 + 1024);  // the same chain, another digest
    std::vector<int32> shown;
    const auto look = [&shown](int32 entry) {
        shown.push_back(entry);
        return false;
    };
    EXPECT_EQ(index.FindFirst(7, look), -1);
    EXPECT_EQ(shown, (std::vector<int32>{3, 4, 70, 150}));
    EXPECT_EQ(index.FindFirst(7, [](int32 entry) { return entry > 4; }), 70);

    index.Remove(3);
    index.Remove(150);
    index.Reserve(5000);  // more buckets
    shown.clear();
    EXPECT_EQ(index.FindFirst(7, look), -1);
    EXPECT_EQ(shown, (std::vector<int32>{4, 70}));
    EXPECT_EQ(index.FindFirst(7 + 1024, [](int32) { return true; }), 1);
}

}  // namespace
}  // namespace name_index_internal_test
}  // namespace Torvo::test
