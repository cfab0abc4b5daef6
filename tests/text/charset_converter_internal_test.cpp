// Every table beside the plain way of making it: for each byte, a walk through the whole target map.
#include <Utility/conversion.h>
#include <Utility/text/charset_maps.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>

#include <cstring>
#include <memory>

namespace charset_converter_internal_test {
namespace {

using namespace Torvo;

struct PlainTable {
    unsigned char bytes[256];
    int unmapped = 0;
};

PlainTable Plain(int from, int to) {
    const uint16* const source = sCharsetMapTable[from];
    const uint16* const target = sCharsetMapTable[to];
    PlainTable table;
    table.bytes[0] = '_';
    for (int byte = 1; byte < 256; ++byte) {
        const uint16 unit = source[byte];
        int found = 0;
        for (int candidate = 1; unit < 0xF000 && found == 0 && candidate <= 254; ++candidate) {
            if (target[candidate] == unit) found = candidate;
        }
        if (found == 0) ++table.unmapped;
        table.bytes[byte] = found != 0 ? static_cast<unsigned char>(found) : '_';
    }
    return table;
}

TEST(RecodingTables, AreThoseOfThePlainScanForEveryPair) {
    const std::unique_ptr<cCharsetConverter> converter(cCharsetConverter::Create());
    int pairs = 0;
    for (int from = 0; from < charsetCount; ++from) {
        for (int to = 0; to < charsetCount; ++to) {
            int unmapped = -1;
            unsigned char* table = nullptr;
            const bool expected = from != to && sCharsetMapTable[from] != nullptr && sCharsetMapTable[to] != nullptr;
            ASSERT_EQ(
                converter->ConvertCharset(static_cast<ZUCHARSET>(from), static_cast<ZUCHARSET>(to), &unmapped, &table),
                expected);
            if (!expected) continue;
            const PlainTable plain = Plain(from, to);
            EXPECT_EQ(std::memcmp(table, plain.bytes, 256), 0) << from << " to " << to;
            EXPECT_EQ(unmapped, plain.unmapped) << from << " to " << to;
            ++pairs;
        }
    }
    EXPECT_EQ(pairs, 44 * 43);
}

TEST(CharsetConverterFailures, CreateGivesNull) {
    const int64 blocks = test::LiveBlocks();
    {
        const test::FailingHeap heap(1);
        EXPECT_EQ(cCharsetConverter::Create(), nullptr);
        EXPECT_TRUE(heap.Refused());
    }
    EXPECT_EQ(test::LiveBlocks(), blocks);
}

}  // namespace
}  // namespace charset_converter_internal_test
