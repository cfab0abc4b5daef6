// UTF-8. What is not well-formed becomes U+FFFD: one for each longest beginning of a sequence, one for each other byte,
// and one for all that is left where the text ends before a sequence could.
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

// The character at `at`, which is not ASCII; `left` bytes are left.
Decoded DecodeNext(const uint8* at, std::size_t left) {
    const uint8 lead = at[0];
    if (lead < 0xC2 || lead > 0xF4) return Invalid(1);
    if (lead < 0xE0) return left < 2 ? Invalid(left) : DecodeTwo(at);
    if (lead < 0xF0) return left < 3 ? Invalid(left) : DecodeThree(at);
    return left < 4 ? Invalid(left) : DecodeFour(at);
}

// What must be left so that sixteen units are certain to be made of it: three bytes may make one.
constexpr std::ptrdiff_t BytesAhead = 3 * Lanes;

class Utf8Decoder {
public:
    Utf8Decoder(ByteText source, UnitTarget target)
        : at_(source.text), end_(at_ + source.size), to_(target.text), toEnd_(to_ + target.size) {}

    void Run() {
        while (end_ - at_ >= BytesAhead && toEnd_ - to_ >= static_cast<std::ptrdiff_t>(Lanes)) DecodeLanes();
        while (at_ != end_ && to_ != toEnd_) DecodeOne();
    }
    bool IsComplete() const { return at_ == end_; }
    bool MetInvalid() const { return metInvalid_; }
    const wchar16* WrittenEnd() const { return to_; }

private:
    // The ASCII that comes first, then all up to the next ASCII.
    void DecodeLanes() {
        const __m128i bytes = LoadBytes(at_);
        StoreWidened(to_, bytes);
        const uint32 high = HighBytes(bytes);
        if (high == 0) {
            at_ += Lanes;
            to_ += Lanes;
            return;
        }
        const int ascii = std::countr_zero(high);
        at_ += ascii;
        to_ += ascii;
        const uint8* const stop = at_ + Lanes;
        do {
            DecodeOne();
        } while (at_ < stop && *at_ >= 0x80 && toEnd_ - to_ >= 2);
    }
    void DecodeOne() {
        if (*at_ < 0x80) {
            *to_++ = *at_++;
            return;
        }
        const Decoded next = DecodeNext(at_, static_cast<std::size_t>(end_ - at_));
        metInvalid_ |= !next.valid;
        if (next.character <= 0xFFFF) {
            *to_++ = static_cast<wchar16>(next.character);
        } else {
            *to_++ = static_cast<wchar16>(0xD7C0 + (next.character >> 10));
            // Where only the first half fits, the text is cut there.
            if (to_ == toEnd_) return;
            *to_++ = static_cast<wchar16>(0xDC00 | (next.character & 0x3FF));
        }
        at_ += next.size;
    }

    const uint8* at_;
    const uint8* end_;
    wchar16* to_;
    wchar16* toEnd_;
    bool metInvalid_ = false;
};

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

constexpr std::ptrdiff_t LongestSequence = 4;
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

class Utf8Encoder {
public:
    Utf8Encoder(UnitText source, ByteTarget target)
        : at_(source.text), end_(at_ + source.size), to_(target.text), toEnd_(to_ + target.size) {}

    void Run() {
        while (end_ - at_ >= static_cast<std::ptrdiff_t>(Lanes) && toEnd_ - to_ >= RoomAhead) EncodeLanes();
        while (at_ != end_ && EncodeOne()) {
        }
    }
    bool IsComplete() const { return at_ == end_; }
    bool MetInvalid() const { return metInvalid_; }
    const uint8* WrittenEnd() const { return to_; }

private:
    void EncodeLanes() {
        const UnitLanes units = LoadUnits(at_);
        StoreNarrowed(to_, units);
        const uint32 foreign = NonAscii(units);
        if (foreign == 0) {
            at_ += Lanes;
            to_ += Lanes;
            return;
        }
        const int ascii = std::countr_zero(foreign);
        at_ += ascii;
        to_ += ascii;
        while (at_ != end_ && *at_ >= 0x80 && EncodeOne()) {
        }
    }
    // False where the character does not fit.
    bool EncodeOne() {
        const uint32 unit = *at_;
        const std::ptrdiff_t room = toEnd_ - to_;
        if (unit < 0x80) {
            if (room < 1) return false;
            *to_++ = static_cast<uint8>(unit);
            ++at_;
            return true;
        }
        if (unit < 0x800) {
            if (room < 2) return false;
            to_[0] = static_cast<uint8>(0xC0 | unit >> 6);
            to_[1] = Continuation(unit);
            to_ += 2;
            ++at_;
            return true;
        }
        return EncodeLong(room);
    }
    bool EncodeLong(std::ptrdiff_t room) {
        const Encoded next = CharacterAt(at_, static_cast<std::size_t>(end_ - at_));
        const uint32 character = next.character;
        const std::ptrdiff_t size = SizeOf(character);
        if (room < size) return false;
        metInvalid_ |= !next.valid;
        if (size == 4) {
            to_[0] = static_cast<uint8>(0xF0 | character >> 18);
            to_[1] = Continuation(character >> 12);
        } else {
            to_[0] = static_cast<uint8>(0xE0 | character >> 12);
        }
        to_[size - 2] = Continuation(character >> 6);
        to_[size - 1] = Continuation(character);
        to_ += size;
        at_ += next.units;
        return true;
    }

    const wchar16* at_;
    const wchar16* end_;
    uint8* to_;
    uint8* toEnd_;
    bool metInvalid_ = false;
};

Conversion Finished(std::size_t count, bool complete, bool strict, bool metInvalid) {
    if (!complete) return {count, ERROR_INSUFFICIENT_BUFFER};
    return {count, strict && metInvalid ? ERROR_NO_UNICODE_TRANSLATION : 0};
}

}  // namespace

Conversion DecodeUtf8(ByteText source, UnitTarget target, bool strict) {
    if (target.text == nullptr) return CountUnits(source, strict);
    Utf8Decoder decoder(source, target);
    decoder.Run();
    return Finished(static_cast<std::size_t>(decoder.WrittenEnd() - target.text), decoder.IsComplete(), strict,
                    decoder.MetInvalid());
}

Conversion EncodeUtf8(UnitText source, ByteTarget target, bool strict, bool& usedDefault) {
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
        Utf8Encoder encoder(source, target);
        encoder.Run();
        count = static_cast<std::size_t>(encoder.WrittenEnd() - target.text);
        metInvalid = encoder.MetInvalid();
        complete = encoder.IsComplete();
    }
    usedDefault |= metInvalid && complete && !strict;
    return Finished(count, complete, strict, metInvalid);
}

}  // namespace Torvo::platform
