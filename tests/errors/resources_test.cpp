#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/vtable_slot.h>

#include <fstream>
#include <set>
#include <thread>
#include <vector>

namespace resources_test {
namespace {

using namespace Torvo;
using test::DataPath;
using test::Wide;

wstring16 MissingText(const std::string& id) {
    return Wide("The string resource (" + id + ") could not be accessed.");
}

wstring16 longText(300, wchar16{'x'});
cStringTable::sStringTable rows[] = {
    {7, ZUTEXT("seven")},        {3, ZUTEXT("three")},   {-5, ZUTEXT("minus five")},
    {7, ZUTEXT("not this one")}, {58, ZUTEXT("own")},    {8, ZUTEXT("")},
    {9, longText.c_str()},       {0, ZUTEXT("the end")}, {10, ZUTEXT("never reached")},
};

TEST(StringTable, FindsTextsInAnyOrderAndTheFirstOfTwoEqual) {
    const cStringTable table(rows);
    EXPECT_EQ(wstring16(table[3]), ZUTEXT("three"));
    EXPECT_EQ(wstring16(table[7]), ZUTEXT("seven"));
    EXPECT_EQ(wstring16(table[-5]), ZUTEXT("minus five"));
    EXPECT_EQ(wstring16(table[8]), ZUTEXT(""));
}

TEST(StringTable, ARowWithoutATextEndsTheSearchForItsNumber) {
    cStringTable::sStringTable withoutText[] = {{3, nullptr}, {3, ZUTEXT("second")}, {0, nullptr}};
    EXPECT_EQ(wstring16(cStringTable(withoutText)[3]), MissingText("3"));
}

TEST(StringTable, EndsAtTheRowOfIdZeroWhichCannotBeLookedUp) {
    const cStringTable table(rows);
    EXPECT_EQ(wstring16(table[0]), MissingText("0"));
    EXPECT_EQ(wstring16(table[10]), MissingText("10"));
}

TEST(StringTable, CutsATextTo255Units) {
    const cStringTable table(rows);
    EXPECT_EQ(wstring16(table[9]), wstring16(255, wchar16{'x'}));
}

TEST(StringTable, OwnTextsComeBeforeTheLibrarysFixedOnes) {
    const cStringTable table(rows);
    EXPECT_EQ(wstring16(table[58]), ZUTEXT("own"));
    EXPECT_EQ(wstring16(table[59]), ZUTEXT("System Error"));
}

TEST(StringTable, WithoutATableTheFixedTextsRemain) {
    const cStringTable table;
    EXPECT_EQ(wstring16(table[58]), ZUTEXT("Internal Error: %u"));
    EXPECT_EQ(wstring16(table[59]), ZUTEXT("System Error"));
    EXPECT_EQ(wstring16(table[60]),
              ZUTEXT("Program cannot run because required resource was not found.  Executable file may be damaged."));
    EXPECT_EQ(wstring16(table[7]), MissingText("7"));
    EXPECT_EQ(wstring16(table[-2147483647 - 1]), MissingText("-2147483648"));
    EXPECT_EQ(wstring16(table[2147483647]), MissingText("2147483647"));
}

TEST(StringTable, SharesItsTableWithItsCopies) {
    const cStringTable table(rows);
    const cStringTable copy(table);  // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    const cStringTable::sStringTable* const shared = copy;
    EXPECT_EQ(shared, rows);
    EXPECT_EQ(static_cast<const cStringTable::sStringTable*>(cStringTable()), nullptr);
}

TEST(ResourceBuffers, TenAreHandedOutInTurnBeginningWithTheSecond) {
    std::thread([] {
        const cStringTable table(rows);
        std::vector<wchar16*> texts;
        for (int i = 0; i < 11; ++i) texts.push_back(table[3]);
        EXPECT_EQ(std::set<wchar16*>(texts.begin(), texts.end()).size(), 10u);
        EXPECT_EQ(texts[10], texts[0]);
        // Buffers lie in a row; the one that the ring begins with is the second, so the tenth is the first of all.
        EXPECT_EQ(texts[9] + 256, texts[0]);
        EXPECT_EQ(texts[0] + 256, texts[1]);
        InstanceData::Destroy(false, false);
    }).join();
}

TEST(ResourceBuffers, ATextStaysValidForTheNextNineLookUps) {
    const cStringTable table(rows);
    wchar16* const text = table[7];
    for (int i = 0; i < 9; ++i) table[3];
    EXPECT_EQ(wstring16(text), ZUTEXT("seven"));
    table[3];
    EXPECT_EQ(wstring16(text), ZUTEXT("three"));
}

TEST(ResourceBuffers, OperationsStandInTheirPublishedOrder) {
    EXPECT_EQ(test::SlotOf(&cStringResourceBuffers::GetNextBuffer), 2u);
    EXPECT_EQ(test::SlotOf(&cResourceHandle::operator[]), 2u);
}

// A service of a host that always hands out the same buffer.
class OneBuffer : public cStringResourceBuffers {
public:
    wchar16* GetNextBuffer() override { return buffer; }
    wchar16 buffer[256] = {};
};

TEST(ResourceBuffers, ServiceIsReplacedThroughItsSetter) {
    cStringResourceBuffers* const original = cStringResourceBuffers::Instance();
    OneBuffer own;
    EXPECT_TRUE(cStringResourceBuffers::Instance(&own));
    const cStringTable table(rows);
    EXPECT_EQ(table[7], own.buffer);
    EXPECT_EQ(wstring16(own.buffer), ZUTEXT("seven"));
    cStringResourceBuffers::Instance(original);
}

TEST(ResourceLibrary, GivesTheTextsOfItsStringTable) {
    const cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    EXPECT_EQ(wstring16(library[1]), ZUTEXT("one"));
    EXPECT_EQ(wstring16(library[15]), ZUTEXT("last of the first block"));
    EXPECT_EQ(wstring16(library[16]), ZUTEXT("first of the second block"));
    EXPECT_EQ(wstring16(library[17]), ZUTEXT("Za\u017C\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144"));
    EXPECT_EQ(wstring16(library[18]), ZUTEXT("\u65E5\u672C\u8A9E \U0001D11E"));
    EXPECT_EQ(wstring16(library[4000]), ZUTEXT("percent %d and ^0"));
    EXPECT_EQ(wstring16(library[65535]), ZUTEXT("the highest number"));
}

TEST(ResourceLibrary, CutsATextTo255Units) {
    const cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    const wstring16 text = library[300];
    EXPECT_EQ(text.size(), 255u);
    EXPECT_EQ(text.substr(250), ZUTEXT("01234"));
}

TEST(ResourceLibrary, FallsBackForWhatItDoesNotHold) {
    const cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    EXPECT_EQ(wstring16(library[2]), MissingText("2"));
    EXPECT_EQ(wstring16(library[0]), MissingText("0"));
    EXPECT_EQ(wstring16(library[12345]), MissingText("12345"));
    EXPECT_EQ(wstring16(library[60]).substr(0, 18), ZUTEXT("Program cannot run"));
}

// Which language is taken is the system's business; that one is taken is ours.
TEST(ResourceLibrary, GivesATextInOneOfItsLanguages) {
    const cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    const wstring16 text = library[5000];
    EXPECT_TRUE(text == ZUTEXT("deutsch") || text == ZUTEXT("english"));
}

TEST(ResourceLibrary, ThatCannotBeLoadedIsTriedAgainAtEachLookUp) {
    const std::string path = test::BuildPath("resource_library_test.dll");
    std::remove(path.c_str());
    const cResourceDLL library(Wide(path).c_str());
    EXPECT_EQ(wstring16(library[1]), MissingText("1"));
    EXPECT_EQ(wstring16(library[58]), ZUTEXT("Internal Error: %u"));
    {
        std::ifstream source(DataPath("strings.dll"), std::ios::binary);
        std::ofstream(path, std::ios::binary) << source.rdbuf();
    }
    EXPECT_EQ(wstring16(library[1]), ZUTEXT("one"));
}

TEST(ResourceLibrary, RefusesANullName) {
    EXPECT_THROW(cResourceDLL{nullptr}, cResourceDLL::eLoadError);
    cResourceDLL library;
    try {
        library.SetResource(nullptr);
        FAIL() << "not refused";
    } catch (cResourceDLL::eLoadError error) {
        EXPECT_EQ(error, 1);
    }
}

TEST(ResourceLibrary, ThatIsCutOffIsNotLoadedAndTriedAgain) {
    std::ifstream source(DataPath("strings.dll"), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(source), std::istreambuf_iterator<char>()};
    const std::string path = test::BuildPath("resource_library_cut_test.dll");
    for (const std::size_t length : {2u, 64u, 512u, 2048u}) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << whole.substr(0, length);
        cResourceDLL library(Wide(path).c_str());
        EXPECT_EQ(wstring16(library[1]), MissingText("1")) << length;
        library.SetResource(Wide(DataPath("strings.dll")).c_str());
        EXPECT_EQ(wstring16(library[1]), ZUTEXT("one")) << length;
    }
}

TEST(ResourceLibrary, WithoutANameHasNoTexts) {
    const cResourceDLL library;
    EXPECT_EQ(wstring16(library[1]), MissingText("1"));
}

TEST(ResourceLibrary, NameCanBeGivenLater) {
    cResourceDLL library(ZUTEXT("no_such_library_anywhere.dll"));
    EXPECT_EQ(wstring16(library[1]), MissingText("1"));
    library.SetResource(Wide(DataPath("strings.dll")).c_str());
    EXPECT_EQ(wstring16(library[1]), ZUTEXT("one"));
}

TEST(ResourceLibrary, AnotherNameHasNoEffectOnceLoaded) {
    cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    EXPECT_EQ(wstring16(library[1]), ZUTEXT("one"));
    library.SetResource(ZUTEXT("no_such_library_anywhere.dll"));
    EXPECT_EQ(wstring16(library[16]), ZUTEXT("first of the second block"));
}

TEST(ResourceLibrary, ANameThatIsTooLongFindsNothing) {
    wstring16 name = Wide(DataPath("strings.dll"));
    name.insert(name.rfind('/'), wstring16(300, wchar16{'/'}));
    const cResourceDLL library(name.c_str());
    EXPECT_EQ(wstring16(library[1]), MissingText("1"));
}

TEST(ResourceLibrary, CopyUsesTheSameModule) {
    // One reference each, since both objects free the module.
    const cResourceDLL keeper(Wide(DataPath("strings.dll")).c_str());
    keeper[1];
    const cResourceDLL second(Wide(DataPath("strings.dll")).c_str());
    second[1];
    const cResourceDLL copy(keeper);  // NOLINT(performance-unnecessary-copy-initialization): the copy is what is tested
    EXPECT_EQ(wstring16(copy[16]), ZUTEXT("first of the second block"));
}

}  // namespace
}  // namespace resources_test
