#include <Utility/memory_blocks.h>
#include <Utility/string_cache.h>
#include <Utility/strings.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/random.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace string_cache_test {
namespace {

using namespace Torvo;
using test::Wide;

constexpr uint64 mostBytes = 65500;

// A cache with the calls of a caller who always passes the same size.
class Cache {
public:
    explicit Cache(int recordSize = 0) : size(recordSize) {}
    ~Cache() {
        void* owned = block;
        ffree_(&owned);
    }
    Cache(const Cache&) = delete;
    Cache& operator=(const Cache&) = delete;

    uint64 Add(const wstring16& text, const char* record = nullptr, bool sorted = false) {
        return CacheString(&block, text.c_str(), record, size, sorted);
    }
    uint64 AddSorted(const wstring16& text) { return Add(text, nullptr, true); }

    // "text:record" of what a position gives; "" for no text.
    std::string At(uint64 position) {
        char record[16] = "????";
        wchar16 text[40] = ZUTEXT("untouched");
        GetCachedString(block, static_cast<uint32>(position), text, 40, record, size);
        return Shown(text, record);
    }
    std::string Ith(int index) {
        char record[16] = "????";
        wchar16 text[40] = ZUTEXT("untouched");
        const bool found = GetIthCachedString(block, index, text, 40, record, size);
        return found ? Shown(text, record) : "none" + Shown(text, record);
    }
    std::string Find(const wstring16& text) {
        char record[16] = "????";
        return GetCachedStructure(block, text.c_str(), record, size) ? record : std::string("none ") + record;
    }
    // All entries in their order, each with a blank behind it.
    std::string All() {
        std::string all;
        for (int index = 0; Ith(index).rfind("none", 0) != 0; ++index) all += Ith(index) + ' ';
        return all;
    }
    wchar16* block = nullptr;

private:
    std::string Shown(const wstring16& text, const std::string& record) const {
        const std::string narrow(text.begin(), text.end());
        return size > 0 && record != "????" ? narrow + ':' + record : narrow;
    }

