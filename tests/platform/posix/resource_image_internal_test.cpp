#include <Utility/platform/posix/resource_image.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <fstream>
#include <iterator>
#include <random>

namespace resource_image_internal_test {
namespace {

using namespace Torvo;
using platform::ResourceImage;

std::vector<uint8> Fixture() {
    std::ifstream file(test::DataPath("strings.dll"), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string Text(const ResourceImage& image, uint16 id) {
    const ResourceImage::String found = image.Find(id, 0x0409);
    std::string text;
    for (std::size_t i = 0; i < found.length; ++i) text += static_cast<char>(found.units[2 * i]);
    return text;
}

constexpr uint16 SomeIds[] = {0, 1, 15, 16, 17, 18, 31, 32, 300, 4000, 5000, 65535};

// Reads everything that an image gives, so that the sanitizers see each byte.
std::size_t ReadAll(const ResourceImage& image) {
    std::size_t units = 0;
    for (const uint16 id : SomeIds) units += Text(image, id).size();
    return units;
}

TEST(ResourceImage, ReadsTheWholeFixture) {
    const ResourceImage image(Fixture());
    EXPECT_EQ(Text(image, 1), "one");
    EXPECT_EQ(Text(image, 65535), "the highest number");
    EXPECT_EQ(Text(image, 0), "");
    EXPECT_EQ(Text(image, 300).size(), 300u);
}

TEST(ResourceImage, TakesTheThreadsLanguageElseEnglish) {
    const ResourceImage image(Fixture());
    EXPECT_EQ(image.Find(5000, 0x0407).length, 7u);  // "deutsch"
    EXPECT_EQ(*image.Find(5000, 0x0407).units, 'd');
    EXPECT_EQ(*image.Find(5000, 0x0409).units, 'e');
    EXPECT_EQ(*image.Find(5000, 0x0411).units, 'e') << "neither Japanese nor neutral: English of the United States";
}

TEST(ResourceImage, CutOffAtEveryByteGivesWhatIsThereOrNothing) {
    const std::vector<uint8> whole = Fixture();
    const std::size_t allUnits = ReadAll(ResourceImage(whole));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        std::vector<uint8> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        cut.shrink_to_fit();
        EXPECT_LE(ReadAll(ResourceImage(cut)), allUnits) << length;
    }
}

// Every 16-bit and every 32-bit field of the file in turn with numbers that lead outside it.
TEST(ResourceImage, HostileOffsetsAndCountsGiveNothingOutside) {
    const std::vector<uint8> whole = Fixture();
    for (std::size_t at = 0; at + 4 <= whole.size(); at += 2) {
        for (const uint32 value : {0xFFFFFFFFu, 0x7FFFFFFFu, 0x80000000u, 0x0000FFFFu, 0u, 0x80000010u}) {
            std::vector<uint8> hostile = whole;
            for (std::size_t i = 0; i < 4; ++i) hostile[at + i] = static_cast<uint8>(value >> (8 * i));
            EXPECT_LT(ReadAll(ResourceImage(hostile)), whole.size() * std::size(SomeIds)) << at;
        }
    }
}

TEST(ResourceImage, RandomDamageGivesNothingOutside) {
    const std::vector<uint8> whole = Fixture();
    std::mt19937 random(20261121);
    for (int round = 0; round < 20000; ++round) {
        std::vector<uint8> damaged = whole;
        for (int i = 0; i < 8; ++i) damaged[random() % damaged.size()] = static_cast<uint8>(random());
        EXPECT_LT(ReadAll(ResourceImage(damaged)), whole.size() * std::size(SomeIds));
    }
}

}  // namespace
}  // namespace resource_image_internal_test
