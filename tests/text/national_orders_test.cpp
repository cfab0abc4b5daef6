// Place names in the order of their country's alphabet: A to Z, then Æ, Ø, Å in Danish, and Å, Ä, Ö in Swedish and
// Finnish (the alphabets as Dansk Sprognævn, Svenska Akademien and Kotus publish them).
#include <Utility/normalizers.h>
#include <gtest/gtest.h>
#include <support/unicode_normalizers.h>

#include <algorithm>
#include <vector>

namespace national_orders_test {
namespace {

using namespace Torvo;
using Names = std::vector<wstring16>;

const Names danishPlaces = {
    ZUTEXT("Ballerup"), ZUTEXT("Ebeltoft"), ZUTEXT("Esbjerg"),  ZUTEXT("Fredericia"), ZUTEXT("Helsingør"),
    ZUTEXT("Herning"),  ZUTEXT("Hjørring"), ZUTEXT("Holbæk"),   ZUTEXT("Hørsholm"),   ZUTEXT("København"),
    ZUTEXT("Køge"),     ZUTEXT("Læsø"),     ZUTEXT("Løgstør"),  ZUTEXT("Nykøbing"),   ZUTEXT("Næstved"),
    ZUTEXT("Odense"),   ZUTEXT("Ringsted"), ZUTEXT("Roskilde"), ZUTEXT("Rødovre"),    ZUTEXT("Skagen"),
    ZUTEXT("Skive"),    ZUTEXT("Sæby"),     ZUTEXT("Søborg"),   ZUTEXT("Sønderborg"), ZUTEXT("Tønder"),
    ZUTEXT("Varde"),    ZUTEXT("Vejle"),    ZUTEXT("Viborg"),   ZUTEXT("Ærø"),        ZUTEXT("Ærøskøbing"),
    ZUTEXT("Ølgod"),    ZUTEXT("Ølstykke"), ZUTEXT("Østerbro"), ZUTEXT("Ådum"),       ZUTEXT("Ålsgårde"),
    ZUTEXT("Årslev"),
};

const Names swedishPlaces = {
    ZUTEXT("Alingsås"),   ZUTEXT("Borlänge"),  ZUTEXT("Borås"),     ZUTEXT("Falun"),      ZUTEXT("Gävle"),
    ZUTEXT("Göteborg"),   ZUTEXT("Halmstad"),  ZUTEXT("Härnösand"), ZUTEXT("Hässleholm"), ZUTEXT("Höganäs"),
    ZUTEXT("Jönköping"),  ZUTEXT("Kalmar"),    ZUTEXT("Karlstad"),  ZUTEXT("Kiruna"),     ZUTEXT("Kristianstad"),
    ZUTEXT("Luleå"),      ZUTEXT("Lund"),      ZUTEXT("Malmö"),     ZUTEXT("Märsta"),     ZUTEXT("Mölndal"),
    ZUTEXT("Norrköping"), ZUTEXT("Nyköping"),  ZUTEXT("Piteå"),     ZUTEXT("Skellefteå"), ZUTEXT("Skövde"),
    ZUTEXT("Sundsvall"),  ZUTEXT("Söderhamn"), ZUTEXT("Umeå"),      ZUTEXT("Uppsala"),    ZUTEXT("Vänersborg"),
    ZUTEXT("Värnamo"),    ZUTEXT("Västerås"),  ZUTEXT("Växjö"),     ZUTEXT("Ystad"),      ZUTEXT("Zinkgruvan"),
    ZUTEXT("Åhus"),       ZUTEXT("Åmål"),      ZUTEXT("Åre"),       ZUTEXT("Åtvidaberg"), ZUTEXT("Älmhult"),
    ZUTEXT("Älvsbyn"),    ZUTEXT("Ängelholm"), ZUTEXT("Örebro"),    ZUTEXT("Öregrund"),   ZUTEXT("Örnsköldsvik"),
    ZUTEXT("Östersund"),
};

const Names finnishPlaces = {
    ZUTEXT("Espoo"),     ZUTEXT("Forssa"),      ZUTEXT("Hamina"),       ZUTEXT("Hanko"),     ZUTEXT("Heinola"),
    ZUTEXT("Helsinki"),  ZUTEXT("Hämeenlinna"), ZUTEXT("Imatra"),       ZUTEXT("Joensuu"),   ZUTEXT("Jyväskylä"),
    ZUTEXT("Järvenpää"), ZUTEXT("Kajaani"),     ZUTEXT("Kemi"),         ZUTEXT("Kokkola"),   ZUTEXT("Kotka"),
    ZUTEXT("Kuopio"),    ZUTEXT("Lahti"),       ZUTEXT("Lappeenranta"), ZUTEXT("Lohja"),     ZUTEXT("Mikkeli"),
    ZUTEXT("Mänttä"),    ZUTEXT("Naantali"),    ZUTEXT("Nokia"),        ZUTEXT("Oulu"),      ZUTEXT("Pori"),
    ZUTEXT("Porvoo"),    ZUTEXT("Pöytyä"),      ZUTEXT("Raahe"),        ZUTEXT("Rauma"),     ZUTEXT("Riihimäki"),
    ZUTEXT("Rovaniemi"), ZUTEXT("Salo"),        ZUTEXT("Seinäjoki"),    ZUTEXT("Sysmä"),     ZUTEXT("Säkylä"),
    ZUTEXT("Tampere"),   ZUTEXT("Tornio"),      ZUTEXT("Turku"),        ZUTEXT("Vaasa"),     ZUTEXT("Vantaa"),
    ZUTEXT("Varkaus"),   ZUTEXT("Vihti"),       ZUTEXT("Virrat"),       ZUTEXT("Ylivieska"), ZUTEXT("Ylöjärvi"),
    ZUTEXT("Ähtäri"),    ZUTEXT("Äänekoski"),   ZUTEXT("Öja"),
};

// The names as a normalizer sorts them, from the opposite order.
Names Sorted(StringNormalizer& normalizer, Names names) {
    std::reverse(names.begin(), names.end());
    std::sort(names.begin(), names.end(),
              [&](const wstring16& a, const wstring16& b) { return normalizer.Compare(a.c_str(), b.c_str()) < 0; });
    return names;
}

StringNormalizer& ByTable(int code) {
    return *GetNormalizer(csWindowsLatin1, static_cast<uint16>(code), 0);
}

TEST(NationalOrders, DanishByTable) {
    for (const int code : {34070, 41909}) EXPECT_EQ(Sorted(ByTable(code), danishPlaces), danishPlaces) << code;
}

TEST(NationalOrders, SwedishAndFinnishByTable) {
    for (const int code : {1298, 54273, 56485}) {
        EXPECT_EQ(Sorted(ByTable(code), swedishPlaces), swedishPlaces) << code;
        EXPECT_EQ(Sorted(ByTable(code), finnishPlaces), finnishPlaces) << code;
    }
}

TEST(NationalOrders, OfAnotherCountryByTable) {
    EXPECT_NE(Sorted(ByTable(44414), danishPlaces), danishPlaces);
    EXPECT_NE(Sorted(ByTable(44414), swedishPlaces), swedishPlaces);
    EXPECT_NE(Sorted(ByTable(34070), swedishPlaces), swedishPlaces);
    EXPECT_NE(Sorted(ByTable(1298), danishPlaces), danishPlaces);
}

TEST(NationalOrders, CountForWhatIsWrittenInAnyCase) {
    Names capitals = swedishPlaces;
    for (wstring16& name : capitals) {
        for (wchar16& unit : name) {
            const bool isSmall = (unit >= 'a' && unit <= 'z') || unit >= 0xE0;
            if (isSmall) unit = static_cast<wchar16>(unit - 0x20);
        }
    }
    for (std::size_t index = 0; index < capitals.size(); ++index) {
        EXPECT_EQ(ByTable(1298).Compare(capitals[index].c_str(), swedishPlaces[index].c_str()), 0);
    }
    EXPECT_EQ(Sorted(ByTable(1298), capitals), capitals);
}

using UnicodeOrders = test::UnicodeNormalizers;

TEST_F(UnicodeOrders, OfTheThreeLanguages) {
    for (const int code : {0, 1}) {
        EXPECT_EQ(Sorted(Of(0x0406, code), danishPlaces), danishPlaces) << code;
        EXPECT_EQ(Sorted(Of(0x041D, code), swedishPlaces), swedishPlaces) << code;
        EXPECT_EQ(Sorted(Of(0x040B, code), finnishPlaces), finnishPlaces) << code;
        EXPECT_NE(Sorted(Of(0x0409, code), swedishPlaces), swedishPlaces) << code;
    }
}

// Danish counts a double A as Å, which no table of single bytes can.
TEST_F(UnicodeOrders, OfDanishTownsWithADoubleA) {
    const Names towns = {ZUTEXT("Odense"),  ZUTEXT("Ølgod"),    ZUTEXT("Aabenraa"),
                         ZUTEXT("Aalborg"), ZUTEXT("Ålsgårde"), ZUTEXT("Aarhus")};
    EXPECT_EQ(Sorted(Of(0x0406), towns), towns);
    EXPECT_EQ(Sorted(ByTable(34070), towns).front(), ZUTEXT("Aabenraa"));
}

TEST_F(UnicodeOrders, OfKeysAreThoseOfTexts) {
    for (const auto& [lcid, places] :
         {std::pair{0x0406u, danishPlaces}, {0x041Du, swedishPlaces}, {0x040Bu, finnishPlaces}}) {
        Names keys;
        for (wstring16 name : places) {
            name.resize(200);
            ASSERT_TRUE(Of(lcid).NormalizeInPlace(name.data(), name.size()));
            keys.push_back(name);
        }
        EXPECT_EQ(Sorted(Of(lcid), keys), keys);
    }
}

}  // namespace
}  // namespace national_orders_test
