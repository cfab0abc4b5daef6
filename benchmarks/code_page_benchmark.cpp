// Text between a code page and system text: the library's public calls beside ICU's converters.
//
// ICU is measured at its best: a converter is opened once and kept, text goes through in one call with `flush` set, and
// UTF-8 takes the functions that need no converter. The library's calls add a terminator, as their contract says; they
// are given no more than that. Names are direction/page/text/bytes/who; compare two lines that differ in the last part.
//
// Texts are the first article of the Universal Declaration of Human Rights, repeated to the size. Mixed Windows-1252 is
// the article in French, German and Portuguese in typographic quotes; mixed UTF-8 is nine languages in turn.
#include <Utility/charsets.h>
#include <Utility/conversion.h>
#include <benchmark/benchmark.h>
#include <unicode/ucnv.h>
#include <unicode/ustring.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace Torvo;

constexpr std::string_view English =
    "All human beings are born free and equal in dignity and rights. They are endowed with reason and conscience and "
    "should act towards one another in a spirit of brotherhood.\r\n";
constexpr std::string_view French =
    "«Tous les êtres humains naissent libres et égaux en dignité et en droits. Ils sont doués de raison et de "
    "conscience et doivent agir les uns envers les autres dans un esprit de fraternité.»\r\n";
constexpr std::string_view German =
    "„Alle Menschen sind frei und gleich an Würde und Rechten geboren. Sie sind mit Vernunft und Gewissen begabt und "
    "sollen einander im Geist der Brüderlichkeit begegnen.“\r\n";
constexpr std::string_view Portuguese =
    "“Todos os seres humanos nascem livres e iguais em dignidade e em direitos. Dotados de razão e de consciência, "
    "devem agir uns para com os outros em espírito de fraternidade.”\r\n";
constexpr std::string_view Polish =
    "Wszyscy ludzie rodzą się wolni i równi pod względem swej godności i swych praw. Są oni obdarzeni rozumem i "
    "sumieniem i powinni postępować wobec innych w duchu braterstwa.\r\n";
constexpr std::string_view Russian =
    "Все люди рождаются свободными и равными в своем достоинстве и правах. Они наделены разумом и совестью и должны "
    "поступать в отношении друг друга в духе братства.\r\n";
constexpr std::string_view Greek =
    "Όλοι οι άνθρωποι γεννιούνται ελεύθεροι και ίσοι στην αξιοπρέπεια και τα δικαιώματα. Είναι προικισμένοι με λογική "
    "και συνείδηση, και οφείλουν να συμπεριφέρονται μεταξύ τους με πνεύμα αδελφοσύνης.\r\n";
constexpr std::string_view Japanese =
    "すべての人間は、生まれながらにして自由であり、かつ、尊厳と権利とについて平等である。人間は、理性と良心とを授けられ"
    "て"
    "おり、互いに同胞の精神をもって行動しなければならない。\r\n";
constexpr std::string_view SimplifiedChinese =
    "人人生而自由,在尊严和权利上一律平等。他们赋有理性和良心,并应以兄弟关系的精神相对待。\r\n";
constexpr std::string_view TraditionalChinese =
    "人人生而自由，在尊嚴和權利上一律平等。他們賦有理性和良心，並應以兄弟關係的精神相對待。\r\n";
