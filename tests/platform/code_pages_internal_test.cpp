// The four code-page calls against what they answer on Windows, as far as Wine stands for it: see docs/code_pages.md.
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>
#include <golden/code_page_probe.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace platform_code_pages_internal_test {
namespace {

using namespace Torvo;

std::vector<std::string> ReadLines(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && !line.starts_with("#")) lines.push_back(line);
    }
    return lines;
}

TEST(CodePages, AnswerWhatTheGoldenVectorsSay) {
    const std::vector<std::string> expected = ReadLines(Torvo::test::SourcePath("tests/golden/code_page_vectors.txt"));
    ASSERT_GT(expected.size(), 2000u);
    const std::vector<std::string> lines = ReadLines(Torvo::test::SourcePath("tests/golden/code_page_differences.txt"));
    std::set<std::string> listed(lines.begin(), lines.end());
    EXPECT_EQ(listed.size(), lines.size()) << "a difference is listed twice";
    std::size_t number = 0;
    int differences = 0;
    std::string page;
    code_page_probe::WriteCodePageVectors([&](const std::string& line) {
        if (line.starts_with("page ")) page = line.substr(0, line.find(" default"));
        const std::string wanted = number < expected.size() ? expected[number] : "nothing";
        ++number;
        if (line == wanted || listed.erase(line) == 1) return;
        if (++differences <= 20) ADD_FAILURE() << "line " << number << ", " << page << "\n" << line << "\n" << wanted;
    });
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(number, expected.size());
    // Where the system converts, some or all of them may be met.
    if (TORVO_OWN_CODE_PAGES) {
        EXPECT_TRUE(listed.empty()) << listed.size() << " listed differences are none, as\n" << *listed.begin();
    }
}

// ---- whole texts against the same text taken piece by piece ----

using Units = std::vector<wchar16>;
using Bytes = std::vector<char>;

constexpr uint32 AllPages[] = {28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599, 1250, 1251,
                               1252,  1253,  1254,  1255,  1256,  1257,  1258,  874,   437,   720,  737,
                               775,   850,   852,   855,   857,   860,   861,   862,   863,   864,  865,
                               866,   869,   20127, 932,   936,   949,   950,   65001};

// A small generator, so that a failure can be repeated from its seed on every system.
class Random {
public:
    explicit Random(uint64 seed) : state_(seed * 2 + 1) {}
    uint32 Below(uint32 limit) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<uint32>(state_ >> 33) % limit;
    }

private:
    uint64 state_;
};

// Blocks that end exactly where the text ends, so that a sanitizer sees one step too far.
template <typename Unit>
std::unique_ptr<Unit[]> ExactCopy(const std::vector<Unit>& text) {
    std::unique_ptr<Unit[]> copy(new Unit[text.size()]);
    std::copy(text.begin(), text.end(), copy.get());
    return copy;
}

struct Decoded {
    int result;
    uint32 error;
    Units written;
};

constexpr wchar16 Untouched = 0x5A5A;

Decoded Decode(uint32 page, const Bytes& source, std::size_t size) {
    const auto text = ExactCopy(source);
    const auto target = ExactCopy(Units(size, Untouched));
    platform::SetLastError(0);
    const int result = platform::MultiByteToWideChar(page, 0, text.get(), static_cast<int>(source.size()), target.get(),
                                                     static_cast<int>(size));
    return {result, platform::GetLastError(), Units(target.get(), target.get() + size)};
}

struct Encoded {
    int result;
    uint32 error;
    Bytes written;
};

constexpr char UntouchedByte = '\x5A';

Encoded Encode(uint32 page, uint32 flags, const Units& source, std::size_t size) {
    const auto text = ExactCopy(source);
    const auto target = ExactCopy(Bytes(size, UntouchedByte));
    platform::SetLastError(0);
    const int result =
        platform::WideCharToMultiByte(page, page == CP_UTF8 ? 0 : flags, text.get(), static_cast<int>(source.size()),
                                      target.get(), static_cast<int>(size), page == CP_UTF8 ? nullptr : "_", nullptr);
    return {result, platform::GetLastError(), Bytes(target.get(), target.get() + size)};
}

// How many units at `at` make one character in a page: what the vectors prove for texts of one and two units.
std::size_t UnitsOfCharacter(uint32 page, uint32 flags, const Units& text, std::size_t at) {
    if (at + 1 == text.size()) return 1;
    const Units pair{text[at], text[at + 1]};
    if (page == CP_UTF8) return (pair[0] & 0xFC00) == 0xD800 && (pair[1] & 0xFC00) == 0xDC00 ? 2 : 1;
    if (flags == 0) return 1;
    const Encoded whole = Encode(page, flags, pair, 8);
    const Encoded apart = Encode(page, 0, pair, 8);
    return whole.written != apart.written ? 2 : 1;
}

