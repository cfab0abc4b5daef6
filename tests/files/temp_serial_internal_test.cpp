#include <Utility/files/temp_serial.h>
#include <gtest/gtest.h>

namespace temp_serial_internal_test {
namespace {

using namespace Torvo;

TEST(TempSerial, CountsFromZero) {
    uint32 serial = 0;
    for (uint32 count = 0; count < 10; ++count) EXPECT_EQ(TakeTempSerial(&serial), count);
}

TEST(TempSerial, BeginsAgainAtAMillion) {
    uint32 serial = 999998;
    EXPECT_EQ(TakeTempSerial(&serial), 999998u);
    EXPECT_EQ(TakeTempSerial(&serial), 999999u);
    EXPECT_EQ(TakeTempSerial(&serial), 0u);
    EXPECT_EQ(TakeTempSerial(&serial), 1u);
}

}  // namespace
}  // namespace temp_serial_internal_test
