// Pages in which a lead byte and a trail byte make one character.
#include <Utility/platform/threads.h>

#include <algorithm>

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

// Sixteen bytes of ASCII at once, as long as they come.
void CopyAscii(DoubleDecoder& decoder, UnitTarget target, std::size_t& count) {
    const std::size_t ascii =
        WidenAscii(decoder.At(), target.text + count, std::min(decoder.Left(), target.size - count));
    decoder.Skip(ascii);
    count += ascii;
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

// Up to the first unit that needs a closer look, the last one, or the last byte. Sixteen units of ASCII go at once.
void EncodeByTable(const Encoder& encoder, const wchar16*& from, const wchar16* end, ByteTarget target,
                   std::size_t& count) {
    const CodePage::Codes codes = encoder.UnitCodes();
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
        const wchar16 unit = decoder.Next();
        target.text[count++] = unit;
        if (unit < 0x80 && !decoder.IsDone() && *decoder.At() < 0x80) CopyAscii(decoder, target, count);
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
