// Random texts whose parts meet: they are drawn from a short list of characters, so that searches find something.
#pragma once

#include <Utility/platform/types.h>

#include <random>
#include <vector>

namespace Torvo::test {

class RandomText {
public:
    RandomText(unsigned seed, std::vector<wstring16> drawnFrom) : engine(seed), characters(std::move(drawnFrom)) {}

    std::size_t Number(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine); }

    // At most `limit` characters.
    wstring16 Text(std::size_t limit) {
        wstring16 text;
        for (std::size_t left = Number(limit + 1); left > 0; --left) text += characters[Number(characters.size())];
        return text;
    }

private:
    std::mt19937 engine;
    std::vector<wstring16> characters;
};

// Letters, separators, marks, surrogate pairs, the halves of pairs alone, and units whose low byte is another
// character.
inline std::vector<wstring16> MixedCharacters() {
    return {ZUTEXT("a"),       ZUTEXT("b"),       ZUTEXT("A"),          ZUTEXT("/"),      ZUTEXT(" "),
            ZUTEXT(","),       ZUTEXT("B"),       ZUTEXT("\u0301"),     ZUTEXT("\u3099"), ZUTEXT("\u3042"),
            ZUTEXT("\u0141"),  ZUTEXT("\uFF82"),  ZUTEXT("\U0001F600"), ZUTEXT("\u3000"), ZUTEXT("\u0082"),
            {wchar16{0xD83D}}, {wchar16{0xDE00}}, ZUTEXT("\U0001D165")};
}

}  // namespace Torvo::test
