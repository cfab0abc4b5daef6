#include <Utility/charsets.h>
#include <Utility/file_names.h>
#include <Utility/files.h>
#include <gtest/gtest.h>
#include <support/guarded_buffer.h>
#include <support/system_charset.h>

#include <algorithm>

namespace file_names_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;

wstring16 Units(std::size_t count, wchar16 unit = 'x') {
    return wstring16(count, unit);
}

// A call that changes a path in a buffer of its own.
template <typename Call>
wstring16 Changed(const wstring16& text, Call call) {
    GuardedBuffer buffer(std::max<std::size_t>(261, text.size() + 10));
    *std::copy(text.begin(), text.end(), buffer.Start()) = 0;
    call(buffer.Start());
    return buffer.Text();
}

wstring16 Made(const wstring16& name, const wchar16* extension) {
    return Changed(name, [&](wchar16* text) { make_extension(text, extension); });
}
wstring16 Required(const wstring16& name, FILETYPE type) {
    return Changed(name, [&](wchar16* text) { require_dos_extension(text, type); });
}
wstring16 Recommended(const wstring16& name, FILETYPE type) {
    return Changed({}, [&](wchar16* text) { recommend_filename(text, name.c_str(), type); });
}
wstring16 Table(const wstring16& name) {
    return Changed({}, [&](wchar16* text) { recommend_table_filename(text, name.c_str()); });
}
wstring16 Base(const wstring16& path, int size = 261) {
    GuardedBuffer buffer(static_cast<uint64>(size));
    path2something(path.c_str(), buffer.Start(), size);
    return buffer.Text();
}

TEST(FileTypes, EveryTypeHasItsExtensionAndFlag) {
    struct Row {
        const wchar16* extension;
        bool forced;
    };
    constexpr Row rows[] = {
        {nullptr, false},        {ZUTEXT(".TAB"), false}, {ZUTEXT("."), false},     {ZUTEXT(".WOR"), false},
        {ZUTEXT(".TXT"), false}, {ZUTEXT(".MAP"), true},  {ZUTEXT(".ID"), true},    {ZUTEXT(".IND"), true},
        {ZUTEXT(".TMA"), true},  {ZUTEXT(".TIN"), true},  {ZUTEXT(".TDA"), true},   {ZUTEXT(".TID"), true},
        {ZUTEXT(".PRF"), false}, {ZUTEXT(".HLP"), false}, {ZUTEXT(".FNT"), false},  {ZUTEXT(".ABB"), false},
        {ZUTEXT(".ZB"), false},  {ZUTEXT(".ZBX"), true},  {ZUTEXT(".DAT"), false},  {ZUTEXT(".DBF"), false},
        {ZUTEXT(".WK1"), false}, {ZUTEXT(".WKS"), false}, {ZUTEXT(".XLS"), false},  {ZUTEXT(".ZIF"), false},
        {ZUTEXT(".ZMI"), false}, {ZUTEXT(".ZBI"), false}, {ZUTEXT(".IMG"), false},  {ZUTEXT(".DXF"), false},
        {ZUTEXT(".PIC"), false}, {ZUTEXT(".ZID"), true},  {ZUTEXT(".RPT"), true},   {ZUTEXT(".TAB"), false},
        {ZUTEXT(".BMP"), false}, {ZUTEXT(".LAY"), false}, {ZUTEXT(".PEN"), false},  {ZUTEXT(".PRJ"), false},
        {ZUTEXT(".WMF"), false}, {nullptr, false},        {ZUTEXT(".DEF"), false},  {ZUTEXT(".ERR"), false},
        {ZUTEXT(".EXE"), false}, {ZUTEXT(".MNU"), false}, {ZUTEXT(".ZBO"), true},   {ZUTEXT(".ZBP"), false},
        {ZUTEXT(".CLR"), false}, {ZUTEXT(".BIL"), false}, {ZUTEXT(".EPS"), false},  {ZUTEXT(".RAS"), false},
        {ZUTEXT(".GIF"), false}, {ZUTEXT(".TIF"), false}, {ZUTEXT(".TLB"), false},  {ZUTEXT(".TMP"), false},
        {ZUTEXT(".wk3"), false}, {ZUTEXT(".cpf"), true},  {ZUTEXT(".PCX"), false},  {ZUTEXT(".JPG"), false},
        {ZUTEXT(".TGA"), false}, {ZUTEXT(".LDA"), true},  {ZUTEXT(".LMA"), true},   {ZUTEXT(".LIN"), true},
        {ZUTEXT(".lnk"), false}, {ZUTEXT(".sql"), false}, {ZUTEXT(".wk4"), false},  {ZUTEXT(".aid"), false},
        {ZUTEXT(".mdb"), false}, {ZUTEXT(".png"), false}, {ZUTEXT(".psd"), false},  {ZUTEXT(".shp"), true},
        {ZUTEXT(".shx"), true},  {ZUTEXT(".csv"), false}, {ZUTEXT(".xml"), false},  {ZUTEXT(".html"), true},
        {ZUTEXT(".swf"), true},  {ZUTEXT(".xml"), false}, {ZUTEXT(".gpkg"), false},
    };
    static_assert(std::size(rows) == 75);
    for (int number = 0; number < 75; ++number) {
        const auto type = static_cast<FILETYPE>(number);
        const wchar16* const extension = file_extension(type);
        ASSERT_EQ(extension == nullptr, rows[number].extension == nullptr) << number;
        if (extension != nullptr) {
            EXPECT_EQ(wstring16(extension), wstring16(rows[number].extension)) << number;
        }
        EXPECT_EQ(munge_filename(type), rows[number].forced) << number;
    }
}