constexpr std::string_view Korean =
    "모든 인간은 태어날 때부터 자유로우며 그 존엄과 권리에 있어 동등하다. 인간은 천부적으로 이성과 양심을 부여받았으며 "
    "서로 형제애의 정신으로 행동하여야 한다.\r\n";

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "code_page_benchmark: %s\n", what);
    std::exit(1);
}

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text(utf8.size(), u'\0');
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(text.data(), static_cast<int32_t>(text.size()), &length, utf8.data(),
                  static_cast<int32_t>(utf8.size()), &status);
    Require(U_SUCCESS(status) != 0, "a text is not UTF-8");
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// ICU's converter for a page, kept open.
class Converter {
public:
    explicit Converter(const char* name) {
        UErrorCode status = U_ZERO_ERROR;
        converter_ = ucnv_open(name, &status);
        Require(U_SUCCESS(status) != 0, "ICU has no converter of that name");
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { ucnv_close(converter_); }

    std::size_t ToText(const std::string& bytes, std::vector<char16_t>& target) {
        ucnv_resetToUnicode(converter_);
        UErrorCode status = U_ZERO_ERROR;
        const char* at = bytes.data();
        char16_t* to = target.data();
        ucnv_toUnicode(converter_, &to, target.data() + target.size(), &at, at + bytes.size(), nullptr, 1, &status);
        return static_cast<std::size_t>(to - target.data());
    }
    std::size_t ToBytes(const std::u16string& text, std::vector<char>& target) {
        ucnv_resetFromUnicode(converter_);
        UErrorCode status = U_ZERO_ERROR;
        const char16_t* at = text.data();
        char* to = target.data();
        ucnv_fromUnicode(converter_, &to, target.data() + target.size(), &at, at + text.size(), nullptr, 1, &status);
        return static_cast<std::size_t>(to - target.data());
    }

private:
    UConverter* converter_ = nullptr;
};

struct Case {
    const char* page;
    const char* text;
    const char* converter;  // null for UTF-8, which takes ICU's own functions
    ZUCHARSET charset;
    std::vector<std::string_view> passages;
};

// The passages in turn, in the case's own bytes, up to `size` bytes but never part of a character.
struct Sample {
    std::string bytes;
    std::u16string text;
};

std::string InBytes(const Case& which, const std::u16string& text) {
    std::vector<char> bytes(text.size() * 4 + 4);
    Require(ConvertSystemToMBCSChar(text.c_str(), bytes.data(), which.charset, bytes.size(), false),
            "a text did not fit");
    return bytes.data();
}

Sample MakeSample(const Case& which, std::size_t size) {
    std::u16string all;
    for (const std::string_view passage : which.passages) all += FromUtf8(passage);
    Sample sample;
    for (std::size_t i = 0;; i = (i + 1) % all.size()) {
        const bool isPair = (all[i] & 0xFC00) == 0xD800;
        const std::string next = InBytes(which, all.substr(i, isPair ? 2 : 1));
        if (sample.bytes.size() + next.size() > size) return sample;
        sample.bytes += next;
        sample.text += all.substr(i, isPair ? 2 : 1);
        i += isPair;
    }
}

void LibraryToText(benchmark::State& state, const Case& which, const Sample& sample) {
    std::vector<char16_t> target(sample.bytes.size() + 1);
    for (auto _ : state) {
        const bool done = ConvertMBCSCharToSystem(sample.bytes.data(), sample.bytes.size(), which.charset,
                                                  target.data(), target.size() - 1);
        benchmark::DoNotOptimize(done);
        benchmark::ClobberMemory();
    }
    Require(std::u16string(target.data()) == sample.text, "the library's text is not the sample's");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sample.bytes.size()));
}

void PeerToText(benchmark::State& state, const Case& which, const Sample& sample) {
    std::vector<char16_t> target(sample.bytes.size() + 1);
    if (which.converter != nullptr) {
        Converter converter(which.converter);
        std::size_t length = 0;
        for (auto _ : state) {
            benchmark::DoNotOptimize(length = converter.ToText(sample.bytes, target));
            benchmark::ClobberMemory();
        }
        Require(length == sample.text.size(), "the peer's text is not as long as the sample's");
    } else {
        int32_t length = 0;
        for (auto _ : state) {
            UErrorCode status = U_ZERO_ERROR;
            u_strFromUTF8(target.data(), static_cast<int32_t>(target.size()), &length, sample.bytes.data(),
                          static_cast<int32_t>(sample.bytes.size()), &status);
            benchmark::ClobberMemory();
        }
        Require(static_cast<std::size_t>(length) == sample.text.size(),
                "the peer's text is not as long as the sample's");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sample.bytes.size()));
}

