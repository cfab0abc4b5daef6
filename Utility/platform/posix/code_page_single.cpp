// Pages with one byte to each character.
#include <Utility/platform/threads.h>

#include <algorithm>
#include <bit>

#include "code_page_conversions.h"
#include "code_page_encoder.h"
#include "code_page_lanes.h"

namespace Torvo::platform {

namespace {

// ---- bytes to units ----

void Translate(const CodePage& page, const uint8* source, wchar16* target, std::size_t count) {
    const wchar16* units = page.SingleUnits();
    for (std::size_t i = 0; i < count; ++i) target[i] = units[source[i]];
}

// Whether more than four of sixteen are foreign: the table alone is then quicker than the vector and the table.
bool AreMany(uint32 foreign) {
    for (int i = 0; i < 4; ++i) foreign &= foreign - 1;
    return foreign != 0;
}

void DecodeLanes(const CodePage& page, const LinearLanes& linear, const uint8* source, wchar16* target) {
    const __m128i bytes = LoadBytes(source);
    uint32 foreign = linear.Foreign(bytes);
    if (foreign == 0) return linear.Store(target, bytes);
    if (AreMany(foreign)) return Translate(page, source, target, Lanes);
    linear.Store(target, bytes);
    for (; foreign != 0; foreign &= foreign - 1) {
        const int lane = std::countr_zero(foreign);
        target[lane] = page.Single(source[lane]);
    }
}

bool HasRefused(const CodePage& page, ByteText source) {
    return std::any_of(source.text, source.text + source.size, [&](uint8 byte) { return page.IsRefused(byte); });
}

// ---- units to bytes ----

// What the vector road needs ahead of it where it does not take all of sixteen units, so that nothing it stores in
// excess stays: sixteen bytes of output are certain where 33 units follow, of which a mark may eat every second.
constexpr std::ptrdiff_t SourceAhead = 2 * Lanes + 1;

class SingleEncoder {
public:
    SingleEncoder(const CodePage& page, UnitText source, ByteTarget target, EncodeRules rules)
        : encoder_(page, rules),
          linear_(page.Linear()),
          at_(source.text),
          end_(source.text + source.size),
          to_(target.text),
          toEnd_(target.text + target.size) {}

    void Run() {
        // The unit behind the sixteen is looked at, too.
        while (end_ - at_ > LaneCount && toEnd_ - to_ >= LaneCount) EncodeLanes();
        EncodeEach(end_, toEnd_);
    }
    bool IsComplete() const { return at_ == end_; }
    bool UsedDefault() const { return encoder_.UsedDefault(); }
    const uint8* WrittenEnd() const { return to_; }

private:
    void EncodeEach(const wchar16* stop, const uint8* room) {
        while (at_ < stop && to_ != room) {
            if (encoder_.TakesTable()) EncodeByTable(stop, room);
            if (at_ < stop && to_ != room) *to_++ = static_cast<uint8>(encoder_.Next(at_, end_));
        }
    }
    // Up to the first unit that needs a closer look, or the last one. Places are kept in locals, since a byte that is
    // stored may be any byte of this object as far as is known.
    void EncodeByTable(const wchar16* stop, const uint8* room) {
        const CodePage::Codes codes = encoder_.UnitCodes();
        const bool composes = encoder_.Composes();
        const wchar16* const last = std::min(stop, end_ - 1);
        const wchar16* at = at_;
        uint8* to = to_;
        for (; at < last && to != room; ++at) {
            const uint16 code = codes[*at];
            if (code == NoCode || (composes && MayCombine(at[1]))) break;
            *to++ = static_cast<uint8>(code);
        }
        at_ = at;
        to_ = to;
    }

    void EncodeLanes() {
        const UnitLanes units = LoadUnits(at_);
        if (NonAscii(units) == 0) return CopyLanes(units);
        uint32 foreign = linear_.Foreign(units);
        const int whole = AreMany(foreign) ? 0 : WholeLanes(foreign);
        if (whole == 0 || (whole < LaneCount && end_ - at_ < SourceAhead)) return EncodeEach(at_ + Lanes, toEnd_);
        linear_.Store(to_, units);
        for (foreign &= (1u << whole) - 1; foreign != 0; foreign &= foreign - 1) {
            const int lane = std::countr_zero(foreign);
            to_[lane] = static_cast<uint8>(encoder_.CodeOrDefault(at_[lane]));
        }
        at_ += whole;
        to_ += whole;
    }
    // Sixteen units of ASCII, and what more of it is behind them. The last one stays if the unit behind it may combine;
    // the byte stored for it is overwritten then by what becomes of both.
    void CopyLanes(UnitLanes units) {
        StoreNarrowed(to_, units);
        const std::ptrdiff_t more = std::min(end_ - at_ - 1, toEnd_ - to_) - LaneCount;
        std::size_t count = Lanes + NarrowAscii(at_ + Lanes, to_ + Lanes, static_cast<std::size_t>(more));
        if (encoder_.Composes() && MayCombine(at_[count])) --count;
        at_ += count;
        to_ += count;
    }
    // How many of the sixteen units stand alone. A unit before a mark does not, and the mark itself neither.
    int WholeLanes(uint32 foreign) const {
        if (!encoder_.Composes()) return Lanes;
        for (; foreign != 0; foreign &= foreign - 1) {
            const int lane = std::countr_zero(foreign);
            if (MayCombine(at_[lane])) return std::max(lane - 1, 0);
        }
        return MayCombine(at_[Lanes]) ? Lanes - 1 : Lanes;
    }

    Encoder encoder_;
    const LinearLanes linear_;
    const wchar16* at_;
    const wchar16* end_;
    uint8* to_;
    uint8* toEnd_;
};

}  // namespace

Conversion DecodeSingle(const CodePage& page, ByteText source, UnitTarget target, bool strict) {
    if (strict && HasRefused(page, source)) return {0, ERROR_NO_UNICODE_TRANSLATION};
    if (target.text == nullptr) return {source.size, 0};
    const std::size_t count = std::min(source.size, target.size);
    const LinearLanes linear(page.Linear());
    std::size_t done = 0;
    while (count - done >= Lanes) {
        if (HighBytes(LoadBytes(source.text + done)) == 0) {
            done += WidenAscii(source.text + done, target.text + done, count - done);
        } else {
            DecodeLanes(page, linear, source.text + done, target.text + done);
            done += Lanes;
        }
    }
    Translate(page, source.text + done, target.text + done, count - done);
    return {count, count < source.size ? ERROR_INSUFFICIENT_BUFFER : 0};
}

Conversion EncodeSingle(const CodePage& page, UnitText source, ByteTarget target, EncodeRules rules,
                        bool& usedDefault) {
    if (target.text == nullptr) {
        Encoder encoder(page, rules);
        std::size_t count = 0;
        const wchar16* at = source.text;
        for (const wchar16* end = at + source.size; at != end; ++count) encoder.Next(at, end);
        usedDefault |= encoder.UsedDefault();
        return {count, 0};
    }
    SingleEncoder encoder(page, source, target, rules);
    encoder.Run();
    usedDefault |= encoder.UsedDefault();
    return {static_cast<std::size_t>(encoder.WrittenEnd() - target.text),
            encoder.IsComplete() ? 0 : ERROR_INSUFFICIENT_BUFFER};
}

}  // namespace Torvo::platform
