// Key texts from random bytes through Compare, IsNormalized, Normalize and NormalizeInPlace of a Unicode normalizer,
// and texts from the same bytes through a table normalizer. Every text is a block of its exact size.
#include <Utility/memory_blocks.h>
#include <Utility/normalizers.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "require.h"

namespace {

using namespace Torvo;

using fuzz::Require;
using Text = std::vector<wchar16>;

// Bytes as text with its terminator; behind the mark where that is asked for.
Text TextOf(const std::uint8_t* data, std::size_t size, bool marked) {
    Text text(size / 2 + (marked ? 3 : 1), 0);
    if (marked) {
        text[0] = 0xBBEF;
        text[1] = 0xBABF;
    }
    if (size > 1) std::memcpy(text.data() + (marked ? 2 : 0), data, size / 2 * 2);
    text.shrink_to_fit();
    return text;
}

bool HasMark(const Text& text) {
    return text[0] == 0xBBEF && text[1] == 0xBABF;
}

// What comparing two key texts is: their bytes behind the mark, up to the first zero byte.
int PlainCompare(const Text& a, const Text& b) {
    const std::string left = reinterpret_cast<const char*>(a.data()) + 4;
    const std::string right = reinterpret_cast<const char*>(b.data()) + 4;
    const int difference = left.compare(right);
    return (difference > 0) - (difference < 0);
}

void CompareBoth(StringNormalizer& normalizer, const Text& a, const Text& b) {
    const int32 result = normalizer.Compare(a.data(), b.data());
    Require(result >= -1 && result <= 1, "-1, 0 or 1");
    Require(normalizer.Compare(b.data(), a.data()) == -result, "the other way round");
    Require(normalizer.Compare(a.data(), a.data()) == 0, "a text is its own equal");
    if (normalizer.IsNormalized(a.data()) && normalizer.IsNormalized(b.data())) {
        Require(result == PlainCompare(a, b), "key texts by their bytes");
    }
}

void NormalizeBoth(StringNormalizer& normalizer, const Text& text, std::size_t room) {
    wchar16* result = nullptr;
    if (normalizer.Normalize(text.data(), &result, nullptr)) {
        // Folding by table twice may go further than folding once.
        const bool isKey = normalizer.IsNormalized(result);
        Require(!isKey || normalizer.Compare(result, text.data()) == 0, "a key compares as its text");
        void* block = result;
        ffree_(&block);
    } else {
        Require(result == nullptr, "a refusal writes nothing");
    }
    Text place(std::max(text.size(), room), 0);
    std::copy(text.begin(), text.end(), place.begin());
    if (normalizer.NormalizeInPlace(place.data(), room) && !HasMark(text)) {
        Require(normalizer.GetCharset() != csUTF16 || normalizer.IsNormalized(place.data()), "a key, if a cut one");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) return 0;
    static StringNormalizer* const unicode[] = {GetNormalizer(csUTF16, 1, 0x0409), GetNormalizer(csUTF16, 0, 0x041D),
                                                GetNormalizer(csUTF16, 0, 0x0411)};
    static StringNormalizer* const tables[] = {GetNormalizer(csWindowsLatin1, 1298, 0),
                                               GetNormalizer(csWindowsJapanese, 40623, 0),
                                               GetNormalizer(csMacRoman, 44414, 0)};
    const std::size_t split = data[1] * (size - 4) / 255;
    const Text a = TextOf(data + 4, split, (data[0] & 1) != 0);
    const Text b = TextOf(data + 4 + split, size - 4 - split, (data[0] & 2) != 0);
    for (StringNormalizer* const normalizer : {unicode[data[2] % 3], tables[data[2] % 3]}) {
        CompareBoth(*normalizer, a, b);
        NormalizeBoth(*normalizer, a, data[3]);
    }
    return 0;
}