// What must come out of a text, character by character, for a target of a size.
Encoded PlainEncode(uint32 page, uint32 flags, const Units& text, std::size_t size) {
    Encoded plain{0, 0, Bytes(size, UntouchedByte)};
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t units = UnitsOfCharacter(page, flags, text, at);
        const auto from = text.begin() + static_cast<std::ptrdiff_t>(at);
        const Encoded character = Encode(page, flags, Units(from, from + static_cast<std::ptrdiff_t>(units)), 8);
        if (count + static_cast<std::size_t>(character.result) > size)
            return {0, ERROR_INSUFFICIENT_BUFFER, plain.written};
        std::copy_n(character.written.begin(), character.result,
                    plain.written.begin() + static_cast<std::ptrdiff_t>(count));
        count += static_cast<std::size_t>(character.result);
        at += units;
    }
    plain.result = static_cast<int>(count);
    return plain;
}

wchar16 RandomUnit(Random& random, uint32 kind) {
    static constexpr wchar16 specials[] = {0x20AC, 0x2019, 0x301, 0x308, 0x323, 0x3099, 0xD83D, 0xDE00, 0x100,
                                           0x80,   0x9F,   0xA0,  0xFF,  0x7F,  0xFFFF, 0x304B, 0xFF21, 0x345};
    switch (kind) {
        case 0:
            return static_cast<wchar16>(0x20 + random.Below(0x5F));
        case 1:
            return static_cast<wchar16>(0xA0 + random.Below(0x60));
        case 2:
            return specials[random.Below(std::size(specials))];
        case 3:
            return static_cast<wchar16>(0x390 + random.Below(0x100));
        case 4:
            return static_cast<wchar16>(0x4E00 + random.Below(0x5000));
        case 5:
            return static_cast<wchar16>(0xAC00 + random.Below(0x2BA4));
        default:
            return static_cast<wchar16>(random.Below(0x10000));
    }
}

// Runs of one kind, mostly long enough for a vector, with single units of another kind between.
Units RandomText(Random& random, std::size_t length) {
    Units text;
    while (text.size() < length) {
        const uint32 kind = random.Below(7);
        for (uint32 run = random.Below(random.Below(2) == 0 ? 4 : 40); run != 0 && text.size() < length; --run) {
            text.push_back(RandomUnit(random, random.Below(12) == 0 ? 2 : kind));
        }
    }
    return text;
}

TEST(CodePages, EncodeWholeTextsAsTheirCharacters) {
    for (const uint32 page : AllPages) {
        for (const uint32 flags : {uint32{0}, uint32{WC_COMPOSITECHECK}}) {
            for (uint64 seed = 0; seed < 12; ++seed) {
                Random random(seed);
                const Units text = RandomText(random, 1 + random.Below(120));
                const std::size_t needed = static_cast<std::size_t>(PlainEncode(page, flags, text, 600).result);
                EXPECT_EQ(Encode(page, flags, text, 0).result, static_cast<int>(needed)) << page << " seed " << seed;
                for (const std::size_t size : {needed / 2, needed - 1, needed, needed + 1, needed + 40}) {
                    if (size == 0) continue;
                    const Encoded plain = PlainEncode(page, flags, text, size);
                    const Encoded whole = Encode(page, flags, text, size);
                    ASSERT_EQ(whole.result, plain.result)
                        << page << " flags " << flags << " seed " << seed << " size " << size;
                    ASSERT_EQ(whole.error, plain.error)
                        << page << " flags " << flags << " seed " << seed << " size " << size;
                    ASSERT_EQ(whole.written, plain.written)
                        << page << " flags " << flags << " seed " << seed << " size " << size;
                }
            }
        }
    }
}

void ExpectEncodedAsItsCharacters(uint32 page, const Units& text) {
    const std::size_t needed = static_cast<std::size_t>(PlainEncode(page, WC_COMPOSITECHECK, text, 600).result);
    std::vector<std::size_t> sizes{needed + 20};
    for (std::size_t size = needed < 5 ? 1 : needed - 4; size <= needed; ++size) sizes.push_back(size);
    for (const std::size_t size : sizes) {
        const Encoded plain = PlainEncode(page, WC_COMPOSITECHECK, text, size);
        const Encoded whole = Encode(page, WC_COMPOSITECHECK, text, size);
        ASSERT_EQ(whole.result, plain.result) << page << " size " << size;
        ASSERT_EQ(whole.written, plain.written) << page << " size " << size;
    }
}

