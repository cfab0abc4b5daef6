// Pages in which a lead byte and a trail byte make one character.
#include <Utility/platform/threads.h>

#include <algorithm>
#include <iterator>

#include "code_page_conversions.h"
#include "code_page_encoder.h"
#include "code_page_lanes.h"

namespace Torvo::platform {

namespace {

// ---- bytes to units ----

class DoubleDecoder {
public:
    DoubleDecoder(const CodePage& page, ByteText source) : page_(page), at_(source.text), end_(at_ + source.size) {}

    bool IsDone() const { return at_ == end_; }
    bool MetRefused() const { return metRefused_; }
    std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }
    const uint8* At() const { return at_; }
    void Skip(std::size_t bytes) { at_ += bytes; }

    wchar16 Next() {
        const uint8 byte = *at_++;
        if (byte < 0x80) return byte;
        if (!page_.IsLead(byte)) {
            metRefused_ |= page_.IsRefused(byte);
            return page_.Single(byte);
        }
        // A zero is never taken for a trail byte, so that it still ends the text.
        if (at_ == end_ || *at_ == 0) return Refused();
        const wchar16 unit = page_.Pair(byte, *at_++);
        return unit != 0 ? unit : Refused();
    }

private:
    wchar16 Refused() {
        metRefused_ = true;
        return page_.DefaultUnit();
    }

    const CodePage& page_;
    const uint8* at_;
    const uint8* end_;
    bool metRefused_ = false;
};

// Up to the first byte that needs a closer look, the last one, or the last unit. Sixteen bytes of ASCII go at once.
// Places are kept in locals, so that they can be kept in registers.
void DecodeByTable(const CodePage& page, DoubleDecoder& decoder, UnitTarget target, std::size_t& count) {
    const uint8* at = decoder.At();
    const uint8* const last = at + decoder.Left() - 1;
    wchar16* to = target.text + count;
    const wchar16* const room = target.text + target.size;
    bool isPlain = true;
    while (isPlain && at < last && to != room) {
        // So many characters can be taken without a look at either end.
        for (std::ptrdiff_t left = std::min((last - at + 1) / 2, room - to); left > 0; --left) {
            if (const wchar16* const row = page.Row(*at); row != nullptr) {
                const wchar16 unit = CodePage::PairIn(row, at[1]);
                isPlain = unit != 0;
                if (!isPlain) break;
                *to++ = unit;
                at += 2;
                continue;
            }
            if ((*at | at[1]) < 0x80 && last - at >= LaneCount && room - to >= LaneCount) {
                const std::size_t ascii = WidenAscii(at, to, static_cast<std::size_t>(std::min(last - at, room - to)));
                at += ascii;
                to += ascii;
                if (ascii != 0) break;
            }
            *to++ = page.Single(*at++);
        }
    }
    decoder.Skip(static_cast<std::size_t>(at - decoder.At()));
    count = static_cast<std::size_t>(to - target.text);
}

Conversion CountUnits(const CodePage& page, ByteText source, bool strict) {
    DoubleDecoder decoder(page, source);
    std::size_t count = 0;
    for (; !decoder.IsDone(); ++count) decoder.Next();
    if (strict && decoder.MetRefused()) return {0, ERROR_NO_UNICODE_TRANSLATION};
    return {count, 0};
}

// ---- units to bytes ----

std::size_t SizeOf(uint16 code) {
    return code > 0xFF ? 2 : 1;
}

constexpr std::ptrdiff_t BlockCount = 8;

// Whether one of eight units lies in a range.
bool IsOneIn(UnitRange range, __m128i units) {
    const __m128i fromFirst = _mm_sub_epi16(units, _mm_set1_epi16(static_cast<short>(range.first)));
    const __m128i beyond = _mm_subs_epu16(fromFirst, _mm_set1_epi16(static_cast<short>(range.last - range.first)));
    return HighBytes(_mm_cmpeq_epi16(beyond, _mm_setzero_si128())) != 0;
}

// Ranges that hold every unit that may combine, and no other that text of East Asia is full of; and one that holds
// them, in which there is neither ASCII nor most of what has two bytes.
constexpr UnitRange nearCombining[] = {{0x0300, 0x0345}, {0x05B4, 0x1B35}, {0x3099, 0x309A}};
constexpr UnitRange aroundCombining = {std::begin(nearCombining)->first, std::end(nearCombining)[-1].last};
static_assert(std::all_of(std::begin(combiningUnits), std::end(combiningUnits), [](UnitRange range) {
    return std::any_of(std::begin(nearCombining), std::end(nearCombining),
                       [range](UnitRange wide) { return wide.first <= range.first && range.last <= wide.last; });
}));

// Whether one of eight units may combine.
bool MayOneCombine(const wchar16* units) {
    const __m128i lanes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
    return IsOneIn(aroundCombining, lanes) &&
           (IsOneIn(nearCombining[0], lanes) || IsOneIn(nearCombining[1], lanes) || IsOneIn(nearCombining[2], lanes));
}

// Eight units that all have two bytes; false, and nothing is written, if they do not.
bool EncodePairs(const uint16* codes, const wchar16* units, uint8* target) {
    const auto code = [=](int i) { return static_cast<short>(codes[units[i]]); };
    const __m128i lanes = _mm_setr_epi16(code(0), code(1), code(2), code(3), code(4), code(5), code(6), code(7));
    const __m128i leads = _mm_srli_epi16(lanes, 8);
    const __m128i isNoPair = _mm_or_si128(_mm_cmpeq_epi16(leads, _mm_setzero_si128()),
                                          _mm_cmpeq_epi16(lanes, _mm_set1_epi16(static_cast<short>(NoCode))));
    if (HighBytes(isNoPair) != 0) return false;
    _mm_storeu_si128(reinterpret_cast<__m128i*>(target), _mm_or_si128(leads, _mm_slli_epi16(lanes, 8)));
    return true;
}

// Up to eight units of one byte or two, until one has none; how many were taken. The first byte is stored where a lead
// byte would be, and the last one there or behind it, so that nothing depends on which of the two it is.
std::ptrdiff_t EncodeMixed(const uint16* codes, const wchar16* units, uint8*& target) {
    std::ptrdiff_t taken = 0;
    for (; taken != BlockCount; ++taken) {
        const uint16 code = codes[units[taken]];
        if (code == NoCode) break;
        const std::size_t isPair = code > 0xFF ? 1 : 0;
        target[0] = static_cast<uint8>(code >> 8);
        target[isPair] = static_cast<uint8>(code);
        target += 1 + isPair;
    }
    return taken;
}

bool HasAscii(const wchar16* units) {
    const __m128i lanes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units));
    const __m128i beyond = _mm_subs_epu16(lanes, _mm_set1_epi16(0x7F));
    return HighBytes(_mm_cmpeq_epi16(beyond, _mm_setzero_si128())) != 0;
}

