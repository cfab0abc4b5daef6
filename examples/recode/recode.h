// Re-coding of texts between character sets with an account of what got lost.
//
// A text takes one of two roads. Where both sets have a code page, it becomes system text and leaves it again. Where
// both have a byte table, a re-coding table turns byte into byte. On both roads every single character is looked at,
// so that the account is exact: a character counts as kept only if reading what was written gives it back.
#pragma once

#include <Utility/charsets.h>

#include <cstdint>
#include <string>
#include <vector>

namespace recode {

enum class Road { Automatic, SystemText, Tables };

// Where something stands in the source: bytes from 0; lines, and characters of the line, from 1.
struct Place {
    std::uint64_t byte = 0;
    std::uint64_t line = 1;
    std::uint64_t character = 1;
};

// One kind of loss: the same character, or the same bytes, however often.
struct Loss {
    std::string what;  // "U+2019", or "byte 81" for bytes that mean nothing in the source's set
    std::uint64_t count = 0;
    Place first;
};

struct Result {
    std::string error;  // why nothing was done; empty if the text was re-coded
    Road road = Road::Automatic;
    std::string bytes;  // the text in the new set; a lost character is the set's "_", or U+FFFD in a Unicode set
    std::uint64_t units = 0;
    std::uint64_t characters = 0;  // code points; on the road of the tables, bytes and pairs of bytes
    std::uint64_t lost = 0;
    std::vector<Loss> losses;  // in the order of their first places
    bool markLeftOut = false;  // a byte-order mark, which a set that is not Unicode cannot hold
    bool comesBack = false;    // whether re-coding `bytes` again gives the source, byte for byte
};

// Whether a road exists between the two sets.
bool HasTextRoad(Torvo::ZUCHARSET from, Torvo::ZUCHARSET to);
bool HasTableRoad(Torvo::ZUCHARSET from, Torvo::ZUCHARSET to);
// Whether the set has a byte table, from which the tables of that road are made.
bool HasByteTable(Torvo::ZUCHARSET cs);

// Re-codes a whole text. Automatic takes system text where it can, else the tables.
Result Recode(const std::string& source, Torvo::ZUCHARSET from, Torvo::ZUCHARSET to, Road road = Road::Automatic);

// The name of a set in plain characters.
std::string NameOf(Torvo::ZUCHARSET cs);
// The set of such a name, or csUnknown.
Torvo::ZUCHARSET CharsetOf(const std::string& name);

}  // namespace recode