    const int size;
};

TEST(StringCache, TheFirstEntryIsAtOne) {
    Cache cache(4);
    EXPECT_EQ(cache.Add(ZUTEXT("Alpha"), "aaa"), 1u);
    EXPECT_EQ(cache.At(1), "Alpha:aaa");
    EXPECT_EQ(cache.Add(ZUTEXT("Beta"), "bbb"), 1u + 4 + 6);
    EXPECT_EQ(cache.Add(ZUTEXT("Gamma"), "ccc"), 11u + 4 + 5);
    EXPECT_EQ(cache.All(), "Alpha:aaa Beta:bbb Gamma:ccc ");
}

TEST(StringCache, AKnownTextKeepsItsCaseAndTakesTheNewRecord) {
    Cache cache(4);
    cache.Add(ZUTEXT("Alpha"), "aaa");
    cache.Add(ZUTEXT("Beta"), "bbb");
    const uint64 bytes = memSize(cache.block);
    EXPECT_EQ(cache.Add(ZUTEXT("ALPHA"), "xxx"), 1u);
    EXPECT_EQ(cache.Add(ZUTEXT("alpha")), 1u) << "a null record changes nothing";
    EXPECT_EQ(cache.All(), "Alpha:xxx Beta:bbb ");
    EXPECT_EQ(memSize(cache.block), bytes);
}

// Position 0 is unused, records lie at the start of as many units as they have bytes, and a zero follows the room for
// one more record.
TEST(StringCache, TheLayoutIsFixed) {
    Cache cache(4);
    cache.Add(ZUTEXT("ab"), "123");
    EXPECT_GE(memSize(cache.block), 2u * (2 * 4 + 2) + 6);
    wstring16 expected(1 + 4 + 3 + 4 + 1, 0);
    std::memcpy(&expected[1], "123", 4);
    expected[5] = 'a';
    expected[6] = 'b';
    EXPECT_EQ(wstring16(cache.block, expected.size()), expected);

    cache.Add(ZUTEXT("c"), "456");
    EXPECT_GE(memSize(cache.block), 2u * (8 + 2 * 4 + 1 + 2));
    expected.resize(8 + 4 + 2 + 4 + 1);
    std::memcpy(&expected[8], "456", 4);
    expected[12] = 'c';
    EXPECT_EQ(wstring16(cache.block, expected.size()), expected);
}

TEST(StringCache, WithoutRecords) {
    Cache cache;
    EXPECT_EQ(cache.Add(ZUTEXT("b")), 1u);
    EXPECT_EQ(cache.Add(ZUTEXT("a")), 3u);
    EXPECT_EQ(cache.All(), "b a ");
    EXPECT_EQ(wstring16(cache.block, 6), (wstring16{0, 'b', 0, 'a', 0, 0}));
}

TEST(StringCache, SortedEntriesMoveUp) {
    Cache cache;
    EXPECT_EQ(cache.AddSorted(ZUTEXT("b")), 1u);
    EXPECT_EQ(cache.AddSorted(ZUTEXT("a")), 1u);
    EXPECT_EQ(cache.All(), "a b ");
    EXPECT_EQ(cache.AddSorted(ZUTEXT("C")), 5u);
    EXPECT_EQ(cache.AddSorted(ZUTEXT("bb")), 5u);
    EXPECT_EQ(cache.AddSorted(ZUTEXT("B")), 3u) << "known already";
    EXPECT_EQ(cache.All(), "a b bb C ");
}

TEST(StringCache, SortedWithRecords) {
    Cache cache(4);
    cache.Add(ZUTEXT("m"), "mmm", true);
    cache.Add(ZUTEXT("z"), "zzz", true);
    EXPECT_EQ(cache.Add(ZUTEXT("a"), "aaa", true), 1u);
    cache.Add(ZUTEXT("q"), "qqq", true);
    EXPECT_EQ(cache.All(), "a:aaa m:mmm q:qqq z:zzz ");
}

// The match is looked for behind the place where the text would be inserted, too.
TEST(StringCache, AMatchMayComeAfterTheInsertionPoint) {
    Cache cache;
    cache.Add(ZUTEXT("z"));
    cache.Add(ZUTEXT("m"));
    EXPECT_EQ(cache.AddSorted(ZUTEXT("M")), 3u);
    EXPECT_EQ(cache.AddSorted(ZUTEXT("n")), 1u);
    EXPECT_EQ(cache.All(), "n z m ");
}

TEST(StringCache, ANullRecordLeavesWhatStoodThere) {
    Cache cache(4);
    cache.Add(ZUTEXT("b"), "bbb");
    EXPECT_EQ(cache.Add(ZUTEXT("a"), nullptr, true), 1u);
    EXPECT_EQ(cache.All(), "a:bbb b:bbb ");
    // At the end the room for one more record is what stood there: zeros in a new block.
    EXPECT_EQ(cache.Add(ZUTEXT("c")), 13u);
    EXPECT_EQ(cache.All(), "a:bbb b:bbb c: ");

    Cache first(4);
    first.Add(ZUTEXT("x"));
    EXPECT_EQ(first.At(1), "x:");
}

TEST(StringCache, AnEmptyTextIsNotAdded) {
    Cache cache;
    cache.Add(ZUTEXT("a"));
    EXPECT_EQ(cache.Add(ZUTEXT("")), 0u);
    EXPECT_EQ(cache.All(), "a ");
}

TEST(StringCache, AnEmptyFirstTextIsNeverFound) {
    Cache cache(4);
    EXPECT_EQ(cache.Add(ZUTEXT(""), "eee"), 1u);
    ASSERT_NE(cache.block, nullptr);
    EXPECT_EQ(cache.Find(ZUTEXT("")), "none ????");
    EXPECT_EQ(cache.Ith(0), "none");
    EXPECT_EQ(cache.Add(ZUTEXT("")), 0u);
    EXPECT_EQ(cache.Add(ZUTEXT("a")), 1u) << "takes its place";
    EXPECT_EQ(cache.All(), "a:eee ");
}

TEST(StringCache, LooksUpWithoutCase) {
    Cache cache(4);
    EXPECT_EQ(cache.Find(ZUTEXT("Alpha")), "none ????") << "no cache yet";
    cache.Add(ZUTEXT("Alpha"), "aaa");
    cache.Add(ZUTEXT("Beta"), "bbb");
    EXPECT_EQ(cache.Find(ZUTEXT("BETA")), "bbb");
    EXPECT_EQ(cache.Find(ZUTEXT("alpha")), "aaa");
    EXPECT_EQ(cache.Find(ZUTEXT("alph")), "none ????");
    EXPECT_EQ(cache.Find(ZUTEXT("alphab")), "none ????");
    EXPECT_EQ(cache.Find(ZUTEXT("")), "none ????");
    EXPECT_TRUE(GetCachedStructure(cache.block, ZUTEXT("beta"), nullptr, 4));
}

TEST(StringCache, ReadsByPosition) {
    Cache cache(4);
    cache.Add(ZUTEXT("Alpha"), "aaa");
    const uint64 second = cache.Add(ZUTEXT("Beta"), "bbb");
    EXPECT_EQ(cache.At(second), "Beta:bbb");
    wchar16 text[4] = ZUTEXT("###");
    GetCachedString(cache.block, static_cast<uint32>(second), text, 3, nullptr, 4);
    EXPECT_EQ(wstring16(text, 4), (wstring16{'B', 'e', 0, 0})) << "cut to the size";
    wchar16 large[8] = ZUTEXT("#######");
    GetCachedString(cache.block, static_cast<uint32>(second), large, 7, nullptr, 4);
    EXPECT_EQ(wstring16(large, 8), (wstring16{'B', 'e', 't', 'a', 0, 0, 0, 0})) << "and cleared behind it";
}

TEST(StringCache, APositionBehindTheBlockGivesAnEmptyText) {
    Cache cache(4);
    EXPECT_EQ(cache.At(1), "") << "no cache yet";
    cache.Add(ZUTEXT("Alpha"), "aaa");
    const uint64 units = memSize(cache.block) / 2;
    for (const uint64 position : {units, units + 1, uint64{0x7FFFFFFF}, uint64{0x80000001}, uint64{0xFFFFFFFF}}) {
        EXPECT_EQ(cache.At(position), "") << position;
    }
}

// Whatever a position gives that is no entry's, it comes out of the block.
TEST(StringCache, PositionsThatAreNoEntryReadNothingElse) {
    Cache cache(12);
    cache.Add(ZUTEXT("Alpha"), "aaaaaaaaaaa");
    cache.Add(ZUTEXT("Beta"), "bbbbbbbbbbb");
    std::fill_n(cache.block, memSize(cache.block) / 2, wchar16{'x'});  // no terminator anywhere
    const auto units = static_cast<uint32>(memSize(cache.block) / 2);
    wchar16 text[200];
    char record[12];
    for (uint32 position = 0; position < units + 3; ++position) {
        GetCachedString(cache.block, position, text, 200, record, 12);
        const uint64 length = position + 12 < units ? units - position - 12 : 0;
        ASSERT_EQ(wstring16(text), wstring16(length, 'x')) << position;
    }
    GetCachedString(cache.block, 1, text, 0, record, 12);
    GetCachedString(cache.block, 1, text, -1, record, 12);
    GetCachedString(cache.block, 1, nullptr, 200, record, 12);
    EXPECT_FALSE(GetIthCachedString(cache.block, 1, text, 200, record, 12));
    cache.block[units - 1] = 0;
    EXPECT_FALSE(GetIthCachedString(cache.block, 1, text, 200, record, 12));
    EXPECT_TRUE(GetIthCachedString(cache.block, 0, text, 200, record, 12));
}

// All units of the block.
wstring16 Units(const Cache& cache) {
    return wstring16(cache.block, memSize(cache.block) / sizeof(wchar16));
}

TEST(StringCache, ABlockWithoutAnEndMarkIsNotLeft) {
    for (const int size : {0, 4}) {
        Cache cache(size);
        cache.Add(ZUTEXT("Alpha"));
        std::fill_n(cache.block, memSize(cache.block) / sizeof(wchar16), wchar16{'x'});
        const wstring16 before = Units(cache);
        EXPECT_FALSE(GetCachedStructure(cache.block, ZUTEXT("x"), nullptr, size));
        EXPECT_FALSE(GetCachedStructure(cache.block, ZUTEXT(""), nullptr, size));
        EXPECT_EQ(cache.Add(ZUTEXT("Beta")), 0u);
        EXPECT_EQ(cache.AddSorted(ZUTEXT("Beta")), 0u);
        EXPECT_EQ(Units(cache), before);
    }
}

TEST(StringCache, AnotherSizeReadsNothingOutsideTheBlock) {
    Cache cache(4);
    cache.Add(ZUTEXT("Alpha"), "aaa");
    cache.Add(ZUTEXT("Beta"), "bbb");
    const wstring16 before = Units(cache);
    for (const int size : {100, 10'000'000, std::numeric_limits<int>::max()}) {
        EXPECT_FALSE(GetCachedStructure(cache.block, ZUTEXT("Alpha"), nullptr, size)) << size;
        EXPECT_EQ(CacheString(&cache.block, ZUTEXT("Gamma"), nullptr, size, false), 0u) << size;
        EXPECT_EQ(CacheString(&cache.block, ZUTEXT("Alpha"), nullptr, size, true), 0u) << size;
        EXPECT_EQ(Units(cache), before) << size;
    }
    EXPECT_EQ(cache.All(), "Alpha:aaa Beta:bbb ");
}

// The heap may give it more than that byte, which then holds anything.
TEST(StringCache, ABlockOfOneByteHasNoEntries) {
    Cache cache;
    void* block = nullptr;
    ASSERT_TRUE(falloc_(1, &block, false, true));
    cache.block = static_cast<wchar16*>(block);
    std::memset(block, 'x', memSize(block));
    EXPECT_FALSE(GetCachedStructure(cache.block, ZUTEXT("a"), nullptr, 0));
    EXPECT_EQ(cache.Add(ZUTEXT("a")), 0u);
    EXPECT_EQ(cache.block, block);
}

TEST(StringCache, ANewEntryOutOfTheCacheItselfIsRefused) {
    Cache cache(4);
    cache.Add(ZUTEXT("Alpha"), "aaa");
    const wstring16 before = Units(cache);
    const wchar16* const text = cache.block + 1 + 4;
    EXPECT_EQ(CacheString(&cache.block, text + 1, "xxx", 4, false), 0u) << "lpha";
    EXPECT_EQ(CacheString(&cache.block, ZUTEXT("Beta"), cache.block + 1, 4, false), 0u);
    EXPECT_EQ(CacheString(&cache.block, ZUTEXT("Beta"), cache.block + before.size() - 2, 4, false), 0u);
    EXPECT_EQ(Units(cache), before);
    EXPECT_EQ(CacheString(&cache.block, text, cache.block + 1, 4, false), 1u) << "a known text may lie there";
    EXPECT_EQ(Units(cache), before);
}

TEST(StringCache, ReadsByIndex) {
    Cache cache(4);
    EXPECT_EQ(cache.Ith(0), "none");
    cache.Add(ZUTEXT("Alpha"), "aaa");
    cache.Add(ZUTEXT("Beta"), "bbb");
    EXPECT_EQ(cache.Ith(0), "Alpha:aaa");
    EXPECT_EQ(cache.Ith(1), "Beta:bbb");
    EXPECT_EQ(cache.Ith(2), "none");
    EXPECT_EQ(cache.Ith(3), "none");
    EXPECT_EQ(cache.Ith(2'000'000'000), "none");
    EXPECT_EQ(cache.Ith(-1), "none");
    wchar16 text[3];
    EXPECT_TRUE(GetIthCachedString(cache.block, 1, text, 3, nullptr, 4));
    EXPECT_EQ(wstring16(text), ZUTEXT("Be"));
}

TEST(StringCache, NegativeSizesAreRefused) {
    Cache cache(4);
    cache.Add(ZUTEXT("a"), "aaa");
    wchar16 text[8] = ZUTEXT("#");
    EXPECT_EQ(CacheString(&cache.block, ZUTEXT("b"), nullptr, -1, false), 0u);
    EXPECT_FALSE(GetCachedStructure(cache.block, ZUTEXT("a"), nullptr, -1));
    EXPECT_FALSE(GetIthCachedString(cache.block, 0, text, 8, nullptr, -1));
    GetCachedString(cache.block, 1, text, 8, nullptr, -1);
    EXPECT_EQ(wstring16(text), ZUTEXT(""));
    EXPECT_EQ(cache.All(), "a:aaa ");
}

// Names of 9 units take 10 each; at the end 1 unit for the mark.
TEST(StringCache, StopsGrowingAt65500Bytes) {
    Cache cache;
    const auto name = [](int number) { return Wide(std::to_string(100'000'000 + number)); };
    int added = 0;
    while (cache.Add(name(added)) != 0) ++added;
    EXPECT_EQ(added, 3274) << "the next would need 2 * (1 + 3275 * 10 + 1) bytes";
    EXPECT_EQ(cache.Add(name(added)), 0u);
    EXPECT_EQ(cache.Add(name(17)), 171u) << "known texts are still found";
    EXPECT_EQ(cache.Ith(3273), "100003273");
    EXPECT_EQ(cache.Ith(3274), "none");
    // What is left are 8 units: a name of 7 fits exactly, and nothing after it.
    EXPECT_EQ(cache.Add(ZUTEXT("12345678")), 0u);
    EXPECT_EQ(cache.Add(ZUTEXT("1234567")), 32741u) << "65,500 bytes exactly";
    EXPECT_EQ(cache.Add(ZUTEXT("x")), 0u);
    EXPECT_EQ(cache.Ith(3274), "1234567");
}

TEST(StringCache, TheFirstTextIsTakenWhateverItsLength) {
    Cache cache;
    const wstring16 text(mostBytes, 'x');
    EXPECT_EQ(cache.Add(text), 1u);
    EXPECT_EQ(cache.Add(text), 1u);
    EXPECT_EQ(cache.Add(ZUTEXT("a")), 0u);
}

TEST(StringCache, NullsAreRefused) {
    EXPECT_EQ(CacheString(nullptr, ZUTEXT("a"), nullptr, 0, false), 0u);
    Cache cache;
    EXPECT_EQ(CacheString(&cache.block, nullptr, nullptr, 0, false), 0u);
    EXPECT_EQ(cache.block, nullptr);
    wchar16 text[2] = ZUTEXT("#");
    EXPECT_FALSE(GetIthCachedString(nullptr, 0, text, 2, nullptr, 0));
    EXPECT_EQ(text[0], 0);
    EXPECT_FALSE(GetIthCachedString(nullptr, 0, nullptr, 2, nullptr, 0));
}

// Against a list of texts, each with a record of the text's own making.
TEST(StringCache, BehavesAsAListOfTexts) {
    test::Random random;
    SCOPED_TRACE(random.About());
    for (int round = 0; round < 60; ++round) {
        const bool sorted = round % 2 == 1;
        Cache cache(4);
        std::vector<std::pair<wstring16, std::string>> list;
        for (int i = 0; i < 60; ++i) {
            wstring16 text;
            for (int64 left = random.Between(1, 3); left > 0; --left) {
                text += ZUTEXT("abAB\u00E9\u00C9[`")[random.Between(0, 7)];
            }
            const std::string record = std::to_string(100 + i);
            const auto known = std::find_if(list.begin(), list.end(), [&](const auto& entry) {
                return zuStrICmp(entry.first.c_str(), text.c_str()) == 0;
            });
            auto place = list.end();
            if (known != list.end()) {
                known->second = record;
                place = known;
            } else {
                if (sorted) {
                    place = std::find_if(list.begin(), list.end(), [&](const auto& entry) {
                        return zuStrICmp(entry.first.c_str(), text.c_str()) > 0;
                    });
                }
                place = list.insert(place, {text, record});
            }
            uint64 position = 1;
            for (auto entry = list.begin(); entry != place; ++entry) position += 4 + entry->first.size() + 1;
            ASSERT_EQ(cache.Add(text, record.c_str(), sorted), position);
            ASSERT_EQ(cache.Find(text), record);
        }
        for (std::size_t i = 0; i < list.size(); ++i) {
            wchar16 text[8];
            char record[4];
            ASSERT_TRUE(GetIthCachedString(cache.block, static_cast<int>(i), text, 8, record, 4));
            ASSERT_EQ(wstring16(text), list[i].first);
            ASSERT_EQ(std::string(record), list[i].second);
        }
    }
}

}  // namespace
}  // namespace string_cache_test
