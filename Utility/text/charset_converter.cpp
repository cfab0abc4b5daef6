#include <Utility/conversion.h>

#include <Utility/frame/instance_data.h>
#include <Utility/text/charset_maps.h>
#include <Utility/text/charset_table.h>

#include <array>
#include <new>

namespace Torvo {

namespace {

constexpr int32 slotCount = 10;

struct sConversionSlot {
    ZUCHARSET from = csUnknown;
    ZUCHARSET to = csUnknown;
    uint8 table[256];
};

// Which byte of a map means a unit: an open hash table, large enough to stay half empty with all bytes of a map in it.
// Byte 0 is never looked for and marks an empty place.
class ByteOfUnit {
public:
    // Byte 255 is left out. Bytes are entered from the first on, so that the lowest of several is kept.
    explicit ByteOfUnit(const uint16* map) {
        for (uint32 byte = 1; byte < 255; ++byte) {
            if (map[byte] < firstUnmapped) Insert(map[byte], static_cast<uint8>(byte));
        }
    }

    // The byte of the unit, 0 if there is none.
    uint8 Find(uint16 unit) const {
        uint32 place = PlaceOf(unit);
        while (bytes[place] != 0 && units[place] != unit) place = Next(place);
        return bytes[place];
    }

private:
    static constexpr uint32 size = 512;

    // The middle bits of a product with 2^16 divided by the golden ratio, which spreads runs of neighbouring units.
    static uint32 PlaceOf(uint16 unit) { return (uint32{unit} * 40503u >> 7) % size; }
    static uint32 Next(uint32 place) { return (place + 1) % size; }

    void Insert(uint16 unit, uint8 byte) {
        uint32 place = PlaceOf(unit);
        while (bytes[place] != 0) {
            if (units[place] == unit) return;
            place = Next(place);
        }
        units[place] = unit;
        bytes[place] = byte;
    }

    std::array<uint8, size> bytes{};
    std::array<uint16, size> units;  // of the places that are not empty
};

// Fills a re-coding table; the number of source bytes from 1 on without a mapping.
int BuildTable(const uint16* source, const uint16* target, uint8 unknown, uint8 (&table)[256]) {
    const ByteOfUnit byteOfUnit(target);
    int unmapped = 0;
    table[0] = unknown;
    for (uint32 byte = 1; byte < 256; ++byte) {
        const uint8 found = source[byte] < firstUnmapped ? byteOfUnit.Find(source[byte]) : uint8{0};
        table[byte] = found != 0 ? found : unknown;
        unmapped += found == 0 ? 1 : 0;
    }
    return unmapped;
}

class cCharsetConverterImpl final : public cCharsetConverter {
public:
    bool ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table) override;

private:
    sConversionSlot* Find(ZUCHARSET from, ZUCHARSET to);
    sConversionSlot& NextSlot();

    sConversionSlot slots[slotCount];
    int32 nextConversionSlot = -1;  // the slot written last
};

sConversionSlot* cCharsetConverterImpl::Find(ZUCHARSET from, ZUCHARSET to) {
    for (sConversionSlot& slot : slots) {
        if (slot.from == from && slot.to == to) return &slot;
    }
    return nullptr;
}

// The slots are overwritten in turn, with no regard to their use.
sConversionSlot& cCharsetConverterImpl::NextSlot() {
    nextConversionSlot = (nextConversionSlot + 1) % slotCount;
    return slots[nextConversionSlot];
}

bool cCharsetConverterImpl::ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table) {
    if (!IsStrConvertNecessary(from, to) || table == nullptr) return false;
    if (sConversionSlot* const known = Find(from, to)) {
        *table = known->table;
        return true;
    }
    const uint16* const source = sCharsetMapTable[from];
    const uint16* const target = sCharsetMapTable[to];
    if (source == nullptr || target == nullptr) return false;

    sConversionSlot& slot = NextSlot();
    const int count = BuildTable(source, target, CharsetUnknownCode(to), slot.table);
    slot.from = from;
    slot.to = to;
    if (unmapped != nullptr) *unmapped = count;
    *table = slot.table;
    return true;
}

}  // namespace

cCharsetConverter* cCharsetConverter::Create() {
    return new (std::nothrow) cCharsetConverterImpl;
}

cCharsetConverter* cCharsetConverter::Instance() {
    return ServiceInstance<cCharsetConverter, ServiceKey::CharsetConverter>();
}

bool cCharsetConverter::Instance(cCharsetConverter* service) {
    return SetServiceInstance<cCharsetConverter, ServiceKey::CharsetConverter>(service);
}

bool ConvertCharset(ZUCHARSET from, ZUCHARSET to, int* unmapped, unsigned char** table) {
    return cCharsetConverter::Instance()->ConvertCharset(from, to, unmapped, table);
}

}  // namespace Torvo
