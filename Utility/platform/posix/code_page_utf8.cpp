// UTF-8. What is not well-formed becomes U+FFFD: one for each longest beginning of a sequence, and one for each other
// byte. Reading goes on at the first byte that does not belong to that beginning, at the end of the text as elsewhere.
#include <Utility/platform/threads.h>

#include <algorithm>
#include <bit>

#include "code_page_conversions.h"
#include "code_page_lanes.h"

namespace Torvo::platform {

namespace {

constexpr uint32 Replacement = 0xFFFD;

bool IsContinuation(uint8 byte) {
    return (byte & 0xC0) == 0x80;
}

bool IsHighSurrogate(uint32 unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool IsLowSurrogate(uint32 unit) {
    return (unit & 0xFC00) == 0xDC00;
}

// ---- bytes to units ----

struct Decoded {
    uint32 character;
    std::size_t size;
    bool valid;
};

constexpr Decoded Invalid(std::size_t size) {
    return {Replacement, size, false};
}

Decoded DecodeTwo(const uint8* at) {
    if (!IsContinuation(at[1])) return Invalid(1);
    return {(at[0] & 0x1Fu) << 6 | (at[1] & 0x3Fu), 2, true};
}

Decoded DecodeThree(const uint8* at) {
    if (!IsContinuation(at[1])) return Invalid(1);
    const uint32 high = (at[0] & 0x0Fu) << 6 | (at[1] & 0x3Fu);
    // Below U+0800 or a surrogate.
    if (high < 0x20 || (high & ~0x1Fu) == 0x360) return Invalid(2);
    if (!IsContinuation(at[2])) return Invalid(2);
    return {high << 6 | (at[2] & 0x3Fu), 3, true};
}

Decoded DecodeFour(const uint8* at) {
    if (!IsContinuation(at[1])) return Invalid(1);
    const uint32 high = (at[0] & 0x07u) << 6 | (at[1] & 0x3Fu);
    // Below U+10000 or above U+10FFFF.
    if (high < 0x10 || high > 0x10F) return Invalid(2);
    if (!IsContinuation(at[2])) return Invalid(2);
    if (!IsContinuation(at[3])) return Invalid(3);
    return {high << 12 | (at[2] & 0x3Fu) << 6 | (at[3] & 0x3Fu), 4, true};
}

constexpr std::size_t LongestSequence = 4;

// The character at `at`, which is not ASCII; as many bytes as the longest sequence has can be read.
Decoded DecodeWhole(const uint8* at) {
    const uint8 lead = at[0];
    if (lead < 0xC2 || lead > 0xF4) return Invalid(1);
    if (lead < 0xE0) return DecodeTwo(at);
    return lead < 0xF0 ? DecodeThree(at) : DecodeFour(at);
}

// The same; `left` bytes are left. Zeros behind the end continue no sequence, so none of them is taken.
Decoded DecodeNext(const uint8* at, std::size_t left) {
    if (left >= LongestSequence) return DecodeWhole(at);
    uint8 padded[LongestSequence] = {};
    std::copy_n(at, left, padded);
    return DecodeWhole(padded);
}

// What must be left so that sixteen units are certain to be made of it: three bytes may make one. And room for the two
// units of one character more.
constexpr std::ptrdiff_t BytesAhead = 3 * Lanes;
constexpr std::ptrdiff_t UnitsAhead = Lanes + 2;

// Places in source and target, in locals of each loop.
struct DecodeState {
    const uint8* at;
    wchar16* to;
    bool metInvalid;
};

// A character that is not ASCII; `room` is behind the target, which has room for one unit at least. False where only
// the first half of the character fits: the text is cut there.
bool DecodeOne(DecodeState& state, const uint8* end, const wchar16* room) {
    const Decoded next = DecodeNext(state.at, static_cast<std::size_t>(end - state.at));
    state.metInvalid |= !next.valid;
    if (next.character <= 0xFFFF) {
        *state.to++ = static_cast<wchar16>(next.character);
    } else {
        *state.to++ = static_cast<wchar16>(0xD7C0 + (next.character >> 10));
        if (state.to == room) return false;
        *state.to++ = static_cast<wchar16>(0xDC00 | (next.character & 0x3FF));
    }
    state.at += next.size;
    return true;
}

// The road for well-formed text of up to three bytes to a character, as long as there is enough ahead.
void DecodeAhead(DecodeState& state, const uint8* end, const wchar16* room) {
    const uint8* at = state.at;
    wchar16* to = state.to;
    while (end - at >= BytesAhead && room - to >= UnitsAhead) {
        const uint8 lead = at[0];
        if (lead < 0x80 && at[1] >= 0x80) {
            *to++ = lead;
            ++at;
        } else if (lead < 0x80) {
            const __m128i bytes = LoadBytes(at);
            const uint32 high = HighBytes(bytes);
            if (high == 0) {
                const std::size_t ascii = WidenAscii(at, to, static_cast<std::size_t>(std::min(end - at, room - to)));
                at += ascii;
                to += ascii;
                continue;
            }
            StoreWidened(to, bytes);
            const int ascii = std::countr_zero(high);
            at += ascii;
            to += ascii;
        } else if (lead >= 0xC2 && lead < 0xE0 && IsContinuation(at[1])) {
            *to++ = static_cast<wchar16>((lead & 0x1Fu) << 6 | (at[1] & 0x3Fu));
            at += 2;
        } else {
            // Subtraction makes a continuation byte its six bits, and everything else larger.
            const uint32 second = static_cast<uint8>(at[1] - 0x80u);
            const uint32 third = static_cast<uint8>(at[2] - 0x80u);
            const uint32 character = (lead & 0x0Fu) << 12 | (second & 0x3F) << 6 | (third & 0x3F);
            if ((lead & 0xF0) == 0xE0 && (second | third) < 0x40 && character >= 0x800 && character - 0xD800 >= 0x800) {
                *to++ = static_cast<wchar16>(character);
                at += 3;
            } else {
                state.at = at;
                state.to = to;
                DecodeOne(state, end, room);
                at = state.at;
                to = state.to;
            }
        }
    }
    state.at = at;
    state.to = to;
}

void DecodeRest(DecodeState& state, const uint8* end, const wchar16* room) {
    while (state.at != end && state.to != room) {
        if (*state.at < 0x80) {
            *state.to++ = *state.at++;
        } else if (!DecodeOne(state, end, room)) {
            return;
        }
    }
}

Conversion CountUnits(ByteText source, bool strict) {
    std::size_t count = 0;
    bool metInvalid = false;
    for (std::size_t i = 0; i < source.size;) {
        if (source.size - i >= Lanes && HighBytes(LoadBytes(source.text + i)) == 0) {
            i += Lanes;
            count += Lanes;
        } else if (source.text[i] < 0x80) {
            ++i;
            ++count;
        } else {
            const Decoded next = DecodeNext(source.text + i, source.size - i);
            metInvalid |= !next.valid;
            i += next.size;
            count += next.character > 0xFFFF ? 2 : 1;
        }
    }
    if (strict && metInvalid) return {0, ERROR_NO_UNICODE_TRANSLATION};
    return {count, 0};
}

// ---- units to bytes ----

// What the target must have left so that sixteen bytes are certain to be written: the last character may not fit.
constexpr std::ptrdiff_t RoomAhead = Lanes + LongestSequence;

struct Encoded {
    uint32 character;
    std::size_t units;
    bool valid;
};

// The character at `at`, which is not ASCII; `left` units are left.
Encoded CharacterAt(const wchar16* at, std::size_t left) {
    const uint32 unit = at[0];
    if (!IsHighSurrogate(unit) && !IsLowSurrogate(unit)) return {unit, 1, true};
    if (IsHighSurrogate(unit) && left > 1 && IsLowSurrogate(at[1])) {
        return {0x10000 + ((unit & 0x3FF) << 10 | (at[1] & 0x3FFu)), 2, true};
    }
    return {Replacement, 1, false};
}

std::ptrdiff_t SizeOf(uint32 character) {
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

uint8 Continuation(uint32 bits) {
    return static_cast<uint8>(0x80 | (bits & 0x3F));
}

struct EncodeState {
    const wchar16* at;
    uint8* to;
    bool metInvalid;
};

// The character at `state.at`; false where it does not fit.
bool EncodeOne(EncodeState& state, const wchar16* end, const uint8* room) {
    const Encoded next = CharacterAt(state.at, static_cast<std::size_t>(end - state.at));
    const uint32 character = next.character;
    const std::ptrdiff_t size = SizeOf(character);
    if (room - state.to < size) return false;
    state.metInvalid |= !next.valid;
    uint8* const to = state.to;
    switch (size) {
        case 1:
            to[0] = static_cast<uint8>(character);
            break;
        case 2:
            to[0] = static_cast<uint8>(0xC0 | character >> 6);
            break;
        case 3:
            to[0] = static_cast<uint8>(0xE0 | character >> 12);
            break;
        default:
            to[0] = static_cast<uint8>(0xF0 | character >> 18);
            break;
    }
    for (std::ptrdiff_t i = 1; i < size; ++i) to[i] = Continuation(character >> (size - 1 - i) * 6);
    state.to += size;
    state.at += next.units;
    return true;
}

// The road for text without surrogates, as long as there is enough ahead.
void EncodeAhead(EncodeState& state, const wchar16* end, const uint8* room) {
    const wchar16* at = state.at;
    uint8* to = state.to;
    while (end - at >= LaneCount && room - to >= RoomAhead) {
        const uint32 unit = at[0];
        if (unit < 0x80 && at[1] >= 0x80) {
            *to++ = static_cast<uint8>(unit);
            ++at;
        } else if (unit < 0x80) {
            const UnitLanes units = LoadUnits(at);
            const uint32 foreign = NonAscii(units);
            if (foreign == 0) {
                const std::size_t ascii = NarrowAscii(at, to, static_cast<std::size_t>(std::min(end - at, room - to)));
                at += ascii;
                to += ascii;
                continue;
            }
            StoreNarrowed(to, units);
            const int ascii = std::countr_zero(foreign);
            at += ascii;
            to += ascii;
        } else if (unit < 0x800) {
            to[0] = static_cast<uint8>(0xC0 | unit >> 6);
            to[1] = Continuation(unit);
            to += 2;
            ++at;
        } else if (unit - 0xD800 >= 0x800) {
            to[0] = static_cast<uint8>(0xE0 | unit >> 12);
            to[1] = Continuation(unit >> 6);
            to[2] = Continuation(unit);
            to += 3;
            ++at;
        } else {
            state.at = at;
            state.to = to;
            EncodeOne(state, end, room);
            at = state.at;
            to = state.to;
        }
    }
    state.at = at;
    state.to = to;
}

Conversion Finished(std::size_t count, bool complete, bool strict, bool metInvalid) {
    if (!complete) return {count, ERROR_INSUFFICIENT_BUFFER};
    return {count, strict && metInvalid ? ERROR_NO_UNICODE_TRANSLATION : 0};
}

}  // namespace

Conversion DecodeUtf8(ByteText source, UnitTarget target, bool strict) {
    if (target.text == nullptr) return CountUnits(source, strict);
    DecodeState state{source.text, target.text, false};
    const uint8* const end = source.text + source.size;
    DecodeAhead(state, end, target.text + target.size);
    DecodeRest(state, end, target.text + target.size);
    return Finished(static_cast<std::size_t>(state.to - target.text), state.at == end, strict, state.metInvalid);
}

Conversion EncodeUtf8(UnitText source, ByteTarget target, bool strict) {
    std::size_t count = 0;
    bool metInvalid = false;
    bool complete = true;
    if (target.text == nullptr) {
        for (std::size_t i = 0; i < source.size;) {
            const Encoded next = CharacterAt(source.text + i, source.size - i);
            metInvalid |= !next.valid;
            count += static_cast<std::size_t>(SizeOf(next.character));
            i += next.units;
        }
    } else {
        EncodeState state{source.text, target.text, false};
        const wchar16* const end = source.text + source.size;
        const uint8* const room = target.text + target.size;
        EncodeAhead(state, end, room);
        while (state.at != end && EncodeOne(state, end, room)) {
        }
        count = static_cast<std::size_t>(state.to - target.text);
        metInvalid = state.metInvalid;
        complete = state.at == end;
    }
    return Finished(count, complete, strict, metInvalid);
}

}  // namespace Torvo::platform
