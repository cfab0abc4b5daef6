// Dates and the errors about them for tests, told in words.
#pragma once

#include <Utility/dates.h>
#include <Utility/errors.h>
#include <gtest/gtest.h>

#include <string>

namespace Torvo::test {

// "2024-2-29": the fields as they are.
inline std::string Told(const zuDATE& date) {
    return std::to_string(date.year) + '-' + std::to_string(date.month) + '-' + std::to_string(date.day);
}

// The error list, which is emptied: "" or, for each record, its resource identifier and parameters, as in
// "63(/, dd-mm) ". Each is an error of the library with the number that all errors about dates have.
inline std::string TakeDateErrors() {
    std::string told;
    for (int32 i = 0; i < NumErrors(); ++i) {
        EXPECT_EQ(GetErrorNum(i), 5002);
        EXPECT_EQ(GetErrorGUID(i).Data1, 0xEE011B72u);
        wchar16 parameters[512];
        GetErrorMsg(ZUTEXT("(^0, ^1) "), static_cast<uint64>(i), parameters, 512);
        const wstring16 text = parameters;
        told += std::to_string(GetResourceID(i)) + std::string(text.begin(), text.end());
    }
    ClearErrors();
    return told;
}

// What LiteralToDate and Days2MDY leave.
inline const char BadDateError[] = "9986(, ) ";

}  // namespace Torvo::test
