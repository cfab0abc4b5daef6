// Writes the character vectors of the system it runs on: character_units.txt and character_calls.txt, in the current
// directory. make_character_vectors beside it builds and runs it under Wine.
#include "character_vectors.h"

#include <fstream>

namespace {

void Write(const char* name, const Torvo::test::Lines& lines) {
    std::ofstream file(name, std::ios::binary);
    for (const std::string& line : lines) file << line << '\n';
}

}  // namespace

int main() {
    Write("character_units.txt", Torvo::test::UnitLines());
    Write("character_calls.txt", Torvo::test::CallLines());
}
