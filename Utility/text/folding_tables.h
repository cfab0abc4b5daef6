// The eleven folding tables, as data: what each of the 256 bytes of a charset folds to.
//
// A table is written as the rows of sixteen entries that differ from its lower half's rule and from the identity, each
// behind its first byte. Every byte of them is part of the table's code, by which folded text finds its table again, so
// none may ever change.
#pragma once

#include <Utility/platform/types.h>

#include <array>
#include <stdexcept>
#include <string_view>

namespace Torvo {

using FoldingBytes = std::array<uint8, 256>;

// The part that the tables have in common: every byte as it is, but a to z as A to Z.
consteval FoldingBytes FoldLetters() {
    FoldingBytes bytes{};
    for (uint32 byte = 0; byte < bytes.size(); ++byte) {
        const bool isSmall = byte >= 'a' && byte <= 'z';
        bytes[byte] = static_cast<uint8>(isSmall ? byte - 'a' + 'A' : byte);
    }
    return bytes;
}

// The same with the punctuation behind the capitals folded to one character, and that behind the small letters to
// another.
consteval FoldingBytes FoldLettersAndPunctuation() {
    FoldingBytes bytes = FoldLetters();
    for (uint32 byte = 0x5B; byte <= 0x60; ++byte) bytes[byte] = 0x5E;
    for (uint32 byte = 0x7B; byte <= 0x7F; ++byte) bytes[byte] = 0x7B;
    return bytes;
}

// Puts rows over a table: seventeen hexadecimal numbers each, the first of which is the byte that the row starts at. At
// compile time: a row that cannot be read does not compile.
consteval FoldingBytes WithRows(FoldingBytes bytes, std::string_view rows) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::size_t numberUnits = 3;
    constexpr std::size_t rowUnits = 17 * numberUnits;
    if (rows.size() % rowUnits != 0) throw std::invalid_argument("seventeen numbers in a row");
    uint32 at = 0;
    for (std::size_t start = 0; start < rows.size(); start += numberUnits) {
        const std::size_t high = digits.find(rows[start]);
        const std::size_t low = digits.find(rows[start + 1]);
        const bool endsRow = (start + numberUnits) % rowUnits == 0;
        if (high == digits.npos || low == digits.npos || rows[start + 2] != (endsRow ? ';' : ' ')) {
            throw std::invalid_argument("two hexadecimal digits");
        }
        const auto number = static_cast<uint8>(high * 16 + low);
        if (start % rowUnits == 0) {
            at = number;
        } else {
            bytes.at(at++) = number;
        }
    }
    return bytes;
}

// clang-format off

// 0. Any charset: a to z as A to Z, nothing else.
inline constexpr FoldingBytes anyFolding = FoldLetters();

// 1. WindowsLatin1 in general: accents removed.
inline constexpr FoldingBytes latin1Folding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 4F 8D 8E 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 4F 9D 9E 59;"
    "C0 41 41 41 41 41 41 41 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F 4F D7 4F 55 55 55 55 59 54 53;"
    "E0 41 41 41 41 41 41 41 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F 4F F7 4F 55 55 55 55 59 54 59;");

// 2. WindowsLatin2: accents removed.
inline constexpr FoldingBytes latin2Folding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 8C 54 5A 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 8C 54 5A 8F;"
    "A0 A0 FF F9 A3 A4 A5 A6 A7 A8 A9 53 AB AC AD AE AF;"
    "B0 B0 B1 FE A3 B4 B5 B6 B7 B8 A5 53 BB 4C FD 4C AF;"
    "C0 52 41 41 41 41 4C C6 43 43 45 CA 45 45 49 49 44;"
    "D0 44 D1 4E D3 4F 4F 4F D7 52 55 55 55 55 59 54 53;"
    "E0 52 41 41 41 41 4C C6 43 43 45 CA 45 45 49 49 44;"
    "F0 44 D1 4E D3 4F 4F 4F F7 52 55 55 55 55 59 54 FA;");

// 3. WindowsCyrillic: small letters as capitals.
inline constexpr FoldingBytes cyrillicFolding = WithRows(FoldLetters(),
    "80 80 81 22 81 22 85 86 87 88 89 8A 22 8C 8D 8E 8F;"
    "90 80 22 22 22 22 95 96 97 98 99 8A 22 8C 8D 8E 8F;"
    "A0 A0 A1 A1 A3 A4 C3 A6 A7 A8 A9 AA 22 AC AD AE AF;"
    "B0 B0 B1 B2 B2 C3 B5 B6 B7 A8 B9 AA 22 A3 BD BD AF;"
    "E0 C0 C1 C2 C3 C4 C5 C6 C7 C8 C9 CA CB CC CD CE CF;"
    "F0 D0 D1 D2 D3 D4 D5 D6 D7 D8 D9 DA DB DC DD DE DF;");