// Up to eight units, if the table alone tells what they become; how many were taken. There are nine, and room for
// sixteen bytes.
std::ptrdiff_t EncodeBlock(const uint16* codes, bool composes, const wchar16* units, uint8*& target) {
    if (composes && MayOneCombine(units + 1)) return 0;
    if (!HasAscii(units) && EncodePairs(codes, units, target)) {
        target += 2 * BlockCount;
        return BlockCount;
    }
    return EncodeMixed(codes, units, target);
}

// Up to the first unit that needs a closer look, the last one, or the last byte. Sixteen units of ASCII go at once, and
// eight with two bytes each.
void EncodeByTable(const Encoder& encoder, const wchar16*& from, const wchar16* end, ByteTarget target,
                   std::size_t& count) {
    const uint16* const codes = encoder.WideCodes();
    const bool composes = encoder.Composes();
    const wchar16* at = from;
    uint8* to = target.text + count;
    const uint8* const room = target.text + target.size;
    while (end - at > 1 && room - to > 1) {
        if (at[0] < 0x80 && at[1] < 0x80 && end - at > LaneCount && room - to >= LaneCount) {
            const UnitLanes units = LoadUnits(at);
            if (NonAscii(units) == 0 && !(composes && MayCombine(at[Lanes]))) {
                StoreNarrowed(to, units);
                at += Lanes;
                to += Lanes;
                continue;
            }
        }
        if (end - at > BlockCount && room - to >= 2 * BlockCount) {
            const std::ptrdiff_t taken = EncodeBlock(codes, composes, at, to);
            at += taken;
            if (taken != 0) continue;
        }
        const uint16 code = codes[*at];
        if (code == NoCode || (composes && MayCombine(at[1]))) break;
        if (code > 0xFF) *to++ = static_cast<uint8>(code >> 8);
        *to++ = static_cast<uint8>(code);
        ++at;
    }
    from = at;
    count = static_cast<std::size_t>(to - target.text);
}

}  // namespace

Conversion DecodeDouble(const CodePage& page, ByteText source, UnitTarget target, bool strict) {
    if (strict || target.text == nullptr) {
        const Conversion counted = CountUnits(page, source, strict);
        if (counted.error != 0 || target.text == nullptr) return counted;
    }
    DoubleDecoder decoder(page, source);
    std::size_t count = 0;
    while (!decoder.IsDone() && count != target.size) {
        DecodeByTable(page, decoder, target, count);
        if (!decoder.IsDone() && count != target.size) target.text[count++] = decoder.Next();
    }
    return {count, decoder.IsDone() ? 0 : ERROR_INSUFFICIENT_BUFFER};
}

Conversion EncodeDouble(const CodePage& page, UnitText source, ByteTarget target, EncodeRules rules,
                        bool& usedDefault) {
    Encoder encoder(page, rules);
    std::size_t count = 0;
    uint32 error = 0;
    const wchar16* at = source.text;
    const wchar16* const end = at + source.size;
    if (target.text == nullptr) {
        while (at != end) count += SizeOf(encoder.Next(at, end));
        usedDefault |= encoder.UsedDefault();
        return {count, 0};
    }
    while (at != end && error == 0) {
        if (encoder.TakesTable()) EncodeByTable(encoder, at, end, target, count);
        // The next character is looked at only where a byte is left, as the default is then known to be needed.
        const uint16 code = count == target.size ? NoCode : encoder.Next(at, end);
        if (count == target.size || target.size - count < SizeOf(code)) {
            error = ERROR_INSUFFICIENT_BUFFER;
            break;
        }
        if (code > 0xFF) target.text[count++] = static_cast<uint8>(code >> 8);
        target.text[count++] = static_cast<uint8>(code);
    }
    usedDefault |= encoder.UsedDefault();
    return {count, error};
}

}  // namespace Torvo::platform
