#include <Utility/platform/posix/resource_image.h>

#include <algorithm>
#include <optional>

namespace Torvo::platform {

namespace {

using Bytes = std::span<const uint8>;

constexpr std::size_t SectionHeaderSize = 40;
constexpr std::size_t DirectoryHeaderSize = 16;
constexpr std::size_t DirectoryEntrySize = 8;
constexpr std::size_t DataEntrySize = 16;
constexpr uint32 StringTableType = 6;
constexpr uint32 SubdirectoryFlag = 0x80000000;
constexpr uint32 NameFlag = 0x80000000;
constexpr std::size_t StringsPerBlock = 16;
constexpr uint32 ResourceDirectoryIndex = 2;
constexpr uint16 Pe32Magic = 0x10B;
constexpr uint16 Pe32PlusMagic = 0x20B;

// Little-endian numbers; nothing beyond the end of the bytes.
std::optional<uint16> Read16(Bytes bytes, std::size_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < 2) return std::nullopt;
    return static_cast<uint16>(bytes[offset] | bytes[offset + 1] << 8);
}

std::optional<uint32> Read32(Bytes bytes, std::size_t offset) {
    const auto low = Read16(bytes, offset);
    const auto high = Read16(bytes, offset + 2);
    if (!low || !high) return std::nullopt;
    return *low | static_cast<uint32>(*high) << 16;
}

Bytes Tail(Bytes bytes, std::size_t offset) {
    return offset < bytes.size() ? bytes.subspan(offset) : Bytes{};
}

// One level of the resource directory: type, name or language. A directory that claims more entries than there are
// bytes has those that are there.
class Directory {
public:
    Directory(Bytes resources, std::size_t offset) : root(resources), entries(Tail(resources, offset)) {
        const auto named = Read16(entries, 12);
        const auto numbered = Read16(entries, 14);
        entries = Tail(entries, DirectoryHeaderSize);
        if (named && numbered) count = std::min(std::size_t{*named} + *numbered, entries.size() / DirectoryEntrySize);
    }

    std::size_t size() const { return count; }
    uint32 Id(std::size_t i) const { return *Read32(entries, i * DirectoryEntrySize); }
    uint32 Target(std::size_t i) const { return *Read32(entries, i * DirectoryEntrySize + 4); }

    // The entry with a number, not a name.
    std::optional<uint32> Find(uint32 id) const {
        if ((id & NameFlag) != 0) return std::nullopt;
        for (std::size_t i = 0; i < count; ++i) {
            if (Id(i) == id) return Target(i);
        }
        return std::nullopt;
    }

    // The directory below it; empty if there is none.
    Directory Below(uint32 id) const {
        const auto target = Find(id);
        if (!target || (*target & SubdirectoryFlag) == 0) return {{}, 0};
        return {root, *target & ~SubdirectoryFlag};
    }

private:
    Bytes root;
    Bytes entries;
    std::size_t count = 0;
};

constexpr uint32 PrimaryLanguage(uint32 language) {
    return language & 0x3FF;
}

}  // namespace

bool ResourceImage::HasSignature(Bytes bytes) {
    return bytes.size() >= 2 && bytes[0] == 'M' && bytes[1] == 'Z';
}

ResourceImage::ResourceImage(std::vector<uint8> fileContent) : content(std::move(fileContent)) {
    const Bytes file = content;
    if (!HasSignature(file)) return;
    const auto headerOffset = Read32(file, 0x3C);
    if (!headerOffset) return;
    const Bytes header = Tail(file, *headerOffset);
    if (Read32(header, 0) != uint32{0x00004550}) return;  // "PE", two zeros
    const auto sectionCount = Read16(header, 6);
    const auto optionalSize = Read16(header, 20);
    if (!sectionCount || !optionalSize) return;

    constexpr std::size_t optionalOffset = 24;
    const auto magic = Read16(header, optionalOffset);
    if (magic != Pe32Magic && magic != Pe32PlusMagic) return;
    isWhole = ReadSections(header, optionalOffset + *optionalSize, *sectionCount);
    const std::size_t directoriesOffset = optionalOffset + (magic == Pe32PlusMagic ? 112 : 96);
    const auto directoryCount = Read32(header, directoriesOffset - 4);
    const auto resourceAddress = Read32(header, directoriesOffset + ResourceDirectoryIndex * 8);
    if (!directoryCount || *directoryCount <= ResourceDirectoryIndex || !resourceAddress || *resourceAddress == 0)
        return;
    resources = AtAddress(*resourceAddress, 0);
}

// Takes the sections that the table names, as far as it goes; whether it and all of their bytes are in the file.
bool ResourceImage::ReadSections(Bytes header, std::size_t offset, std::size_t count) {
    bool complete = count > 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = offset + i * SectionHeaderSize;
        const auto address = Read32(header, at + 12);
        const auto size = Read32(header, at + 16);
        const auto fileOffset = Read32(header, at + 20);
        if (!address || !size || !fileOffset) return false;
        sections.push_back({*address, *size, *fileOffset});
        complete = complete && (*fileOffset == 0 || std::size_t{*fileOffset} + *size <= content.size());
    }
    return complete;
}

// What lies at an address of the loaded image: `size` bytes, or for a size of 0 all to the end of the section. Empty if
// the section or the file does not hold that much.
ResourceImage::Bytes ResourceImage::AtAddress(uint32 address, std::size_t size) const {
    for (const Section& section : sections) {
        if (address < section.address || address - section.address >= section.size) continue;
        const std::size_t inSection = address - section.address;
        const Bytes found = Tail(content, std::size_t{section.fileOffset} + inSection);
        const std::size_t available = std::min<std::size_t>(found.size(), section.size - inSection);
        if (size > available) return {};
        return found.first(size != 0 ? size : available);
    }
    return {};
}

// The block of sixteen strings under a number; empty if there is none.
ResourceImage::Bytes ResourceImage::StringBlock(uint16 block, uint32 locale) const {
    const Directory languages = Directory(resources, 0).Below(StringTableType).Below(block);
    if (languages.size() == 0) return {};
    std::optional<uint32> target;
    for (const uint32 language : {uint32{0}, locale & 0xFFFF, PrimaryLanguage(locale), uint32{0x409}}) {
        target = languages.Find(language);
        if (target) break;
    }
    const uint32 entryOffset = target.value_or(languages.Target(0));
    if ((entryOffset & SubdirectoryFlag) != 0) return {};
    const Bytes entry = Tail(resources, entryOffset);
    if (entry.size() < DataEntrySize) return {};
    const auto size = *Read32(entry, 4);
    return size != 0 ? AtAddress(*Read32(entry, 0), size) : Bytes{};
}

ResourceImage::String ResourceImage::Find(uint16 id, uint32 locale) const {
    Bytes block = StringBlock(static_cast<uint16>(id / StringsPerBlock + 1), locale);
    for (std::size_t i = 0;; ++i) {
        const auto length = Read16(block, 0);
        if (!length || block.size() - 2 < std::size_t{*length} * 2) return {nullptr, 0};
        if (i == id % StringsPerBlock) return {block.data() + 2, *length};
        block = block.subspan(2 + std::size_t{*length} * 2);
    }
}

}  // namespace Torvo::platform
