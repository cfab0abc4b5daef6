// Reading and writing of single characters in a set that has a code page.
#pragma once

#include <Utility/charsets.h>

#include <string>
#include <unordered_map>

namespace recode {

using Torvo::wchar16;
using Torvo::wstring16;

// One character, or one byte that means nothing.
struct ReadCharacter {
    wstring16 units;    // U+FFFD for a byte that means nothing
    std::size_t bytes;  // how many it took
    bool exact;         // whether writing it gives those bytes again
};

// Reads the characters of a set one after the other.
class CharacterReader {
public:
    explicit CharacterReader(Torvo::ZUCHARSET set) : cs(set) {}
    // The character at `position`, which is inside the source.
    ReadCharacter Read(const std::string& source, std::size_t position);

private:
    ReadCharacter Try(const std::string& sequence);
    std::size_t LongestSequence(const std::string& source, std::size_t position) const;

    const Torvo::ZUCHARSET cs;
    std::unordered_map<std::string, ReadCharacter> known;  // each sequence is asked of the library once
};

struct WrittenCharacter {
    std::string bytes;  // the unknown code if the set does not hold the character
    bool exact;
};

// Writes characters in a set one after the other.
class CharacterWriter {
public:
    explicit CharacterWriter(Torvo::ZUCHARSET set) : cs(set) {}
    const WrittenCharacter& Write(const wstring16& units);

private:
    const Torvo::ZUCHARSET cs;
    std::unordered_map<wstring16, WrittenCharacter> known;
};

}  // namespace recode
