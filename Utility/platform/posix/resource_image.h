// The string table of a Windows resource library, read out of the file.
//
// The file is in the Portable Executable format (Microsoft, "PE Format"). The whole file is kept in memory, not mapped:
// a file that is cut while it is in use must not end the program. Every offset and count in it is checked before use,
// against the bytes that are really there.
#pragma once

#include <Utility/platform/types.h>

#include <span>
#include <string_view>
#include <vector>

namespace Torvo::platform {

class ResourceImage {
public:
    // Takes the bytes of a file. An image that is not one, or has no string table, holds no strings.
    explicit ResourceImage(std::vector<uint8> fileContent);
    ResourceImage(const ResourceImage&) = delete;
    ResourceImage& operator=(const ResourceImage&) = delete;

    // Whether the bytes begin as a Windows executable does.
    static bool HasSignature(std::span<const uint8> bytes);

    // Whether all of the image is there: its headers, and what its sections take from the file. The loader of the other
    // system loads no other.
    bool IsWhole() const { return isWhole; }

    // The units of string `id`, as they lie in the file: little-endian, two bytes each, `length` of them.
    struct String {
        const uint8* units;
        std::size_t length;
    };
    // String `id` in the language that suits a thread of the given locale best: neutral, the locale's own, its primary
    // language, English of the United States, else whichever comes first. Length 0 when there is none.
    String Find(uint16 id, uint32 locale) const;

private:
    using Bytes = std::span<const uint8>;

    bool ReadSections(Bytes header, std::size_t offset, std::size_t count);
    Bytes AtAddress(uint32 address, std::size_t size) const;
    Bytes StringBlock(uint16 block, uint32 locale) const;

    struct Section {
        uint32 address;
        uint32 size;
        uint32 fileOffset;
    };
    std::vector<uint8> content;
    std::vector<Section> sections;
    bool isWhole = false;
    Bytes resources;  // from the root of the resource directory to the end of its section
};

}  // namespace Torvo::platform