TEST(FileTypes, NumbersThatAreNoneHaveNoExtension) {
    for (const int number : {75, 1000, -1, -2147483647 - 1}) {
        EXPECT_EQ(file_extension(static_cast<FILETYPE>(number)), nullptr) << number;
        EXPECT_FALSE(munge_filename(static_cast<FILETYPE>(number))) << number;
    }
}

TEST(FileTypes, EachExtensionLeadsToItsLowestType) {
    for (int number = 0; number < 75; ++number) {
        const wchar16* const extension = file_extension(static_cast<FILETYPE>(number));
        if (extension == nullptr) continue;
        const int expected = number == 31 ? 1 : number == 73 ? 70 : number == 2 ? 0 : number;
        EXPECT_EQ(file_type((wstring16(ZUTEXT("name")) + extension).c_str()), expected) << number;
    }
}

TEST(FileTypes, TypeOfANameIgnoresCase) {
    EXPECT_EQ(file_type(ZUTEXT("a.tab")), 1) << "never 31";
    EXPECT_EQ(file_type(ZUTEXT("a.xml")), 70) << "never 73";
    EXPECT_EQ(file_type(ZUTEXT("a.TaB")), 1);
    EXPECT_EQ(file_type(ZUTEXT("a.GPKG")), 74);
    EXPECT_EQ(file_type(ZUTEXT("a.b.TIF")), 49);
}

TEST(FileTypes, NameWithoutAnExtensionHasNoType) {
    EXPECT_EQ(file_type(ZUTEXT("a.")), 0);
    EXPECT_EQ(file_type(ZUTEXT("a")), 0);
    EXPECT_EQ(file_type(ZUTEXT("")), 0);
    EXPECT_EQ(file_type(ZUTEXT(".")), 0);
    EXPECT_EQ(file_type(ZUTEXT("a.foo")), 0);
    EXPECT_EQ(file_type(ZUTEXT("a.TABS")), 0);
    EXPECT_EQ(file_type(ZUTEXT("a.TAB ")), 0);
    EXPECT_EQ(file_type(ZUTEXT("a.TAB.")), 0);
}

TEST(FileTypes, LastDotOfTheWholeTextCounts) {
    EXPECT_EQ(file_type(ZUTEXT("dir.TAB\\name")), 0) << "the text from there is .TAB\\name";
    EXPECT_EQ(file_type(ZUTEXT("dir.TAB\\name.TIF")), 49);
    EXPECT_EQ(file_type(ZUTEXT("C:\\dir.TAB")), 1);
    EXPECT_EQ(file_type(ZUTEXT(".TAB")), 1);
}