void LibraryToBytes(benchmark::State& state, const Case& which, const Sample& sample) {
    std::vector<char> target(sample.bytes.size() + 1);
    for (auto _ : state) {
        const bool done =
            ConvertSystemToMBCSChar(sample.text.c_str(), target.data(), which.charset, target.size(), false);
        benchmark::DoNotOptimize(done);
        benchmark::ClobberMemory();
    }
    Require(target.data() == sample.bytes, "the library's bytes are not the sample's");
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sample.bytes.size()));
}

void PeerToBytes(benchmark::State& state, const Case& which, const Sample& sample) {
    std::vector<char> target(sample.bytes.size() + 1);
    if (which.converter != nullptr) {
        Converter converter(which.converter);
        std::size_t length = 0;
        for (auto _ : state) {
            benchmark::DoNotOptimize(length = converter.ToBytes(sample.text, target));
            benchmark::ClobberMemory();
        }
        Require(length == sample.bytes.size(), "the peer's bytes are not as many as the sample's");
    } else {
        int32_t length = 0;
        for (auto _ : state) {
            UErrorCode status = U_ZERO_ERROR;
            u_strToUTF8(target.data(), static_cast<int32_t>(target.size()), &length, sample.text.data(),
                        static_cast<int32_t>(sample.text.size()), &status);
            benchmark::ClobberMemory();
        }
        Require(static_cast<std::size_t>(length) == sample.bytes.size(),
                "the peer's bytes are not as many as the sample's");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * sample.bytes.size()));
}

const std::vector<Case>& Cases() {
    static const std::vector<Case> cases = {
        {"1252", "ascii", "windows-1252", csWindowsLatin1, {English}},
        {"1252", "mixed", "windows-1252", csWindowsLatin1, {French, German, Portuguese}},
        {"1250", "polish", "windows-1250", csWindowsLatin2, {Polish}},
        {"1251", "russian", "windows-1251", csWindowsCyrillic, {Russian}},
        {"1253", "greek", "windows-1253", csWindowsGreek, {Greek}},
        {"932", "japanese", "ibm-943_P15A-2003", csWindowsJapanese, {Japanese}},
        {"936", "chinese", "windows-936", csWindowsSimpChinese, {SimplifiedChinese}},
        {"949", "korean", "windows-949", csWindowsKorean, {Korean}},
        {"950", "chinese", "windows-950", csWindowsTradChinese, {TraditionalChinese}},
        {"932", "ascii", "ibm-943_P15A-2003", csWindowsJapanese, {English}},
        {"UTF-8", "ascii", nullptr, csUTF8, {English}},
        {"UTF-8",
         "mixed",
         nullptr,
         csUTF8,
         {English, French, German, Polish, Russian, Greek, Japanese, SimplifiedChinese, Korean}},
    };
    return cases;
}

void Register(const Case& which, std::size_t size) {
    const Sample sample = MakeSample(which, size);
    const std::string name = std::string("/") + which.page + "/" + which.text + "/" + std::to_string(size) + "/";
    benchmark::RegisterBenchmark(("to-text" + name + "library").c_str(), LibraryToText, which, sample);
    benchmark::RegisterBenchmark(("to-text" + name + "icu").c_str(), PeerToText, which, sample);
    benchmark::RegisterBenchmark(("to-bytes" + name + "library").c_str(), LibraryToBytes, which, sample);
    benchmark::RegisterBenchmark(("to-bytes" + name + "icu").c_str(), PeerToBytes, which, sample);
}

const bool registered = [] {
    for (const Case& which : Cases()) {
        for (const std::size_t size : {std::size_t{64}, std::size_t{65536}}) Register(which, size);
    }
    return true;
}();

}  // namespace
