#include <Utility/conversion.h>
#include <examples/recode/characters.h>

#include <algorithm>

namespace recode {

namespace {

using namespace Torvo;

constexpr wchar16 replacement = 0xFFFD;

// A few bytes as system text; empty if they are refused. A zero byte would look like the end of the text, so it goes
// its own way: it is the zero unit in every set.
wstring16 Decode(const std::string& bytes, ZUCHARSET cs) {
    const std::string zero(cs == csUTF16 ? 2 : 1, '\0');
    if (bytes == zero) return wstring16(1, 0);
    wchar16 units[9];
    const bool decoded = ConvertMBCSCharToSystem(bytes.data(), bytes.size(), cs, units, 8);
    return decoded ? wstring16(units) : wstring16();
}

// One character as bytes; empty if it is refused.
std::string Encode(const wstring16& units, ZUCHARSET cs) {
    if (units == wstring16(1, 0)) return std::string(cs == csUTF16 ? 2 : 1, '\0');
    char bytes[16];
    if (!ConvertSystemToMBCSChar(units.c_str(), bytes, cs, sizeof bytes, false)) return {};
    return cs == csUTF16 ? std::string(bytes, 2 * units.size()) : std::string(bytes);
}

bool IsHighSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(unsigned unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool IsOneCharacter(const wstring16& units) {
    return units.size() == 1 || (units.size() == 2 && IsHighSurrogate(units[0]) && IsLowSurrogate(units[1]));
}

}  // namespace

// How many bytes a character at this place may take at most.
std::size_t CharacterReader::LongestSequence(const std::string& source, std::size_t position) const {
    std::size_t longest = 1;
    const auto lead = static_cast<unsigned char>(source[position]);
    if (cs == csUTF16) {
        const bool highSurrogate =
            position + 1 < source.size() &&
            IsHighSurrogate(static_cast<unsigned>(static_cast<unsigned char>(source[position + 1])) << 8);
        longest = highSurrogate ? 4 : 2;
    } else if (cs == csUTF8) {
        longest = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    } else if (CharsetDBCS(cs)) {
        longest = 2;
    }
    return std::min(longest, source.size() - position);
}

// Takes the sequence as one character.
ReadCharacter CharacterReader::Try(const std::string& sequence) {
    const auto found = known.find(sequence);
    if (found != known.end()) return found->second;
    ReadCharacter character{Decode(sequence, cs), sequence.size(), false};
    character.exact = IsOneCharacter(character.units) && Encode(character.units, cs) == sequence;
    known.emplace(sequence, character);
    return character;
}

ReadCharacter CharacterReader::Read(const std::string& source, std::size_t position) {
    const std::size_t longest = LongestSequence(source, position);
    const std::size_t shortest = cs == csUTF16 ? std::min<std::size_t>(2, longest) : 1;
    for (std::size_t length = shortest; length <= longest; length += cs == csUTF16 ? 2 : 1) {
        // The first half of a pair of surrogates would pass for a character.
        if (cs == csUTF16 && length < longest && Try(source.substr(position, longest)).exact) continue;
        const ReadCharacter character = Try(source.substr(position, length));
        if (character.exact) return character;
    }
    // In a double-byte set a pair may mean a character that is written as another pair.
    if (CharsetDBCS(cs) && longest == 2) {
        const ReadCharacter pair = Try(source.substr(position, 2));
        if (pair.units.size() == 1 && pair.units[0] != replacement) return pair;
    }
    return {wstring16(1, replacement), 1, false};
}

const WrittenCharacter& CharacterWriter::Write(const wstring16& units) {
    const auto found = known.find(units);
    if (found != known.end()) return found->second;
    WrittenCharacter character{Encode(units, cs), true};
    if (Decode(character.bytes, cs) != units) {
        const std::string unknown = IsUnicodeCharset(cs) ? Encode(wstring16(1, replacement), cs)
                                                         : std::string(1, static_cast<char>(CharsetUnknownCode(cs)));
        character = {unknown, false};
    }
    return known.emplace(units, character).first->second;
}

}  // namespace recode