// The vector roads look at sixteen units and the one behind them: what needs a closer look stands at each place there.
TEST(CodePages, EncodeWhatNeedsACloserLookAtEachPlace) {
    for (const uint32 page : {uint32{1252}, uint32{1251}, uint32{932}, uint32{CP_UTF8}}) {
        for (const wchar16 special : Units{0x301, 0x20AC, 0x4E00, 0xD83D, 0x80}) {
            for (std::size_t place = 0; place <= 36; ++place) {
                for (const std::size_t behind : {std::size_t{0}, std::size_t{1}, std::size_t{18}, std::size_t{40}}) {
                    Units text(place, 'e');
                    text.push_back(special);
                    text.insert(text.end(), behind, 'e');
                    ExpectEncodedAsItsCharacters(page, text);
                    // Marks all along, and marks now and then: less output than source.
                    for (std::size_t i = place + 4; i < text.size(); i += 4) text[i] = 0x301;
                    ExpectEncodedAsItsCharacters(page, text);
                    for (std::size_t i = place + 2; i < text.size(); i += 4) text[i] = 0x301;
                    ExpectEncodedAsItsCharacters(page, text);
                }
            }
        }
    }
}

// Eight units with two bytes each go at once, others one by one: among characters of two bytes stands one of another
// kind at each place.
TEST(CodePages, EncodeWhatStandsAmongPairsAtEachPlace) {
    for (const auto& [page, pair] : {std::pair<uint32, wchar16>{949, 0xAC00}, {936, 0x4E00}, {932, 0x304B}}) {
        for (const wchar16 special : Units{'e', 0x301, 0x3099, 0x309A, 0x300, 0x309B, 0x0E01, 0xFFFF, 0x3001, 0x1100}) {
            for (std::size_t place = 0; place <= 20; ++place) {
                for (const std::size_t behind : {std::size_t{0}, std::size_t{9}, std::size_t{20}}) {
                    Units text(place, pair);
                    text.push_back(special);
                    text.insert(text.end(), behind, pair);
                    ExpectEncodedAsItsCharacters(page, text);
                    for (std::size_t i = place + 3; i < text.size(); i += 3) text[i] = ' ';
                    ExpectEncodedAsItsCharacters(page, text);
                }
            }
        }
    }
}

// How many bytes at `at` make one character.
std::size_t BytesOfCharacter(uint32 page, const Bytes& text, std::size_t at) {
    const auto lead = static_cast<uint8>(text[at]);
    if (page != CP_UTF8) {
        return platform::IsDBCSLeadByteEx(page, lead) && at + 1 < text.size() && text[at + 1] != 0 ? 2 : 1;
    }
    // The longest beginning of at most four bytes whose meaning a byte behind it does not change. The vectors prove
    // the meaning of such short texts.
    for (std::size_t size = 1; size <= 4 && at + size <= text.size(); ++size) {
        const auto from = text.begin() + static_cast<std::ptrdiff_t>(at);
        Bytes head(from, from + static_cast<std::ptrdiff_t>(size));
        head.insert(head.end(), {'a', 'a', 'a'});
        const Decoded decoded = Decode(page, head, 12);
        if (size == 1 && decoded.written[0] != 0xFFFD) return 1;
        if (decoded.result == 4 && decoded.written[0] != 0xFFFD) return size;
        if (decoded.result == 5 && (decoded.written[0] & 0xFC00) == 0xD800) return size;
        if (decoded.result > 4 && decoded.written[0] == 0xFFFD) return size - 1;
    }
    return 1;
}

// Bytes of a text in the page with some bytes changed, so that well-formed and broken stretches meet.
Bytes RandomBytes(Random& random, uint32 page, std::size_t length) {
    const Units text = RandomText(random, length);
    Encoded encoded = Encode(page, 0, text, length * 4);
    encoded.written.resize(static_cast<std::size_t>(encoded.result));
    for (char& byte : encoded.written) {
        if (random.Below(20) == 0) byte = static_cast<char>(random.Below(256));
    }
    return encoded.written;
}

