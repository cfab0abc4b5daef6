// Unicode normalizers beside ICU's own classes: the same keys, byte for byte.
#include <Utility/normalizers.h>
#include <gtest/gtest.h>
#include <support/owned_text.h>
#include <support/random_text.h>
#include <unicode/coll.h>
#include <unicode/normlzr.h>
#include <unicode/sortkey.h>
#include <unicode/unistr.h>

#include <memory>
#include <string>

namespace posix_collation_internal_test {
namespace {

using namespace Torvo;

struct Order {
    const char* name;
    uint32 lcid;
    uint16 code;
    icu::Collator::ECollationStrength strength;
    bool upper;
};

constexpr Order orders[] = {
    {"en_US", 0x0409, 0, icu::Collator::PRIMARY, false},   {"en_US", 0x0409, 1, icu::Collator::SECONDARY, false},
    {"pt_BR", 0x0416, 1, icu::Collator::SECONDARY, false}, {"da_DK", 0x0406, 1298, icu::Collator::SECONDARY, false},
    {"sv_SE", 0x041D, 0, icu::Collator::PRIMARY, false},   {"fi_FI", 0x040B, 1, icu::Collator::SECONDARY, false},
    {"ja_JP", 0x0411, 0, icu::Collator::QUATERNARY, true}, {"ja_JP", 0x0411, 1, icu::Collator::QUATERNARY, true},
    {"zh_TW", 0x0404, 1, icu::Collator::SECONDARY, false}, {"fr_CA", 0x0C0C, 1, icu::Collator::SECONDARY, false},
};

// The bytes of a key text as they have to be, from ICU's key of the composed text.
std::string Expected(const Order& order, const wstring16& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale(order.name), status));
    collator->setStrength(order.strength);
    icu::UnicodeString input(text.data(), static_cast<int32_t>(text.size()));
    if (order.upper) input.toUpper(icu::Locale::getRoot());
    icu::UnicodeString composed;
    icu::Normalizer::normalize(input, UNORM_NFC, 0, composed, status);
    icu::CollationKey key;
    collator->getCollationKey(composed, key, status);
    EXPECT_TRUE(U_SUCCESS(status));
    int32_t count = 0;
    const uint8_t* const bytes = key.getByteArray(count);
    std::string result = "\xEF\xBB\xBF\xBA" + std::string(reinterpret_cast<const char*>(bytes), count);
    if (result.size() % 2 != 0) result += '\0';
    return result + std::string(2, '\0');
}

TEST(IcuKeys, AreThoseOfKeyTexts) {
    test::RandomText random(20261121, test::MixedCharacters());
    for (const Order& order : orders) {
        StringNormalizer& normalizer = *GetNormalizer(csUTF16, order.code, order.lcid);
        for (int round = 0; round < 100; ++round) {
            const wstring16 text = random.Text(round == 99 ? 800 : 12);
            if (text.empty()) continue;
            test::OwnedText key;
            uint64 units = 0;
            ASSERT_TRUE(normalizer.Normalize(text.c_str(), key.Place(), &units));
            ASSERT_EQ(std::string(reinterpret_cast<const char*>(key.Get()), units * 2), Expected(order, text))
                << order.name;
        }
    }
}

}  // namespace
}  // namespace posix_collation_internal_test
