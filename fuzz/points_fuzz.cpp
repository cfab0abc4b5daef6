// ParsePoints, compared with its plain form. The first bytes choose the separators and the length, the rest is the
// text, a copy of its exact size, so that a read too far is seen.
#include <algorithm>
#include <cstring>
#include <memory>

#include "operation_stream.h"
#include "reference/plain_point_parser.h"
#include "require.h"

using namespace Torvo;
using fuzz::Require;

namespace {

// What a unit of text may be: numbers and separators for the most part, and some units beyond ASCII.
constexpr wchar16 kUnits[] = {'0', '1', '2',    '5',    '9',    '.',    '-',    '+',    'e',  'E',  'd',
                              'x', 'n', 'a',    'i',    'f',    ',',    ';',    ' ',    '\t', '\n', '\r',
                              '|', ':', 0x00B7, 0x0101, 0x0661, 0x3001, 0xD83D, 0xFF11, 'p',  '('};

wchar16 UnitOf(uint32 byte) {
    return byte < 0x80 && byte >= 0x20 ? static_cast<wchar16>(byte) : kUnits[byte % std::size(kUnits)];
}

wstring16 ReadSet(fuzz::OperationStream& stream) {
    wstring16 set;
    for (uint32 count = stream.Byte() % 4; count > 0; --count) set += UnitOf(stream.Byte());
    return set;
}

bool SameBits(const DPNT& a, const DPNT& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    fuzz::OperationStream stream(data, size);
    const wstring16 coordinate = ReadSet(stream);
    const wstring16 point = ReadSet(stream);
    const uint32 choice = stream.Byte();
    const bool addWhitespace = (choice & 1) != 0;
    wstring16 units;
    while (!stream.AtEnd()) units += UnitOf(stream.Byte());
    const auto text = std::make_unique<wchar16[]>(units.size() + 1);
    std::copy(units.begin(), units.end(), text.get());
    // Mostly the text's own length, else a shorter or a slightly longer one.
    const uint64 length = (choice & 6) != 0 ? units.size() : (choice >> 3) % (units.size() + 2);

    const std::unique_ptr<DPNTContainer> container(DPNTContainer::Create(0, 1));
    const std::unique_ptr<PointParserFactory> parser(
        PointParserFactory::Create(container.get(), coordinate.c_str(), point.c_str(), addWhitespace));
    test::PlainPointParser plain(coordinate, point, addWhitespace);
    // Once afresh, and once more behind that.
    for (const bool reset : {true, false}) {
        Require(parser->ParsePoints(text.get(), length, reset) == plain.ParsePoints(text.get(), length, reset));
        uint64 count = 0;
        const DPNT* const points = container->GetPoints(count);
        Require(count == plain.points.size());
        Require(std::equal(plain.points.begin(), plain.points.end(), points, SameBits));
    }
    return 0;
}