TEST(CodePages, DecodeWholeTextsAsTheirCharacters) {
    for (const uint32 page : AllPages) {
        for (uint64 seed = 0; seed < 12; ++seed) {
            Random random(seed);
            Bytes text = RandomBytes(random, page, 1 + random.Below(120));
            // Three plain bytes at the end, as a sequence cut off there takes what follows it.
            text.insert(text.end(), {'e', 'n', 'd'});
            Units plain;
            for (std::size_t at = 0; at < text.size();) {
                const std::size_t size = BytesOfCharacter(page, text, at);
                const auto from = text.begin() + static_cast<std::ptrdiff_t>(at);
                Bytes character(from, from + static_cast<std::ptrdiff_t>(size));
                if (page == CP_UTF8) character.insert(character.end(), {'e', 'n', 'd'});
                const Decoded decoded = Decode(page, character, 8);
                const int units = decoded.result - (page == CP_UTF8 ? 3 : 0);
                plain.insert(plain.end(), decoded.written.begin(), decoded.written.begin() + units);
                at += size;
            }
            EXPECT_EQ(Decode(page, text, 0).result, static_cast<int>(plain.size())) << page << " seed " << seed;
            for (const std::size_t size : {plain.size() / 2, plain.size() - 1, plain.size(), plain.size() + 30}) {
                Units expected(plain.begin(),
                               plain.begin() + static_cast<std::ptrdiff_t>(std::min(size, plain.size())));
                expected.resize(size, Untouched);
                const Decoded whole = Decode(page, text, size);
                ASSERT_EQ(whole.written, expected) << page << " seed " << seed << " size " << size;
                ASSERT_EQ(whole.error, size < plain.size() ? ERROR_INSUFFICIENT_BUFFER : 0u)
                    << page << " seed " << seed;
                ASSERT_EQ(whole.result, size < plain.size() ? 0 : static_cast<int>(plain.size())) << page;
            }
        }
    }
}

TEST(CodePages, DecodeWhatNeedsACloserLookAtEachPlace) {
    for (const Bytes& special :
         {Bytes{'\xE2', '\x82', '\xAC'}, Bytes{'\xF0', '\x9F', '\x98', '\x80'}, Bytes{'\xC3', '\xA9'},
          Bytes{'\xE2', '\x82', '\xAC', '\xE2', '\x82', '\xAC', '\xE2', '\x82', '\xAC'}}) {
        const Units meaning = Decode(CP_UTF8, special, special.size()).written;
        const std::size_t units =
            static_cast<std::size_t>(std::find(meaning.begin(), meaning.end(), Untouched) - meaning.begin());
        for (std::size_t place = 0; place <= 60; ++place) {
            for (std::size_t behind = 0; behind <= 60; ++behind) {
                Bytes text(place, 'e');
                text.insert(text.end(), special.begin(), special.end());
                text.insert(text.end(), behind, 'x');
                Units plain(place, 'e');
                plain.insert(plain.end(), meaning.begin(), meaning.begin() + static_cast<std::ptrdiff_t>(units));
                plain.insert(plain.end(), behind, 'x');
                for (const std::size_t size : {place + 1, place + units, plain.size(), plain.size() + 20}) {
                    Units expected = plain;
                    expected.resize(std::min(size, plain.size()));
                    expected.resize(size, Untouched);
                    ASSERT_EQ(Decode(CP_UTF8, text, size).written, expected)
                        << place << " " << behind << " size " << size;
                }
            }
        }
    }
}

// ---- use ----

TEST(CodePages, AreMadeOnceWhenManyThreadsComeFirst) {
    const Bytes text{'\x82', '\xA0', 'a', '\x8A', '\xBF'};
    const Units expected{0x3042, 'a', 0x6F22};
    std::vector<Units> answers(8);
    std::vector<std::thread> threads;
    for (Units& answer : answers) threads.emplace_back([&] { answer = Decode(932, text, 3).written; });
    for (std::thread& thread : threads) thread.join();
    for (const Units& answer : answers) EXPECT_EQ(answer, expected);
}

TEST(CodePages, SymbolicNumbersStandForThePagesOfTheThread) {
    // The names of bytes and units that every page has alike; which page it is belongs to the tests of locales.
    for (const uint32 page : {CP_ACP, CP_OEMCP, CP_THREAD_ACP}) {
        EXPECT_EQ(Decode(page, {'a', 'b'}, 2).written, (Units{'a', 'b'})) << page;
        EXPECT_EQ(Encode(page, 0, {'a', 'b'}, 2).written, (Bytes{'a', 'b'})) << page;
        EXPECT_FALSE(platform::IsValidCodePage(page)) << page;
    }
}

TEST(CodePages, SourceMayLieAtTheEndOfItsBlock) {
    for (const uint32 page : AllPages) {
        for (std::size_t length = 1; length < 70; ++length) {
            EXPECT_EQ(Decode(page, Bytes(length, 'x'), length).written, Units(length, 'x')) << page;
            EXPECT_EQ(Encode(page, WC_COMPOSITECHECK, Units(length, 'x'), length).written, Bytes(length, 'x')) << page;
        }
    }
}

}  // namespace
}  // namespace platform_code_pages_internal_test
