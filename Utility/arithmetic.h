// Arithmetic helpers: rounding conversions from double, sums that saturate, divisions that round, NaN, CRC-16.
//
// "To round" means here: add 0.5 to a value above 0, subtract 0.5 from any other, and cut off what is behind the point.
// Halves therefore go away from zero: 2.5 becomes 3 and -2.5 becomes -3. The addition is itself a sum of doubles, so
// the largest double below 0.5 becomes 1, and from 2^52 on an odd value may move by one. A result that does not fit the
// target type, and a NaN, become the lowest value of that type, which is what the processor's own conversion gives; the
// forms named Clip hold the value at the limits of the type first.
//
// "To wrap" means modulo 2^32, or 2^16 where 16 bits are named. Nothing here fails, keeps state or allocates; all of it
// may be called on any thread.
//
// Example: examples/families/arithmetic.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Conversions from double -----------------------------------------------------------------------------------------

// Rounds to 32 bits. 3e9 and NaN give -2147483648.
ZUAPI int32 DoubleToINT32(double value);
// The same, but a value outside the range of 32 bits gives the nearer limit: 3e9 gives 2147483647. NaN passes the
// limits and gives -2147483648.
ZUAPI int32 DoubleToINT32Clip(double value);
// The low 16 bits of DoubleToINT32: 70000.0 gives 4464.
ZUAPI int16 DoubleToShort(double value);
// Held at 32767 and -32768, then rounded: 70000.0 gives 32767. NaN gives -32768.
ZUAPI int16 DoubleToShortClip(double value);
// Rounds to 64 bits.
ZUAPI int64 DoubleToInt64(double value);
// The same function: in spite of its name it holds nothing at a limit, and 1e30 gives the lowest value of 64 bits.
ZUAPI int64 DoubleToInt64Clip(double value);

// NaN -------------------------------------------------------------------------------------------------------------

// The quiet NaN whose bits are 0x7FFFFFFFFFFFFFFF.
ZUAPI double GetNaN();
// Stores it.
ZUAPI void SetNaN(double& value);
// Whether the value is a NaN, whichever.
ZUAPI bool IsNaN(double value);

// Integers --------------------------------------------------------------------------------------------------------

// The sum, held at 2147483647 and -2147483648.
ZUAPI int32 INT32Add(int32 a, int32 b);
// INT32Add, then held at two limits of the caller's: a sum below `low` gives `low`, any other the smaller of it and
// `high`. INT32AddCoords(2147483647, 1, -1000, 1000) is 1000.
ZUAPI int32 INT32AddCoords(int32 a, int32 b, int32 low, int32 high);
// The sum, held at 32767 and -32768.
ZUAPI int16 ShortAdd(int16 a, int16 b);

// a / b, rounded on the magnitudes: (|a| + |b| / 2) / |b| with the sign of the quotient, so that 7 / 2 gives 4 and
// -7 / 2 gives -4. A divisor of 0 gives a. The sum |a| + |b| / 2 wraps where it leaves 32 bits.
ZUAPI int32 INT32RoundDiv(int32 a, int32 b);

// (a * b + c / 2) / c. Product, half and sum wrap; both divisions cut towards zero, so a negative c has a negative
// half. c is not to be 0; the result for it is 0.
ZUAPI int IntegerMulDiv(int a, int b, int c);

// (a * b + c / 2) * d / c: the sum as in IntegerMulDiv, the rest in doubles, rounded. Only the low 16 bits of the
// result count, with their sign: the value lies between -32768 and 32767 although its type is wider.
ZUAPI int IntegerMulDivScale(int a, int b, int c, double d);

// `value` rounded to a multiple of `size`, for the sizes of fill patterns. With `keepZero` a small value may become 0;
// without it one that is not 0 becomes at least one step, `size` with the sign of the value: the value 1 in steps of 8
// gives 8, with `keepZero` 0. The step has 16 bits: a `size` above 32767 wraps there. `size` is not to be 0; the result
// for it is the value itself.
ZUAPI int32 RoundToPatternSize(int32 value, bool keepZero, int32 size);

// floor((step / 2 + value) / step) * step: `value` to a multiple of `step`, halves going up, so that with a step of 1
// 2.5 gives 3 and -2.5 gives -2. A step of 0 gives the value itself.
ZUAPI double zu_round(double value, double step);

// The 16-bit cyclic redundancy check with the reflected polynomial 0xA001, initial value 0 and no final inversion,
// known as CRC-16/ARC; of the nine bytes "123456789" it is 0xBB3D. `table` is the caller's room for 256 values: with
// `build` the first `tableSize` of them, to be 256, are computed before use; later calls may pass the same table and
// `build` false. A length of 0 gives 0, and so do null data and a null table; the table is built all the same.
ZUAPI unsigned short calculate_crc16(const unsigned char* data, unsigned int length, unsigned short* const table,
                                     bool build, int tableSize);

}  // namespace Torvo