TEST(MakeExtension, ReplacesAKnownExtension) {
    EXPECT_EQ(Made(ZUTEXT("a.DAT"), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.dat"), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.html"), ZUTEXT(".ID")), ZUTEXT("a.ID"));
    EXPECT_EQ(Made(ZUTEXT("a.ID"), ZUTEXT(".html")), ZUTEXT("a.html"));
    EXPECT_EQ(Made(ZUTEXT("a."), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.b.DAT"), ZUTEXT(".TAB")), ZUTEXT("a.b.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.DAT"), ZUTEXT(".")), ZUTEXT("a."));
    EXPECT_EQ(Made(ZUTEXT(".DAT"), ZUTEXT(".TAB")), ZUTEXT(".TAB"));
}

TEST(MakeExtension, AnUnknownExtensionIsNone) {
    EXPECT_EQ(Made(ZUTEXT("a.foo"), ZUTEXT(".TAB")), ZUTEXT("a.foo.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a"), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.DAT.foo"), ZUTEXT(".TAB")), ZUTEXT("a.DAT.foo.TAB"));
    EXPECT_EQ(Made(ZUTEXT(""), ZUTEXT(".TAB")), ZUTEXT(".TAB"));
    EXPECT_EQ(Made(ZUTEXT("a.DAT"), ZUTEXT(".foo")), ZUTEXT("a.foo")) << "any extension can be put on";
    EXPECT_EQ(Made(ZUTEXT("a.DAT"), ZUTEXT("foo")), ZUTEXT("afoo"));
}

TEST(MakeExtension, OnlyTheLastComponentIsLookedAt) {
    EXPECT_EQ(Made(ZUTEXT("C:\\d.DAT\\a"), ZUTEXT(".TAB")), ZUTEXT("C:\\d.DAT\\a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("C:/d.DAT/a"), ZUTEXT(".TAB")), ZUTEXT("C:/d.DAT/a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("C:a.DAT"), ZUTEXT(".TAB")), ZUTEXT("C:a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("d.DAT\\"), ZUTEXT(".TAB")), ZUTEXT("d.DAT\\.TAB"));
}

TEST(MakeExtension, BlanksBeforeTheExtensionGo) {
    EXPECT_EQ(Made(ZUTEXT("a  .DAT"), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a  "), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("a\t\x01 .DAT"), ZUTEXT(".TAB")), ZUTEXT("a.TAB")) << "controls are blank";
    EXPECT_EQ(Made(ZUTEXT("a\u00A0.DAT"), ZUTEXT(".TAB")), ZUTEXT("a\u00A0.TAB")) << "units from 128 never are";
    EXPECT_EQ(Made(ZUTEXT("a b .DAT"), ZUTEXT(".TAB")), ZUTEXT("a b.TAB"));
    EXPECT_EQ(Made(ZUTEXT("dir \\  .DAT"), ZUTEXT(".TAB")), ZUTEXT("dir \\.TAB")) << "not beyond the component";
}

TEST(MakeExtension, BlanksAtTheStartOfTheComponentGo) {
    EXPECT_EQ(Made(ZUTEXT("  a.DAT"), ZUTEXT(".TAB")), ZUTEXT("a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("C:\\d\\ \t a.DAT"), ZUTEXT(".TAB")), ZUTEXT("C:\\d\\a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("C: a"), ZUTEXT(".TAB")), ZUTEXT("C:a.TAB"));
    EXPECT_EQ(Made(ZUTEXT("   "), ZUTEXT(".TAB")), ZUTEXT(".TAB"));
}

TEST(MakeExtension, NullRemovesOnlyTheBlanksBeforeTheExtension) {
    EXPECT_EQ(Made(ZUTEXT("a  .DAT"), nullptr), ZUTEXT("a.DAT"));
    EXPECT_EQ(Made(ZUTEXT("  a  "), nullptr), ZUTEXT("  a"));
    EXPECT_EQ(Made(ZUTEXT("a .foo "), nullptr), ZUTEXT("a .foo"));
    EXPECT_EQ(Made(Units(300), nullptr), Units(300)) << "nothing is cut";
}

TEST(MakeExtension, EmptyExtensionRemovesTheOneThatIsThere) {
    EXPECT_EQ(Made(ZUTEXT(" a  .DAT"), ZUTEXT("")), ZUTEXT(" a"));
    EXPECT_EQ(Made(ZUTEXT("a.foo"), ZUTEXT("")), ZUTEXT("a.foo"));
}

TEST(MakeExtension, EmptyExtensionRemovesNothingBehindALongName) {
    EXPECT_EQ(Made(Units(254) + ZUTEXT(".DAT"), ZUTEXT("")), Units(254));
    EXPECT_EQ(Made(Units(255) + ZUTEXT(".DAT"), ZUTEXT("")), Units(255) + ZUTEXT(".DAT"));
}

TEST(MakeExtension, LongNameLosesTheLastUnitOfTheExtension) {
    EXPECT_EQ(Made(Units(250), ZUTEXT(".TAB")), Units(250) + ZUTEXT(".TAB"));
    EXPECT_EQ(Made(Units(251), ZUTEXT(".TAB")), Units(251) + ZUTEXT(".TA"));
    EXPECT_EQ(Made(Units(254), ZUTEXT(".TAB")), Units(254) + ZUTEXT(".TA"));
    EXPECT_EQ(Made(Units(250) + ZUTEXT(".DAT"), ZUTEXT(".TAB")), Units(250) + ZUTEXT(".TAB"));
    EXPECT_EQ(Made(Units(249), ZUTEXT(".html")), Units(249) + ZUTEXT(".html"));
    EXPECT_EQ(Made(Units(250), ZUTEXT(".html")), Units(250) + ZUTEXT(".htm"));
    EXPECT_EQ(Made(ZUTEXT("C:\\d\\") + Units(251), ZUTEXT(".TAB")), ZUTEXT("C:\\d\\") + Units(251) + ZUTEXT(".TA"));
}

TEST(MakeExtension, OverlongComponentIsCutFirst) {
    EXPECT_EQ(Made(Units(255), ZUTEXT(".TAB")), Units(254) + ZUTEXT(".TA"));
    EXPECT_EQ(Made(Units(400), ZUTEXT(".TAB")), Units(254) + ZUTEXT(".TA"));
    // The extension that was there is cut off with the rest and no longer seen.
    EXPECT_EQ(Made(Units(252) + ZUTEXT(".DAT"), ZUTEXT(".TAB")), Units(252) + ZUTEXT(".D.TA"));
}

TEST(RequireExtension, PutsTheOneOfTheTypeOn) {
    EXPECT_EQ(Required(ZUTEXT("a.DAT"), ftTab), ZUTEXT("a.TAB"));
    EXPECT_EQ(Required(ZUTEXT("a.DAT"), ftDot), ZUTEXT("a."));
    EXPECT_EQ(Required(ZUTEXT(" a .DAT"), ftNone), ZUTEXT(" a .DAT"));
    EXPECT_EQ(Required(ZUTEXT(" a .DAT"), static_cast<FILETYPE>(37)), ZUTEXT(" a .DAT"));
    EXPECT_EQ(Required(ZUTEXT(" a .DAT"), static_cast<FILETYPE>(75)), ZUTEXT(" a .DAT"));
}

TEST(RecommendFilename, PutsTheExtensionOfTheTypeOn) {
    EXPECT_EQ(Recommended(ZUTEXT("x.dat"), ftTxt), ZUTEXT("x.TXT"));
    EXPECT_EQ(Recommended(ZUTEXT("x"), ftMap), ZUTEXT("x.MAP"));
    EXPECT_EQ(Recommended(ZUTEXT("C:\\d\\  x.foo"), ftTif), ZUTEXT("C:\\d\\x.foo.TIF"));
}

TEST(RecommendFilename, TextFileMayBeAListOfValues) {
    EXPECT_EQ(Recommended(ZUTEXT("x.csv"), ftTxt), ZUTEXT("x.csv"));
    EXPECT_EQ(Recommended(ZUTEXT("x.CSV"), ftTxt), ZUTEXT("x.csv")) << "in the case of the table";
    EXPECT_EQ(Recommended(ZUTEXT("x .csv"), ftTxt), ZUTEXT("x.csv"));
    EXPECT_EQ(Recommended(ZUTEXT("csv"), ftTxt), ZUTEXT("csv.TXT"));
    EXPECT_EQ(Recommended(ZUTEXT("x.csv"), ftTab), ZUTEXT("x.TAB")) << "text files only";
    EXPECT_EQ(Recommended(ZUTEXT(""), ftTxt), ZUTEXT(".TXT"));
}

TEST(RecommendFilename, WithoutAnExtensionTheNameIsOnlyTidied) {
    EXPECT_EQ(Recommended(ZUTEXT("C:\\ x .dat"), ftNone), ZUTEXT("C:\\x .dat"));
    EXPECT_EQ(Recommended(ZUTEXT(" x.dat"), static_cast<FILETYPE>(100)), ZUTEXT("x.dat"));
    EXPECT_EQ(Recommended(Units(258), ftNone), Units(254));
}

TEST(RecommendFilename, OutputMayBeTheInput) {
    EXPECT_EQ(Changed(ZUTEXT(" x.dat"), [](wchar16* text) { recommend_filename(text, text, ftTxt); }), ZUTEXT("x.TXT"));
    EXPECT_EQ(Changed(ZUTEXT("x.TAB"), [](wchar16* text) { recommend_table_filename(text, text); }), ZUTEXT("x."));
}

TEST(RecommendFilename, OverlongPathIsCutToTheLimit) {
    EXPECT_EQ(Recommended(ZUTEXT("C:\\") + Units(150) + ZUTEXT("\\") + Units(150), ftNone).size(), 260u);
}

// What a recommending call writes into a buffer that has room for a path and nothing more.
template <typename Call>
wstring16 WrittenAsPath(Call call) {
    GuardedBuffer buffer(261);
    call(buffer.Start());
    return buffer.Text();
}

TEST(RecommendFilename, NoMoreThanAPathIsWritten) {
    const wstring16 directory = ZUTEXT("C:\\") + Units(100) + ZUTEXT("\\");
    for (std::size_t length = 250; length <= 265; ++length) {
        const wstring16 path = directory + Units(length - directory.size(), 'n');
        for (const FILETYPE type : {ftTab, ftDot, ftHtml, ftTxt, ftNone}) {
            const wchar16* const extension = file_extension(type);
            const wstring16 whole = path.substr(0, 260) + (extension != nullptr ? extension : ZUTEXT(""));
            EXPECT_EQ(WrittenAsPath([&](wchar16* out) { recommend_filename(out, path.c_str(), type); }),
                      whole.substr(0, 260));
        }
        EXPECT_EQ(WrittenAsPath([&](wchar16* out) { recommend_table_filename(out, path.c_str()); }),
                  (path.substr(0, 260) + ZUTEXT(".TAB")).substr(0, 260));
    }
}

TEST(RecommendFilename, LongPathInPlaceStaysWithinItsRoom) {
    const wstring16 path = ZUTEXT("C:\\") + Units(100) + ZUTEXT("\\") + Units(154);
    ASSERT_EQ(path.size(), 258u);
    const auto inPlace = [&](auto call) {
        return WrittenAsPath([&](wchar16* text) {
            *std::copy(path.begin(), path.end(), text) = 0;
            call(text);
        });
    };
    EXPECT_EQ(inPlace([](wchar16* text) { recommend_filename(text, text, ftHtml); }), path + ZUTEXT(".h"));
    EXPECT_EQ(inPlace([](wchar16* text) { recommend_table_filename(text, text); }), path + ZUTEXT(".T"));
}

TEST(RecommendTableFilename, LongTableNameLosesItsExtension) {
    const wstring16 path = ZUTEXT("C:\\") + Units(100) + ZUTEXT("\\") + Units(152);
    EXPECT_EQ(WrittenAsPath([&](wchar16* out) { recommend_table_filename(out, (path + ZUTEXT(".tab")).c_str()); }),
              path + ZUTEXT("."));
}

TEST(RecommendTableFilename, TableNameLosesItsExtensionAndOthersGetIt) {
    EXPECT_EQ(Table(ZUTEXT("x.TAB")), ZUTEXT("x."));
    EXPECT_EQ(Table(ZUTEXT("x.tab")), ZUTEXT("x."));
    EXPECT_EQ(Table(ZUTEXT("x")), ZUTEXT("x.TAB"));
    EXPECT_EQ(Table(ZUTEXT("x.dat")), ZUTEXT("x.TAB"));
    EXPECT_EQ(Table(ZUTEXT("x.")), ZUTEXT("x.TAB"));
    EXPECT_EQ(Table(ZUTEXT("x.foo")), ZUTEXT("x.foo.TAB"));
    EXPECT_EQ(Table(ZUTEXT("C:\\d\\x.TAB")), ZUTEXT("C:\\d\\x."));
    EXPECT_EQ(Table(ZUTEXT(" x.TAB")), ZUTEXT("x.TAB")) << "the tidied name is another one";
}

struct Parts {
    wstring16 directory;
    wstring16 name;
    bool operator==(const Parts&) const = default;
};

Parts Split(const wstring16& path) {
    GuardedBuffer name(255 + 1 + 256 + 1);
    const wstring16 directory = Changed(path, [&](wchar16* text) { splitfilename(text, name.Start()); });
    const wstring16 alone = Changed(path, [](wchar16* text) { splitfilename(text, nullptr); });
    EXPECT_EQ(alone, directory);
    return {directory, name.Text()};
}

TEST(SplitFilename, TakesDirectoryAndNameApart) {
    EXPECT_EQ(Split(ZUTEXT("C:\\a\\b.tab")), (Parts{ZUTEXT("C:\\a\\"), ZUTEXT("b.tab")}));
    EXPECT_EQ(Split(ZUTEXT("a/b.c.d")), (Parts{ZUTEXT("a/"), ZUTEXT("b.c.d")}));
    EXPECT_EQ(Split(ZUTEXT("C:b")), (Parts{ZUTEXT("C:"), ZUTEXT("b")}));
    EXPECT_EQ(Split(ZUTEXT("C:\\a\\")), (Parts{ZUTEXT("C:\\a\\"), ZUTEXT("")}));
    EXPECT_EQ(Split(ZUTEXT("b.tab")), (Parts{ZUTEXT(""), ZUTEXT("b.tab")}));
    EXPECT_EQ(Split(ZUTEXT("")), (Parts{ZUTEXT(""), ZUTEXT("")}));
    EXPECT_EQ(Split(ZUTEXT("d.x\\.tab")), (Parts{ZUTEXT("d.x\\"), ZUTEXT(".tab")}));
    EXPECT_EQ(Split(ZUTEXT("a\\b/c:d")), (Parts{ZUTEXT("a\\b/c:"), ZUTEXT("d")}));
}

TEST(SplitFilename, LongNamesAreCutOnBothSidesOfTheLastDot) {
    EXPECT_EQ(Split(Units(255) + ZUTEXT(".") + Units(256, 'y')).name, Units(255) + ZUTEXT(".") + Units(256, 'y'));
    EXPECT_EQ(Split(Units(256) + ZUTEXT(".") + Units(257, 'y')).name, Units(255) + ZUTEXT(".") + Units(256, 'y'));
    EXPECT_EQ(Split(Units(256)).name, Units(255)) << "without a dot";
    EXPECT_EQ(Split(ZUTEXT(".") + Units(254) + ZUTEXT(".tab")).name, ZUTEXT(".") + Units(254) + ZUTEXT(".tab"));
}

TEST(Path2Something, GivesTheBareName) {
    EXPECT_EQ(Base(ZUTEXT("C:\\dir\\world.tab")), ZUTEXT("world"));
    EXPECT_EQ(Base(ZUTEXT("world")), ZUTEXT("world"));
    EXPECT_EQ(Base(ZUTEXT("C:\\dir\\")), ZUTEXT(""));
    EXPECT_EQ(Base(ZUTEXT("dir.x/world")), ZUTEXT("world"));
    EXPECT_EQ(Base(ZUTEXT("a.foo.bar")), ZUTEXT("a.foo"));
    EXPECT_EQ(Base(ZUTEXT(".tab")), ZUTEXT(""));
}

TEST(Path2Something, BlanksAtTheEndGo) {
    EXPECT_EQ(Base(ZUTEXT("C:\\dir\\world  .tab")), ZUTEXT("world"));
    EXPECT_EQ(Base(ZUTEXT(" world")), ZUTEXT(" world"));
    EXPECT_EQ(Base(ZUTEXT("a .TIF.TAB")), ZUTEXT("a.TIF")) << "those before a known extension that is left";
}

TEST(Path2Something, KeepsToItsSize) {
    EXPECT_EQ(Base(ZUTEXT("d\\world.tab"), 6), ZUTEXT("world"));
    EXPECT_EQ(Base(ZUTEXT("d\\world.tab"), 5), ZUTEXT("worl"));
    EXPECT_EQ(Base(ZUTEXT("d\\world.tab"), 1), ZUTEXT(""));
    GuardedBuffer untouched(0);
    path2something(ZUTEXT("world"), untouched.Start(), 0);
    path2something(ZUTEXT("world"), untouched.Start(), -5);
    EXPECT_EQ(Base(Units(300), 400), Units(255));
}

TEST(LevelZeroMode, FlagsBecomeModes) {
    EXPECT_EQ(level0mode_to_ourmode(0), 1);
    EXPECT_EQ(level0mode_to_ourmode(1), 2);
    EXPECT_EQ(level0mode_to_ourmode(2), 2);
    EXPECT_EQ(level0mode_to_ourmode(3), 2);
    EXPECT_EQ(level0mode_to_ourmode(0x100), 3);
    EXPECT_EQ(level0mode_to_ourmode(0x102), 3);
    EXPECT_EQ(level0mode_to_ourmode(0x8000), 1);
    EXPECT_EQ(level0mode_to_ourmode(0x8002), 2);
    EXPECT_EQ(level0mode_to_ourmode(0x200), 1) << "truncating alone creates nothing";
    EXPECT_EQ(level0mode_to_ourmode(-1), 3);
}

TEST(FileNames, ModesHaveTheirNumbers) {
    EXPECT_EQ(omRead, 1);
    EXPECT_EQ(omReadWrite, 2);
    EXPECT_EQ(omCreate, 3);
    EXPECT_EQ(sizeof(FILETYPE), 4u);
    EXPECT_EQ(sizeof(eOpenMode), 4u);
}

// On a multi-byte system text is walked, which changes nothing where only ASCII characters are looked for.
TEST(FileNames, AreTheSameOnAMultiByteSystem) {
    const test::SystemCharset japanese(csWindowsJapanese);
    EXPECT_EQ(Made(ZUTEXT("\u65E5\u3042\u0301.DAT"), ZUTEXT(".TAB")), ZUTEXT("\u65E5\u3042\u0301.TAB"));
    EXPECT_EQ(Split(ZUTEXT("\u8868\\\u65E5.tab")), (Parts{ZUTEXT("\u8868\\"), ZUTEXT("\u65E5.tab")}));
    EXPECT_EQ(file_type(ZUTEXT("\u305C.tab")), 1);
}

// The free functions lead to the service of the caller's instance.
TEST(FileNames, FreeFunctionsAskTheInstancesService) {
    cFileSystem* const own = cFileSystem::Instance();
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->file_extension(ftTab), file_extension(ftTab));
    EXPECT_EQ(own->file_type(ZUTEXT("a.tif")), ftTif);
}

TEST(FileNames, NullIsACleanFailure) {
    const wstring16 before = ZUTEXT("before");
    EXPECT_EQ(file_type(nullptr), ftNone);
    make_extension(nullptr, ZUTEXT(".TAB"));
    make_extension(nullptr, nullptr);
    require_dos_extension(nullptr, ftTab);
    recommend_filename(nullptr, ZUTEXT("a"), ftTab);
    recommend_table_filename(nullptr, ZUTEXT("a"));
    EXPECT_EQ(Changed(before, [](wchar16* out) { recommend_filename(out, nullptr, ftTab); }), before);
    EXPECT_EQ(Changed(before, [](wchar16* out) { recommend_table_filename(out, nullptr); }), before);
    splitfilename(nullptr, nullptr);
    EXPECT_EQ(Changed(before, [](wchar16* out) { splitfilename(nullptr, out); }), ZUTEXT(""));
    EXPECT_EQ(Changed(before, [](wchar16* out) { path2something(nullptr, out, 1); }), ZUTEXT(""));
    EXPECT_EQ(Changed(before, [](wchar16* out) { path2something(nullptr, out, 0); }), before);
    path2something(ZUTEXT("a"), nullptr, 10);
    path2something(nullptr, nullptr, 10);
}

}  // namespace
}  // namespace file_names_test
