// The smallest metafiles of both forms: a header and the record that ends the drawing.
#pragma once

#include <Utility/platform/types.h>

#include <cstring>
#include <vector>

namespace Torvo::test {

using Bytes = std::vector<unsigned char>;

template <typename T>
void Put(Bytes& bytes, T value) {
    unsigned char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    for (const unsigned char byte : raw) bytes.push_back(byte);
}

// In memory: a header of nine words (type, header size, version, size, objects, largest record, parameters), then a
// record of three words with the function 0.
inline Bytes SmallMetaFile() {
    Bytes bytes;
    Put<uint16>(bytes, 1);
    Put<uint16>(bytes, 9);
    Put<uint16>(bytes, 0x300);
    Put<uint32>(bytes, 12);
    Put<uint16>(bytes, 0);
    Put<uint32>(bytes, 3);
    Put<uint16>(bytes, 0);
    Put<uint32>(bytes, 3);
    Put<uint16>(bytes, 0);
    return bytes;
}

// A header record of 88 bytes (type 1, bounds, frame, signature " EMF", version, sizes, device), then the record of
// type 14 that ends it.
inline Bytes SmallEnhMetaFile() {
    Bytes bytes;
    Put<uint32>(bytes, 1);
    Put<uint32>(bytes, 88);
    for (const int32 side : {0, 0, 9, 9, 0, 0, 300, 300}) Put<int32>(bytes, side);
    Put<uint32>(bytes, 0x464D4520);
    Put<uint32>(bytes, 0x10000);
    Put<uint32>(bytes, 108);                            // bytes of the whole
    Put<uint32>(bytes, 2);                              // records
    Put<uint16>(bytes, 1);                              // handles
    Put<uint16>(bytes, 0);                              // reserved
    for (int i = 0; i < 3; ++i) Put<uint32>(bytes, 0);  // no description, no palette
    for (const uint32 device : {1024u, 768u, 320u, 240u}) Put<uint32>(bytes, device);
    Put<uint32>(bytes, 14);
    Put<uint32>(bytes, 20);
    Put<uint32>(bytes, 0);
    Put<uint32>(bytes, 16);
    Put<uint32>(bytes, 20);
    return bytes;
}

}  // namespace Torvo::test
