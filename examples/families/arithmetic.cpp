// Rounding, sums that hold at a limit, and a checksum.
#include <Utility/arithmetic.h>

#include <cstdio>

int main() {
    using namespace Torvo;

    std::printf("2.5 and -2.5: %d and %d\n", DoubleToINT32(2.5), DoubleToINT32(-2.5));
    std::printf("3e9: %d, held at the limit %d\n", DoubleToINT32(3e9), DoubleToINT32Clip(3e9));
    std::printf("2147483647 + 1: %d, between limits %d\n", INT32Add(2147483647, 1),
                INT32AddCoords(2147483647, 1, -1000, 1000));
    std::printf("7 / 2 and -7 / 2: %d and %d\n", INT32RoundDiv(7, 2), INT32RoundDiv(-7, 2));
    std::printf("100 * 3 / 7: %d\n", IntegerMulDiv(100, 3, 7));
    std::printf("17.3 to a multiple of 0.5: %.1f\n", zu_round(17.3, 0.5));
    std::printf("1 to a multiple of 8: %d, or %d\n", RoundToPatternSize(1, false, 8), RoundToPatternSize(1, true, 8));

    unsigned short table[256];
    const auto* const data = reinterpret_cast<const unsigned char*>("123456789");
    std::printf("CRC-16: %X\n", calculate_crc16(data, 9, table, true, 256));
    return 0;
}