// 4. WindowsGreek: small letters as capitals, with or without tonos.
inline constexpr FoldingBytes greekFolding = WithRows(FoldLetters(),
    "80 80 81 22 83 22 85 86 87 88 89 8A 22 8C 8D 8E 8F;"
    "90 90 22 22 22 22 95 96 97 98 99 9A 22 9C 9D 9E 9F;"
    "A0 A0 A1 A2 A3 A4 A5 A6 A7 A8 A9 AA 22 AC AD AE AF;"
    "B0 B0 B1 32 33 B4 B5 B6 B7 B8 B9 BA 22 A2 BD BE BF;"
    "C0 BA A2 C2 C3 C4 B8 C6 B9 C8 BA CA CB CC CD CE A2;"
    "D0 D0 D1 D2 D3 D4 BE D6 D7 D8 BF BA BE A2 B8 B9 BA;"
    "E0 BE A2 C2 C3 C4 B8 C6 B9 C8 BA CA CB CC CD CE A2;"
    "F0 D0 D1 D3 D3 D4 BE D6 D7 D8 BF BA BE A2 BE BF FF;");

// 5. WindowsTurkish: accents removed.
inline constexpr FoldingBytes turkishFolding = WithRows(FoldLetters(),
    "80 80 81 22 83 22 85 86 87 88 89 8A 22 8C 8D 8E 8F;"
    "90 90 22 22 22 22 95 96 97 98 99 9A 22 8C 9D 9E 59;"
    "A0 A0 21 A2 A3 A4 A5 A6 A7 A8 A9 AA 22 AC AD AE AF;"
    "B0 B0 B1 32 33 B4 B5 B6 B7 B8 31 BA 22 BC BD BE 3F;"
    "C0 41 41 41 41 41 41 C6 43 45 45 45 45 49 49 49 49;"
    "D0 47 4E 4F 4F 4F 4F 4F D7 4F 55 55 55 55 49 53 53;"
    "E0 41 41 41 41 41 41 C6 43 45 45 45 45 49 49 49 49;"
    "F0 47 4E 4F 4F 4F 4F 4F F7 4F 55 55 55 55 49 53 59;");

// 6. WindowsLatin1, Danish and Norwegian order. Æ and Ä stand at C5, Ø and Ö at C6, Å at D8, which puts Æ, Ø, Å in this
// order behind Z; Ü counts as Y.
inline constexpr FoldingBytes danishFolding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 4F 8D 8E 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 9C 9D 9E 59;"
    "C0 41 41 41 41 C5 D8 C5 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F C6 D7 C6 55 55 55 59 59 54 53;"
    "E0 41 41 41 41 C5 D8 C5 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F C6 F7 C6 55 55 55 59 59 54 59;");

// 7. WindowsLatin1, Danish and Norwegian order in the national positions of the 7-bit set: Æ, Ø, Å at 5B, 5C, 5D.
inline constexpr FoldingBytes danishNationalFolding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 4F 8D 8E 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 4F 9D 9E 59;"
    "C0 41 41 41 41 41 5D 5B 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F 4F D7 5C 55 55 55 55 59 54 53;"
    "E0 41 41 41 41 41 5D 5B 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F 4F F7 5C 55 55 55 55 59 54 59;");

// 8. WindowsLatin1, Swedish and Finnish order. Å stands at C5, Ä and Æ at C6, Ö and Ø at D8, which puts Å, Ä, Ö in this
// order behind Z; Ü counts as Y.
inline constexpr FoldingBytes swedishFolding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 4F 8D 8E 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 9C 9D 9E 59;"
    "C0 41 41 41 41 C6 C5 C6 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F D8 D7 D8 55 55 55 59 59 54 53;"
    "E0 41 41 41 41 C6 C5 C6 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F D8 F7 D8 55 55 55 59 59 54 59;");

// 9. As the next one, and punctuation collapsed: the bytes between two letters' places all as the first of them.
inline constexpr FoldingBytes swedishCollapsedFolding = WithRows(FoldLettersAndPunctuation(),
    "80 7B 7B 7B 7B 7B 7B 7B 7B 7B 7B 53 8B 4F 8D 8D 8D;"
    "90 8D 8D 8D 8D 8D 8D 8D 8D 8D 8D 53 9B 4F 9D 9D 59;"
    "A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0;"
    "B0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0 A0;"
    "C0 41 41 41 41 5C 5B 41 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F 5D D7 4F 55 55 55 55 59 54 53;"
    "E0 41 41 41 41 5C 5B 41 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F 5D F7 4F 55 55 55 55 59 54 59;");

// 10. WindowsLatin1, Swedish and Finnish order in the national positions of the 7-bit set: Å, Ä, Ö at 5B, 5C, 5D; Æ as
// A and Ø as O.
inline constexpr FoldingBytes swedishNationalFolding = WithRows(FoldLetters(),
    "80 80 81 82 83 84 85 86 87 88 89 53 8B 4F 8D 8E 8F;"
    "90 90 91 92 93 94 95 96 97 98 99 53 9B 4F 9D 9E 59;"
    "C0 41 41 41 41 5C 5B 41 43 45 45 45 45 49 49 49 49;"
    "D0 44 4E 4F 4F 4F 4F 5D D7 4F 55 55 55 55 59 54 53;"
    "E0 41 41 41 41 5C 5B 41 43 45 45 45 45 49 49 49 49;"
    "F0 44 4E 4F 4F 4F 4F 5D F7 4F 55 55 55 55 59 54 59;");

// clang-format on

}  // namespace Torvo
